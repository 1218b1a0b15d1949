#include <tavex/SLocale>

#include <QTest>

using Quorvex::SLocale;

class TestSLocale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names_data()
    {
        QTest::addColumn<QString>("full");
        QTest::addColumn<QString>("language");
        QTest::newRow("de_DE") << QStringLiteral("de_DE") << QStringLiteral("de");
        QTest::newRow("fil_PH") << QStringLiteral("fil_PH") << QStringLiteral("fil");
        QTest::newRow("C") << QStringLiteral("C") << QStringLiteral("C");
        QTest::newRow("tlh") << QStringLiteral("tlh") << QStringLiteral("tlh");
        QTest::newRow("TLH") << QStringLiteral("tlh") << QStringLiteral("tlh");
        QTest::newRow("no such locale") << QStringLiteral("C") << QStringLiteral("C");
    }
    void names()
    {
        QFETCH(QString, full);
        QFETCH(QString, language);
        const SLocale locale(QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(locale.name(), full);
        QCOMPARE(locale.name(true), language);
        QCOMPARE(SLocale::lcName(locale, true), full);
        QCOMPARE(SLocale::lcName(locale), full.replace(QLatin1Char('_'), QLatin1Char('-')));
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
