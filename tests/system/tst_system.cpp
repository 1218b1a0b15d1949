#include "common.h"

#include <tavex/system/cpuid_p.h>
using F = CpuFeatureFlags;
using Os = OperatingSystem;

constexpr quint32 Named = 0x80000000;

class TestSystem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savedStates()
    {
        // Bits 0 to 25 are of older features, 26 to 39 of the AVX-512 family.
        const F avx = F::AVX | F::F16C | F::FMA | F::AVX2 | F::VAES | F::VPCLMULQDQ | F::AVX_VNNI;
        const F plain = static_cast<F>(0x3FFFFFF) & ~avx;
        const F all = static_cast<F>(0xFFFFFFFFFF);
        Cpu::CpuidRegisters registers{~0U, ~0U, ~0U, ~0U, ~0U, ~0U, ~0U};
        for (const auto &[xcr0, expected] :
            {std::pair(quint64(0), plain), {0x3, plain}, {0x4, plain}, {0x7, plain | avx},
                {0x67, plain | avx}, {0xE7, all}, {0xE3, plain}}) {
            registers.xcr0 = xcr0;
            QCOMPARE(featuresOf(registers), expected);
        }
        QCOMPARE(Cpu::featuresOf({.xcr0 = 0xE7}), F::None);
    }

    void asTheKernelSays()
    {
        QFile file(string("/proc/cpuinfo"));
        if (!file.open(QIODevice::ReadOnly))
            QSKIP("No Linux");
        QHash<QByteArray, QByteArray> info;
        for (const QByteArray &line : file.readAll().split('\n'))
            info.insert(
                line.split(':').at(0).trimmed(), line.mid(line.indexOf(':') + 1).simplified());
        if (!info.contains("vendor_id"))
            QSKIP("No x86");
        QCOMPARE(SCpuInfo::vendor().toLatin1(), info["vendor_id"]);
        QCOMPARE(SCpuInfo::brand().toLatin1(), info["model name"]);

        const auto flags = info["flags"].replace('_', "").toUpper().split(' ');
        const QHash<QString, QByteArray> otherNames{
            {string("SSE3"), "PNI"}, {string("LZCNT"), "ABM"}, {string("SHA"), "SHANI"}};
        F expected{};
        for (const auto &row : CpuFeatureFlags_T::rows) {
            const QString key = QString::fromUtf16(row.key).remove(u'_');
            if (flags.contains(otherNames.value(key, key.toLatin1())))
                expected |= row.value;
        }
        // The kernel no longer names RDSEED where the processor has it with an erratum.
        QCOMPARE(SCpuInfo::features() | F::RDSEED, expected | F::RDSEED);
        QCOMPARE(SCpuInfo::type(), flags.contains("LM") ? CpuType::X86_64 : CpuType::X86);
    }

    // Each row is tried with the build after that of the row above, and with its last build.
    void endOfLife() const
    {
        constexpr int Any = 2147483647;
        struct Row
        {
            quint32 os;
            int end;
            int lastBuild = Any;
            int longTermEnd = end;
        };
        constexpr int Open = 99991231;
        const Row rows[] = {{0xC0, 20170509, 10240, 20251014}, {0xC0, 20171010, 10586},
            {0xC0, 20190409, 14393, 20261013}, {0xC0, 20191008, 15063}, {0xC0, 20201013, 16299},
            {0xC0, 20201110, 17134}, {0xC0, 20210511, 17763, 20290109}, {0xC0, 20201208, 18362},
            {0xC0, 20220510, 18363}, {0xC0, 20211214, 19041}, {0xC0, 20230509, 19042},
            {0xC0, 20221213, 19043}, {0xC0, Open}, {0xD0, 20241005, 22000}, {0xD0, Open},
            {0x30, 20140408}, {0x80, 20170411}, {0x90, 20200114}, {0xB0, 20230110},
            {0x2000, 20191007}, {0x3000, 20201231}, {0x4000, 20211231}, {0x5000, 20221231},
            {0x6000, 20231231}, {0x7000, 20241231}, {0x1, 0}, {0x4, 0}, {0xF, 0}, {0x10, 0},
            {0x20, 0}, {0xA0, 0}, {0x100, 0}, {0x400, 0}, {0xF00, 0}, {0x0, Open}, {0x11, Open},
            {0x40, Open}, {0xF0, Open}, {0xE0, Open}, {0x101, Open}, {0xFFF, Open}, {0x1000, Open},
            {0x8000, Open}, {0x3F000, Open}, {0x100000, Open}, {0x100001, Open}, {0x1F0000, Open},
            {0x1000000, Open}, {0xD000001, Open}, {0x7FFFFFFF, Open}};
        const auto date = [](int d) { return QDate(d / 10000, d / 100 % 100, d % 100); };
        int firstBuild = -Any;
        for (const Row &row : rows) {
            for (const int build : {firstBuild, row.lastBuild}) {
                const auto end = [&](quint32 named, QStringView product) {
                    const auto os = static_cast<Os>(row.os | named);
                    return SSysInfo::endOfLife(os, build, product.toString());
                };
                const QList<QDate> found{
                    end(0, u"Pro ltsc"), end(Named, u"x LTSB"), end(0, u"LTSC")};
                const QDate longEnd = date(row.longTermEnd);
                const QList<QDate> expected{date(row.end), longEnd, longEnd};
                const auto text = QString::asprintf("%x build %d", row.os, build);
                QVERIFY2(found == expected, qPrintable(text));
            }
            firstBuild = row.lastBuild == Any ? -Any : row.lastBuild + 1;
        }
    }

    void classifies()
    {
        using V = QOperatingSystemVersion;
        const std::pair<V, Os> rows[] = {{{V::Windows, 6, 0, 6002}, Os::Windows},
            {{V::Windows, 6, 1, 7600}, Os::Windows_7}, {{V::Windows, 6, 2, 9200}, Os::Windows_8},
            {{V::Windows, 6, 3, 9600}, Os::Windows_8_1},
            {{V::Windows, 10, 0, 10240}, Os::Windows_10},
            {{V::Windows, 10, 0, 21999}, Os::Windows_10},
            {{V::Windows, 10, 0, 22000}, Os::Windows_11}, {{V::Windows, 11, 0}, Os::Windows_11},
            {{V::MacOS, 12}, Os::macOS}, {{V::IOS, 15}, Os::iOS}, {{V::Android, 12}, Os::Android},
            {{V::Unknown, -1}, Os::FreeBSD}};
        for (const auto &[version, expected] : rows) {
            const auto kernel = string("freebsd");
            const auto named = static_cast<Os>(static_cast<quint32>(expected) | Named);
            QCOMPARE(SSysInfo::operatingSystem(false, version, kernel), expected);
            QCOMPARE(SSysInfo::operatingSystem(true, version, kernel), named);
        }
        QCOMPARE(SSysInfo::operatingSystem(false, {V::Unknown, -1}, {}), Os::Unix);
    }

    void names() const
    {
        struct Row
        {
            Os os;
            int type;
            const char *marketing;
            const char *version = marketing;
        };
        const Row rows[] = {{Os::Windows_10_0, 3, "Windows 10", "Windows 10.0"},
            {Os::Windows_8_1, 3, "Windows 8.1", "Windows 6.3"}, {Os::Windows_98, 3, "Windows 98"},
            {Os::Windows_CE_5_0, 3, "Windows CE 5.0"}, {Os::Windows_CE__NET, 3, "Windows CE .NET"},
            {static_cast<Os>(0x80000FFF), 3, "Windows"},
            {Os::macOS_10_13, 1, "macOS High Sierra", "macOS 10.13"}, {Os::Mac_OS_9, 1, "Mac OS 9"},
            {Os::OS_X, 1, "macOS"}, {Os::iOS_15_0, 2, "iOS 15.0"},
            {static_cast<Os>(0x81000000), 4, "Linux"}, {Os::NetBSD, 5, "NetBSD"},
            {Os::HP_UX, 6, "HP-UX"}, {Os::Unix, 6, "Unix"}, {Os::OS_2, 0, "OS/2"},
            {Os::OS_400, 0, "OS/400"}, {Os::Android, 7, "Android"}, {Os::Symbian, 8, "Symbian"},
            {static_cast<Os>(0xE0), 3, "224"}, {static_cast<Os>(0), 0, "0"}};
        for (const Row &row : rows) {
            QCOMPARE(SSysInfo::operatingSystemName(row.os, true), QLatin1String(row.marketing));
            QCOMPARE(SSysInfo::operatingSystemName(row.os, false), QLatin1String(row.version));
            QCOMPARE(static_cast<int>(SSysInfo::operatingSystemType(row.os)), row.type);
        }
        const auto name = &SSysInfo::operatingSystemTypeName;
        QCOMPARE(name(OperatingSystemType::BSD_), string("BSD"));
        QCOMPARE(name(static_cast<OperatingSystemType>(9)), string("9"));
    }

    void runningLinux()
    {
        if (SSysInfo::kernelType() != QLatin1String("linux") || SSysInfo::isAndroid())
            QSKIP("No Linux");
        QCOMPARE(SSysInfo::operatingSystemCodeName(), string("Linux"));
        using S = SSysInfo;
        QVERIFY(S::isSupported() && S::isLinux());
        for (auto *const isOther :
            {&S::isWindows, &S::isWindows9x, &S::isWindowsNT, &S::isWindowsCE, &S::isMac, &S::isiOs,
                &S::isBSD, &S::isBeOS, &S::isOS2, &S::isOS400, &S::isSymbian, &S::isUnix})
            QVERIFY(!isOther());
    }

    // The script windows-versions sets Wine up and says what is to be found.
    void runningWindows()
    {
        if (!SSysInfo::isWindows())
            QSKIP("No Windows");
        QVERIFY(SSysInfo::isWindowsNT() && SSysInfo::isOs_64bit());
        QVERIFY(!SSysInfo::isWindows9x() && !SSysInfo::isWindowsCE() && !SSysInfo::isMac());
        const Os os = SSysInfo::operatingSystem(false);
        QCOMPARE(SSysInfo::operatingSystem(true), os);
        const QString found = SSysInfo::operatingSystemCodeName() + QLatin1Char(' ')
            + SSysInfo::endOfLife(os).toString(Qt::ISODate);
        QCOMPARE(found, qEnvironmentVariable("TAVEX_EXPECTED_SYSTEM", found));
    }

    void coresMemoryAndPrograms()
    {
        QVERIFY(SCpuInfo::packages() >= 1 && SCpuInfo::cores() >= SCpuInfo::packages());
        QVERIFY(SMemoryInfo::total() > SMemoryInfo::available());
        QVERIFY(SMemoryInfo::available() > SMemoryInfo::processUse());
        QVERIFY(SMemoryInfo::processUse() > 1 << 20);

        QVERIFY(SMemoryInfo::limit() > 0 && SMemoryInfo::limit() <= SMemoryInfo::total());

        const QString self = QCoreApplication::applicationFilePath();
        const QFileInfo file(self);
        QVERIFY(QDir::setCurrent(file.path()));
        qputenv("PATH", QFileInfo(file.path()).path().toLocal8Bit());
        QCOMPARE(SShellCommandSeeker::find(self), self);
        QVERIFY(SShellCommandSeeker::exists(string("./") + file.fileName()));
        for (const QString &none : {QString(), QDir::rootPath(), self + u'x', file.fileName(),
                 file.dir().dirName() + u'/' + file.fileName(), QString(3, QChar())})
            QVERIFY2(!SShellCommandSeeker::exists(none), qPrintable(none));
        if (SSysInfo::isLinux()) {
            qputenv("PATH", "/none:");
            QCOMPARE(SShellCommandSeeker::find(file.fileName()), self);
        }
    }

    void volumes()
    {
        const QTemporaryDir folder(QDir::temp().filePath(string("größe-XXXXXX")));
        const SStorageInfo info(QDir::current().relativeFilePath(folder.path()));
        const QStorageInfo expected(folder.path());
        QVERIFY(info.isValid() && info.isLocal());
        if (expected.isValid()) { // Qt does not know the root of a chroot.
            QCOMPARE(info.rootPath(), expected.rootPath());
            QCOMPARE(info.type().toLatin1(), expected.fileSystemType());
            QCOMPARE(info.totalBytes(), expected.bytesTotal());
            // Others write meanwhile.
            QVERIFY(qAbs(info.freeBytes() - expected.bytesAvailable()) < Q_INT64_C(1) << 30);
        }

        const QString missing = folder.filePath(string("none/file"));
        for (SStorageInfo none : {SStorageInfo(), SStorageInfo(QString()), SStorageInfo(missing),
                 SStorageInfo(QString(3, QChar()))}) {
            QVERIFY(!none.isValid() && !none.isLocal() && !none.eject());
            QVERIFY(none == SStorageInfo() && none != info);
            QCOMPARE(none.rootPath() + none.name() + none.type(), QString());
            QCOMPARE(none.totalBytes() + none.freeBytes(), 0);
        }

        int roots = 0;
        for (const SStorageInfo &volume : SStorageInfo::volumes()) {
            roots += volume.rootPath() == QDir::rootPath();
            QCOMPARE(volume.path(), volume.rootPath());
            QCOMPARE(SStorageInfo(volume.path()), volume);
            QVERIFY(QDebug::toString(volume).startsWith(string("SStorageInfo(\"/"))
                || SSysInfo::isWindows());
        }
        QCOMPARE(roots, 1);
        // A fixed disk is not unmounted, whoever asks.
        QVERIFY(!SStorageInfo(QDir::rootPath()).eject());
    }
};

QTEST_GUILESS_MAIN(TestSystem)
#include "tst_system.moc"
