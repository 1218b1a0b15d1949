#include <tavex/SCpuInfo>
#include <tavex/SSysInfo>
#include <tavex/TavexApplication>

#include <QTest>

using Quorvex::OperatingSystem;
using Quorvex::OperatingSystemType;
using Quorvex::SSysInfo;
using Os = OperatingSystem;
using Version = QOperatingSystemVersion;

static OperatingSystem withName(OperatingSystem os)
{
    return static_cast<OperatingSystem>(static_cast<quint32>(os) | 0x80000000);
}

class TestSSysInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windows10EndOfLife_data()
    {
        QTest::addColumn<int>("build");
        QTest::addColumn<QDate>("end");
        QTest::addColumn<QDate>("longTermEnd");
        struct Row
        {
            int lastBuild;
            QDate end;
            QDate longTermEnd;
        };
        const QDate noEnd(9999, 12, 31);
        const Row rows[] = {{10240, {2017, 5, 9}, {2025, 10, 14}}, {10586, {2017, 10, 10}, {}},
            {14393, {2019, 4, 9}, {2026, 10, 13}}, {15063, {2019, 10, 8}, {}},
            {16299, {2020, 10, 13}, {}}, {17134, {2020, 11, 10}, {}},
            {17763, {2021, 5, 11}, {2029, 1, 9}}, {18362, {2020, 12, 8}, {}},
            {18363, {2022, 5, 10}, {}}, {19041, {2021, 12, 14}, {}}, {19042, {2023, 5, 9}, {}},
            {19043, {2022, 12, 13}, {}}, {2147483647, noEnd, {}}};
        int firstBuild = -2147483647;
        for (const Row &row : rows) {
            const QDate longTermEnd = row.longTermEnd.isValid() ? row.longTermEnd : row.end;
            QTest::addRow("%d", firstBuild) << firstBuild << row.end << longTermEnd;
            QTest::addRow("%d", row.lastBuild) << row.lastBuild << row.end << longTermEnd;
            firstBuild = int(uint(row.lastBuild) + 1);
        }
    }
    void windows10EndOfLife()
    {
        QFETCH(int, build);
        for (const auto os : {Os::Windows_10, Os::Windows_10_0}) {
            QTEST(SSysInfo::endOfLife(os, build, QStringLiteral("Windows 10 Pro ltsc")), "end");
            for (const auto *product : {u"Windows 10 Enterprise 2016 LTSB", u"LTSC 2019"})
                QTEST(SSysInfo::endOfLife(os, build, QString::fromUtf16(product)), "longTermEnd");
        }
    }

    void endOfLife_data()
    {
        QTest::addColumn<quint32>("value");
        QTest::addColumn<QDate>("end");
        const auto row = [](quint32 value, QDate end) {
            QTest::addRow("%x", value) << value << end;
            QTest::addRow("%x", value | 0x80000000) << (value | 0x80000000) << end;
        };
        for (const auto never :
            std::initializer_list<quint32>{0x1, 0x4, 0xF, 0x10, 0x20, 0xA0, 0x100, 0x400, 0xF00})
            row(never, {});
        for (const auto open :
            std::initializer_list<quint32>{0x0, 0x11, 0x40, 0xF0, 0xE0, 0x101, 0xFFF, 0x1000,
                0x8000, 0x3F000, 0x100000, 0x100001, 0x1F0000, 0x1000000, 0xD000001, 0x7FFFFFFF})
            row(open, {9999, 12, 31});
        row(0x30, {2014, 4, 8});
        row(0x80, {2017, 4, 11});
        row(0x90, {2020, 1, 14});
        row(0xB0, {2023, 1, 10});
        row(0x2000, {2019, 10, 7});
        row(0x3000, {2020, 12, 31});
        row(0x4000, {2021, 12, 31});
        row(0x5000, {2022, 12, 31});
        row(0x6000, {2023, 12, 31});
        row(0x7000, {2024, 12, 31});
    }
    void endOfLife()
    {
        QFETCH(quint32, value);
        const auto os = static_cast<OperatingSystem>(value);
        QTEST(SSysInfo::endOfLife(os, 1, QStringLiteral("LTSC")), "end");
        QTEST(SSysInfo::endOfLife(os), "end");
    }

    void windows11EndOfLife()
    {
        const auto end = [](int build) {
            return SSysInfo::endOfLife(Os::Windows_11, build, QStringLiteral("LTSC"));
        };
        QCOMPARE(end(22000), QDate(2024, 10, 5));
        QCOMPARE(end(22001), QDate(9999, 12, 31));
    }

    void classifies_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QList<int>>("version");
        QTest::addColumn<QString>("kernel");
        QTest::addColumn<OperatingSystem>("expected");
        const auto row = [](const char *name, Version::OSType type, const QList<int> &version,
                             const char *kernel, OperatingSystem expected) {
            QTest::newRow(name) << int(type) << version << QString::fromLatin1(kernel) << expected;
        };
        row("vista", Version::Windows, {6, 0, 6002}, "winnt", Os::Windows);
        row("7", Version::Windows, {6, 1, 7600}, "winnt", Os::Windows_7);
        row("8", Version::Windows, {6, 2, 9200}, "winnt", Os::Windows_8);
        row("8.1", Version::Windows, {6, 3, 9600}, "winnt", Os::Windows_8_1);
        row("10", Version::Windows, {10, 0, 10240}, "winnt", Os::Windows_10);
        row("last 10", Version::Windows, {10, 0, 21999}, "winnt", Os::Windows_10);
        row("first 11", Version::Windows, {10, 0, 22000}, "winnt", Os::Windows_11);
        row("after 11", Version::Windows, {11, 0, 0}, "winnt", Os::Windows_11);
        row("mac", Version::MacOS, {12, 0, 0}, "darwin", Os::macOS);
        row("phone", Version::IOS, {15, 0, 0}, "darwin", Os::iOS);
        row("android", Version::Android, {12, 0, 0}, "linux", Os::Android);
        row("linux", Version::Unknown, {-1, -1, -1}, "linux", Os::Linux);
        row("bsd", Version::Unknown, {-1, -1, -1}, "freebsd", Os::FreeBSD);
        row("other", Version::Unknown, {-1, -1, -1}, "", Os::Unix);
    }
    void classifies()
    {
        QFETCH(int, type);
        QFETCH(QList<int>, version);
        QFETCH(QString, kernel);
        QFETCH(OperatingSystem, expected);
        const Version v(
            static_cast<Version::OSType>(type), version.at(0), version.at(1), version.at(2));
        QCOMPARE(SSysInfo::operatingSystem(false, v, kernel), expected);
        QCOMPARE(SSysInfo::operatingSystem(true, v, kernel), withName(expected));
    }

    void names_data()
    {
        QTest::addColumn<OperatingSystem>("os");
        QTest::addColumn<QString>("marketing");
        QTest::addColumn<QString>("version");
        QTest::addColumn<int>("type");
        const auto row = [](OperatingSystem os, const char *marketing, const char *version,
                             int type) {
            QTest::addRow("%x", static_cast<quint32>(os))
                << os << QString::fromLatin1(marketing) << QString::fromLatin1(version) << type;
        };
        row(Os::Windows_10, "Windows 10", "Windows 10.0", 3);
        row(Os::Windows_10_0, "Windows 10", "Windows 10.0", 3);
        row(Os::Windows_8_1, "Windows 8.1", "Windows 6.3", 3);
        row(Os::Windows_NT, "Windows NT", "Windows 4.0", 3);
        row(Os::Windows_98, "Windows 98", "Windows 98", 3);
        row(Os::Windows_CE_5_0, "Windows CE 5.0", "Windows CE 5.0", 3);
        row(Os::Windows_CE__NET, "Windows CE .NET", "Windows CE .NET", 3);
        row(withName(Os::Windows), "Windows", "Windows", 3);
        row(Os::macOS_Monterey, "macOS Monterey", "macOS 12.0", 1);
        row(Os::macOS_10_13, "macOS High Sierra", "macOS 10.13", 1);
        row(Os::Mac_OS_9, "Mac OS 9", "Mac OS 9", 1);
        row(Os::OS_X, "macOS", "macOS", 1);
        row(Os::iOS_15_0, "iOS 15.0", "iOS 15.0", 2);
        row(withName(Os::Linux), "Linux", "Linux", 4);
        row(Os::NetBSD, "NetBSD", "NetBSD", 5);
        row(Os::HP_UX, "HP-UX", "HP-UX", 6);
        row(Os::Unix, "Unix", "Unix", 6);
        row(Os::OS_2, "OS/2", "OS/2", 0);
        row(Os::OS_400, "OS/400", "OS/400", 0);
        row(Os::Android, "Android", "Android", 7);
        row(Os::Symbian, "Symbian", "Symbian", 8);
        row(static_cast<OperatingSystem>(0xE0), "224", "224", 3);
        row(static_cast<OperatingSystem>(0), "0", "0", 0);
    }
    void names()
    {
        QFETCH(OperatingSystem, os);
        QTEST(SSysInfo::operatingSystemName(os, true), "marketing");
        QTEST(SSysInfo::operatingSystemName(os, false), "version");
        QTEST(int(SSysInfo::operatingSystemType(os)), "type");
    }

    void typeNames()
    {
        const auto name = &SSysInfo::operatingSystemTypeName;
        Quorvex::TavexApplication::init(QLocale(QLocale::German));
        QCOMPARE(name(OperatingSystemType::BSD_), QStringLiteral("BSD"));
        QCOMPARE(name(OperatingSystemType::macOS), QStringLiteral("macOS"));
        QCOMPARE(name(static_cast<OperatingSystemType>(9)), QStringLiteral("9"));
    }

    // Exactly one family is the running one, and all ways to ask agree.
    void predicates()
    {
        const std::pair<OperatingSystemType, bool> families[] = {
            {OperatingSystemType::Windows, SSysInfo::isWindows()},
            {OperatingSystemType::macOS, SSysInfo::isMac()},
            {OperatingSystemType::iOS, SSysInfo::isiOs()},
            {OperatingSystemType::Linux, SSysInfo::isLinux()},
            {OperatingSystemType::Android, SSysInfo::isAndroid()},
            {OperatingSystemType::BSD_, SSysInfo::isBSD()},
            {OperatingSystemType::Unix, SSysInfo::isUnix()},
            {OperatingSystemType::Symbian, SSysInfo::isSymbian()}};
        for (const auto &[type, isRunning] : families)
            QCOMPARE(isRunning, SSysInfo::operatingSystemType() == type);
        QVERIFY(!SSysInfo::isOS2() && !SSysInfo::isOS400() && !SSysInfo::isBeOS());
        QVERIFY(!SSysInfo::isWindowsCE() || SSysInfo::isWindows());
        QVERIFY(!SSysInfo::isWindows9x() || SSysInfo::isWindows());
        QVERIFY(!SSysInfo::isWindowsNT() || SSysInfo::isWindows());
        QCOMPARE(SSysInfo::isLinux(), SSysInfo::kernelType() == QLatin1String("linux"));
        QCOMPARE(SSysInfo::isWindows(), SSysInfo::kernelType() == QLatin1String("winnt"));
    }

    void runningSystem()
    {
        if (SSysInfo::isLinux()) {
            QCOMPARE(static_cast<quint32>(SSysInfo::operatingSystem(false)), 0x1000000U);
            QCOMPARE(static_cast<quint32>(SSysInfo::operatingSystem(true)), 0x81000000U);
            QCOMPARE(SSysInfo::operatingSystemCodeName(), QStringLiteral("Linux"));
            QVERIFY(SSysInfo::isSupported());
        }
        QVERIFY(SSysInfo::isOs_64bit() != SSysInfo::isOs_32bit());
        QVERIFY(SSysInfo::isOs_64bit() || QSysInfo::WordSize == 32);
        const quint16 one = 1;
        QCOMPARE(static_cast<int>(SSysInfo::byteOrder()),
            static_cast<int>(*reinterpret_cast<const uchar *>(&one)));
        QCOMPARE(SSysInfo::cpuCount(), Quorvex::SCpuInfo::threads());
    }
};

QTEST_GUILESS_MAIN(TestSSysInfo)
#include "tst_ssysinfo.moc"
