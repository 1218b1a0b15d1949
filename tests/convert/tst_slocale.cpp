#include <tavex/SLocale>

#include <QTest>

using Quorvex::SLocale;

class TestSLocale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("full");
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("hyphenated");
        const auto row = [](const char *name, const char *full, const char *language,
                             const char *hyphen) {
            QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(full)
                                << QString::fromLatin1(language) << QString::fromLatin1(hyphen);
        };
        row("de_DE", "de_DE", "de", "de-DE");
        row("fil_PH", "fil_PH", "fil", "fil-PH");
        row("C", "C", "C", "C");
        row("tlh", "tlh", "tlh", "tlh");
        row("TLH", "tlh", "tlh", "tlh");
        row("no such locale", "C", "C", "C");
    }
    void names()
    {
        QFETCH(QString, name);
        QFETCH(QString, full);
        QFETCH(QString, language);
        QFETCH(QString, hyphenated);
        const SLocale locale(name);
        QCOMPARE(locale.name(), full);
        QCOMPARE(locale.name(true), language);
        QCOMPARE(SLocale::lcName(locale), hyphenated);
        QCOMPARE(SLocale::lcName(locale, true), full);
        QCOMPARE(SLocale::isKlingon(locale), language == QStringLiteral("tlh"));
    }

    void nativeLanguageName()
    {
        QCOMPARE(
            SLocale(QStringLiteral("tlh")).nativeLanguageName(), QStringLiteral("tlhIngan Hol"));
        QCOMPARE(SLocale(QLocale(QLocale::German)).nativeLanguageName(), QStringLiteral("Deutsch"));
    }

    void numberOptions()
    {
        const QLocale german(QLocale::German);
        const SLocale locale(german, QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
        QCOMPARE(locale.locale().toString(12345), QStringLiteral("12345"));
        QCOMPARE(SLocale(locale).locale().toString(12345), QStringLiteral("12345"));
        QCOMPARE(SLocale(german).locale().toString(12345), QStringLiteral("12.345"));
    }
};

QTEST_APPLESS_MAIN(TestSLocale)
#include "tst_slocale.moc"
