#include <tavex/SConvert>
#include <tavex/SVersion>
#include <tavex/TavexInfo>

#include <QTest>

#include <limits>

using Quorvex::SConvert;
using Quorvex::SVersion;

class TestSVersion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void currentVersionEverywhere()
    {
        QCOMPARE(SVersion::currentVersion(), SVersion(2, 0, 12));
        QVERIFY(Quorvex::TavexInfo::version() == 131084);
        QCOMPARE(
            SConvert::toString(SVersion::currentVersion(), QLocale::c()), QStringLiteral("2.0.12"));
    }

    void carriesCrossComponents()
    {
        SVersion version(1, 2, 255);
        QCOMPARE(version++, SVersion(1, 2, 255));
        QCOMPARE(version, SVersion(1, 3, 0));
        QCOMPARE(--version, SVersion(1, 2, 255));
        QCOMPARE(SVersion(1, 0, 0).addPatch(300), SVersion(1, 1, 44));
        QCOMPARE(SVersion(1, 2, 200) + SVersion(0, 0, 100), SVersion(1, 3, 44));
        QCOMPARE(SVersion(1, 0, 0) - SVersion(0, 0, 1), SVersion(0, 255, 255));
        QCOMPARE(SVersion(1, 300, 0), SVersion(1, 44, 0));
        QCOMPARE(--SVersion(), SVersion::invalidVersion());
        QVERIFY(!SVersion::invalidVersion().isValid() && !SVersion::invalidVersion().isNull());
        QVERIFY(SVersion().isValid() && SVersion().isNull());
    }

    // Each setter clears its own choice of high bits, and none masks its argument.
    void setters()
    {
        SVersion version = SVersion::invalidVersion();
        version.setPatch(5);
        QCOMPARE(version.value(), 0xFFFF05);
        version = SVersion::invalidVersion();
        version.setMinor(5);
        QCOMPARE(version.value(), 0xFF05FF);
        version = SVersion::invalidVersion();
        version.setMajor(1);
        QCOMPARE(version, SVersion(1, 255, 255));
        version.setPatch(0x300);
        QCOMPARE(version, SVersion(1, 255, 0));
        version.setMajor(-1);
        QVERIFY(!version.isValid());
    }

    // Wrapping is defined; the sanitizers watch.
    void extremes()
    {
        constexpr int Min = (std::numeric_limits<int>::min)();
        constexpr int Max = (std::numeric_limits<int>::max)();
        QCOMPARE((++SVersion(Max)).value(), Min);
        QCOMPARE((SVersion(Min) - SVersion(1)).value(), Max);
        QCOMPARE(SVersion(0).addMajor(Min).value(), 0);
        QVERIFY(SVersion(-1, -1, -1) == -1);
    }

    void comparesWithAnyNumber()
    {
        const SVersion version(2, 0, 12);
        QVERIFY(version == 131084 && 131084L == version && version == std::size_t(131084));
        QVERIFY(version != (quint64(1) << 32 | 131084) && version == 131084.0);
        QVERIFY(version < 131085U && version >= qint64(131084) && 1 < version);
        QVERIFY(SVersion::invalidVersion() != 0xFFFFFFFFU && SVersion::invalidVersion() < 0U);
        QCOMPARE(version + 1, SVersion(2, 0, 13));
        QCOMPARE(version - 1L, SVersion(2, 0, 11));
    }

    void reads_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("format");
        QTest::addColumn<SVersion>("expected");
        const auto row = [](const char *text, SVersion expected, const char *format = "") {
            QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(format)
                                << expected;
        };
        row("10.20.30", {10, 20, 30});
        row("v1.2.3-beta", {1, 2, 3});
        row("1-2-3", {1, 2, 3});
        row("1.2.345", {1, 2, 34});
        row("123.4.5", {1, 3, 4}); // The dots stand for any character, a digit too.
        row("1.2", {});
        row("abc", {});
        row("", {});
        row("3/2/1", {1, 2, 3}, " {pp}/{mm}/{MM} ");
        row("7", {7, 0, 0}, "{MM}");
        row("1.1", {}, "{MM}.{MM}");
        row("(1", {}, "({MM}");
    }
    void reads()
    {
        QFETCH(QString, text);
        QFETCH(QString, format);
        QFETCH(SVersion, expected);
        QCOMPARE(SConvert::toVersion(text, format, QLocale::c()), expected);
        QCOMPARE(SConvert::toVersion(QVariant(text), format, QLocale::c()), expected);
        if (format.isEmpty())
            QCOMPARE(SConvert::toVersion(text, QLocale::c()), expected);
    }

    void writes()
    {
        const SVersion version(1, 2, 30);
        QCOMPARE(SConvert::toString(version, QStringLiteral("{pp}/{mm}/{MM}/{mm}"), QLocale::c()),
            QStringLiteral("30/2/1/2"));
        QCOMPARE(SConvert::toString(version, QLocale(QLocale::Arabic, QLocale::Egypt)),
            QStringLiteral(u"\u0661.\u0662.\u0663\u0660"));
    }

    void convertsNumbersAndVariants()
    {
        QCOMPARE(SConvert::toVersion(131084LL + (1LL << 32)), SVersion(2, 0, 12));
        QCOMPARE(SConvert::toVersion(static_cast<signed char>(-1)), SVersion::invalidVersion());
        QCOMPARE(SConvert::toVersion(131084.9), SVersion(2, 0, 12));
        QCOMPARE(SConvert::toVersion(1e300).value(), (std::numeric_limits<int>::max)());
        QVERIFY(SConvert::toVersion(std::numeric_limits<float>::quiet_NaN()).isNull());

        const QVariant variant = SConvert::toVariant({2, 0, 12});
        QCOMPARE(variant.typeName(), "Quorvex::SVersion");
        QCOMPARE(SConvert::toVersion(variant), SVersion(2, 0, 12));
        QVERIFY(SConvert::toVersion(QVariant()).isNull());
        QVERIFY(SConvert::toVersion(QVariant(QByteArray("x"))).isNull());
    }
};

QTEST_APPLESS_MAIN(TestSVersion)
#include "tst_sversion.moc"
