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
        QFile file("/proc/cpuinfo"_s);
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
            {"SSE3"_s, "PNI"}, {"LZCNT"_s, "ABM"}, {"SHA"_s, "SHANI"}};
        F expected{};
        for (const auto &row : CpuFeatureFlags_T::rows()) {
            const QString key = QString::fromUtf16(row.key).remove(u'_');
            if (flags.contains(otherNames.value(key, key.toLatin1())))
                expected |= row.value;
        }
        // The kernel no longer names RDSEED where the processor has it with an erratum.
        QCOMPARE(SCpuInfo::features() | F::RDSEED, expected | F::RDSEED);
        QCOMPARE(SCpuInfo::type(), flags.contains("LM") ? CpuType::X86_64 : CpuType::X86);
    }

    // One row for each way to find the day, and for both sides of what divides builds.
    void endOfLife() const
    {
        const char *const open = "9999-12-31";
        const std::tuple<quint32, int, const char *, const char *> rows[] = {
            {0xC0, -5, "Pro ltsc", "2017-05-09"}, {0xC0, 10240, "x LTSB", "2025-10-14"},
            {0xC0, 10241, "LTSC", "2017-10-10"}, {0xC0, 17763, "LTSC", "2029-01-09"},
            {0xC0, 19043, "Pro", "2022-12-13"}, {0xC0, 19044, "Pro", open},
            {0xD0, 22000, "", "2024-10-05"}, {0xD0, 22001, "", open}, {0x80, 1, "", "2017-04-11"},
            {0xB0, 1, "", "2023-01-10"}, {0x2000, 1, "", "2019-10-07"},
            {0x7000, 1, "", "2024-12-31"}, {0x4, 1, "", ""}, {0xF, 1, "", ""}, {0xF00, 1, "", ""},
            {0xA0, 1, "", ""}, {0x0, 1, "", open}, {0x11, 1, "", open}, {0x101, 1, "", open},
            {0x40, 1, "", open}, {0x100001, 1, "", open}, {0xD000001, 1, "", open}};
        for (const auto &[os, build, product, day] : rows) {
            const auto row = QString::asprintf("%x build %d %s", os, build, product);
            for (const quint32 named : {0U, Named}) {
                const QDate found =
                    SSysInfo::endOfLife(static_cast<Os>(os | named), build, string(product));
                COMPARE_ROW(row, found.toString(Qt::ISODate), string(day));
            }
        }
    }

    void classifies()
    {
        using V = QOperatingSystemVersion;
        const std::pair<V, Os> rows[] = {{{V::Windows, 6, 0, 6002}, Os::Windows},
            {{V::Windows, 6, 1, 7600}, Os::Windows_7}, {{V::Windows, 6, 2, 9200}, Os::Windows_8},
            {{V::Windows, 6, 3, 9600}, Os::Windows_8_1},
            {{V::Windows, 10, 0, 21999}, Os::Windows_10},
            {{V::Windows, 10, 0, 22000}, Os::Windows_11}, {{V::MacOS, 12}, Os::macOS},
            {{V::Android, 12}, Os::Android}, {{V::Unknown, -1}, Os::FreeBSD}};
        for (const auto &[version, expected] : rows) {
            for (const bool named : {false, true})
                COMPARE_ROW(QString::number(int(expected), 16),
                    SSysInfo::operatingSystem(named, version, "freebsd"_s),
                    static_cast<Os>(static_cast<quint32>(expected) | (named ? Named : 0)));
        }
        QCOMPARE(SSysInfo::operatingSystem(false, {V::Unknown, -1}, {}), Os::Unix);
    }

    void names() const
    {
        const std::tuple<Os, int, const char *, const char *> rows[] = {
            {Os::Windows_10_0, 3, "Windows 10", "Windows 10.0"},
            {Os::Windows_8_1, 3, "Windows 8.1", "Windows 6.3"},
            {Os::Windows_98, 3, "Windows 98", "Windows 98"},
            {Os::Windows_CE__NET, 3, "Windows CE .NET", "Windows CE .NET"},
            {static_cast<Os>(0x80000FFF), 3, "Windows", "Windows"},
            {Os::macOS_10_13, 1, "macOS High Sierra", "macOS 10.13"},
            {Os::Mac_OS_9, 1, "Mac OS 9", "Mac OS 9"}, {Os::iOS_15_0, 2, "iOS 15.0", "iOS 15.0"},
            {static_cast<Os>(0x81000000), 4, "Linux", "Linux"}, {Os::NetBSD, 5, "NetBSD", "NetBSD"},
            {Os::HP_UX, 6, "HP-UX", "HP-UX"}, {Os::OS_2, 0, "OS/2", "OS/2"},
            {Os::OS_400, 0, "OS/400", "OS/400"}, {Os::Android, 7, "Android", "Android"},
            {Os::Symbian, 8, "Symbian", "Symbian"}, {static_cast<Os>(0xE0), 3, "224", "224"},
            {static_cast<Os>(0), 0, "0", "0"}};
        for (const auto &[os, type, marketing, version] : rows) {
            COMPARE_ROW(marketing, SSysInfo::operatingSystemName(os, true), string(marketing));
            COMPARE_ROW(marketing, SSysInfo::operatingSystemName(os, false), string(version));
            COMPARE_ROW(marketing, static_cast<int>(SSysInfo::operatingSystemType(os)), type);
        }
        const auto name = &SSysInfo::operatingSystemTypeName;
        QCOMPARE(name(OperatingSystemType::BSD_), "BSD"_s);
        QCOMPARE(name(static_cast<OperatingSystemType>(9)), "9"_s);
    }

    void runningLinux()
    {
        if (SSysInfo::kernelType() != QLatin1String("linux") || SSysInfo::isAndroid())
            QSKIP("No Linux");
        QCOMPARE(SSysInfo::operatingSystemCodeName(), "Linux"_s);
        using S = SSysInfo;
        QVERIFY(S::isSupported());
        QCOMPARE((QList<bool>{S::isLinux(), S::isWindows(), S::isWindows9x(), S::isWindowsNT(),
                     S::isWindowsCE(), S::isMac(), S::isiOs(), S::isBSD(), S::isBeOS(), S::isOS2(),
                     S::isOS400(), S::isSymbian(), S::isUnix()}),
            QList<bool>{true} + QList<bool>(12, false));
    }

    // The script windows-versions sets Wine up and says what is to be found.
    void runningWindows()
    {
        if (!SSysInfo::isWindows())
            QSKIP("No Windows");
        using S = SSysInfo;
        QCOMPARE((QList<bool>{S::isWindowsNT(), S::isOs_64bit(), S::isWindows9x(), S::isMac()}),
            (QList<bool>{true, true, false, false}));
        const Os os = SSysInfo::operatingSystem(false);
        QCOMPARE(SSysInfo::operatingSystem(true), os);
        const QString found = SSysInfo::operatingSystemCodeName() + QLatin1Char(' ')
            + SSysInfo::endOfLife(os).toString(Qt::ISODate);
        QCOMPARE(found, qEnvironmentVariable("TAVEX_EXPECTED_SYSTEM", found));
    }

    void coresMemoryAndPrograms()
    {
        // Each is at most the next.
        const QList<qint64> rising{1, SCpuInfo::packages(), SCpuInfo::cores(), 1 << 20,
            SMemoryInfo::processUse(), SMemoryInfo::available(), SMemoryInfo::total()};
        QList<qint64> sorted = rising;
        std::sort(sorted.begin(), sorted.end());
        QCOMPARE(rising, sorted);
        QCOMPARE(
            qBound(qint64(1), SMemoryInfo::limit(), SMemoryInfo::total()), SMemoryInfo::limit());

        const QString self = QCoreApplication::applicationFilePath();
        const QFileInfo file(self);
        QVERIFY(QDir::setCurrent(file.path()));
        qputenv("PATH", QFileInfo(file.path()).path().toLocal8Bit());
        QCOMPARE(SShellCommandSeeker::find(self), self);
        QVERIFY(SShellCommandSeeker::exists("./"_s + file.fileName()));
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
        const QTemporaryDir folder(QDir::temp().filePath("größe-XXXXXX"_s));
        const SStorageInfo info(QDir::current().relativeFilePath(folder.path()));
        const QStorageInfo expected(folder.path());
        QVERIFY(info.isValid());
        QVERIFY(info.isLocal());
        if (expected.isValid()) { // Qt does not know the root of a chroot.
            QCOMPARE(info.rootPath(), expected.rootPath());
            QCOMPARE(info.type().toLatin1(), expected.fileSystemType());
            QCOMPARE(info.totalBytes(), expected.bytesTotal());
            // Others write meanwhile.
            QVERIFY(qAbs(info.freeBytes() - expected.bytesAvailable()) < Q_INT64_C(1) << 30);
        }

        const QString missing = folder.filePath("none/file"_s);
        for (SStorageInfo none : {SStorageInfo(), SStorageInfo(QString()), SStorageInfo(missing),
                 SStorageInfo(QString(3, QChar()))}) {
            QCOMPARE(
                (QList<bool>{none.isValid(), none.isLocal(), none.eject()}), QList<bool>(3, false));
            VERIFY_ALL(none == SStorageInfo(), none != info);
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
