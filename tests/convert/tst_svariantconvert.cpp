#include <tavex/SVariantConvert>

#include <QTest>

#include <thread>
#include <vector>

using Quorvex::SVariantConvert;

static QString first(const QVariant &, const QString &, const QLocale &)
{
    return QStringLiteral("first");
}

static QString second(const QVariant &, const QString &format, const QLocale &locale)
{
    return format + locale.name();
}

class TestSVariantConvert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lookUp()
    {
        QVERIFY(!SVariantConvert::isSVariantToStringRegistered(QMetaType::Int));
        QVERIFY(!SVariantConvert::sVariantToStringFunction(QMetaType::Int));

        SVariantConvert::sVariantToStringRegister(QMetaType::Int, &first);
        SVariantConvert::sVariantToStringRegister(QMetaType::Int, &second);
        SVariantConvert::sVariantToStringRegister(QMetaType::Int, nullptr);
        const auto converter = SVariantConvert::sVariantToStringFunction(QMetaType::Int);
        QVERIFY(converter == &second);
        QCOMPARE(converter(1, QStringLiteral("x"), QLocale::c()), QStringLiteral("xC"));
    }

    // For the thread sanitizer, and for a map that loses entries.
    void concurrentUse()
    {
        std::vector<std::thread> threads;
        threads.reserve(4);
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([t] {
                for (int i = 0; i < 2000; i += 4) {
                    SVariantConvert::sVariantToStringRegister(100000 + i + t, &first);
                    (void)SVariantConvert::isSVariantToStringRegistered(100000 + i + 3 - t);
                }
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        for (int i = 0; i < 2000; ++i)
            QVERIFY(SVariantConvert::sVariantToStringFunction(100000 + i) == &first);
    }
};

QTEST_APPLESS_MAIN(TestSVariantConvert)
#include "tst_svariantconvert.moc"
