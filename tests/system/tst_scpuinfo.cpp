#include <tavex/SCpuInfo>
#include <tavex/SSysInfo>
#include <tavex/system/cpuid_p.h>

#include <QFile>
#include <QSet>
#include <QTest>
#include <QThread>

using Quorvex::CpuFeatureFlags;
using Quorvex::CpuType;
using Quorvex::SCpuInfo;
using Quorvex::Cpu::CpuidRegisters;

/// The lines "name : value" of the first processor in /proc/cpuinfo.
static QHash<QByteArray, QByteArray> firstProcessor()
{
    QHash<QByteArray, QByteArray> values;
    QFile file(QStringLiteral("/proc/cpuinfo"));
    if (!file.open(QIODevice::ReadOnly))
        return values;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.isEmpty())
            break;
        values.insert(
            line.left(line.indexOf(':')).trimmed(), line.mid(line.indexOf(':') + 1).simplified());
    }
    return values;
}

class TestSCpuInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void savedStates_data()
    {
        QTest::addColumn<quint64>("xcr0");
        QTest::addColumn<bool>("hasAvx");
        QTest::addColumn<bool>("hasAvx512");
        QTest::newRow("none") << quint64(0) << false << false;
        QTest::newRow("SSE only") << quint64(0x3) << false << false;
        QTest::newRow("YMM without XMM") << quint64(0x4) << false << false;
        QTest::newRow("AVX") << quint64(0x7) << true << false;
        QTest::newRow("part of AVX-512") << quint64(0x67) << true << false;
        QTest::newRow("AVX-512") << quint64(0xE7) << true << true;
        QTest::newRow("AVX-512 without AVX") << quint64(0xE3) << false << false;
    }
    void savedStates()
    {
        QFETCH(quint64, xcr0);
        QFETCH(bool, hasAvx);
        QFETCH(bool, hasAvx512);
        CpuidRegisters all;
        all.leaf1Ecx = all.leaf1Edx = all.leaf7Ebx = all.leaf7Ecx = all.leaf7Edx = ~0U;
        all.leaf7Sub1Eax = all.extended1Ecx = ~0U;
        all.xcr0 = xcr0;
        const CpuFeatureFlags found = featuresOf(all);
        using F = CpuFeatureFlags;
        const F plain = F::MMX | F::SSE | F::SSE2 | F::SSE3 | F::SSSE3 | F::SSE4_1 | F::SSE4_2
            | F::POPCNT | F::AES | F::PCLMULQDQ | F::BMI1 | F::BMI2 | F::LZCNT | F::MOVBE
            | F::RDRAND | F::RDSEED | F::ADX | F::SHA | F::GFNI;
        const F avx = F::AVX | F::F16C | F::FMA | F::AVX2 | F::VAES | F::VPCLMULQDQ | F::AVX_VNNI;
        // Every further bit of x86 is one of the AVX-512 family.
        const F avx512 = static_cast<F>((Q_UINT64_C(1) << 40) - (Q_UINT64_C(1) << 26));
        QCOMPARE(found, plain | (hasAvx ? avx : F::None) | (hasAvx512 ? avx512 : F::None));
    }

    void asTheKernelSays()
    {
        const auto info = firstProcessor();
        if (!info.contains("vendor_id"))
            QSKIP("No x86 under Linux");
        QCOMPARE(SCpuInfo::vendor().toLatin1(), info.value("vendor_id"));
        QCOMPARE(SCpuInfo::brand().toLatin1(), info.value("model name"));

        const QList<QByteArray> flags = info.value("flags").split(' ');
        using F = CpuFeatureFlags;
        const std::pair<const char *, F> names[] = {{"mmx", F::MMX}, {"sse", F::SSE},
            {"sse2", F::SSE2}, {"pni", F::SSE3}, {"ssse3", F::SSSE3}, {"sse4_1", F::SSE4_1},
            {"sse4_2", F::SSE4_2}, {"popcnt", F::POPCNT}, {"aes", F::AES},
            {"pclmulqdq", F::PCLMULQDQ}, {"avx", F::AVX}, {"f16c", F::F16C}, {"fma", F::FMA},
            {"avx2", F::AVX2}, {"bmi1", F::BMI1}, {"bmi2", F::BMI2}, {"abm", F::LZCNT},
            {"movbe", F::MOVBE}, {"rdrand", F::RDRAND}, {"rdseed", F::RDSEED}, {"adx", F::ADX},
            {"sha_ni", F::SHA}, {"gfni", F::GFNI}, {"vaes", F::VAES}, {"vpclmulqdq", F::VPCLMULQDQ},
            {"avx_vnni", F::AVX_VNNI}, {"avx512f", F::AVX512F}, {"avx512dq", F::AVX512DQ},
            {"avx512ifma", F::AVX512_IFMA}, {"avx512cd", F::AVX512CD}, {"avx512bw", F::AVX512BW},
            {"avx512vl", F::AVX512VL}, {"avx512vbmi", F::AVX512_VBMI},
            {"avx512_vbmi2", F::AVX512_VBMI2}, {"avx512_vnni", F::AVX512_VNNI},
            {"avx512_bitalg", F::AVX512_BITALG}, {"avx512_vpopcntdq", F::AVX512_VPOPCNTDQ},
            {"avx512_bf16", F::AVX512_BF16}, {"avx512_fp16", F::AVX512_FP16},
            {"avx512_vp2intersect", F::AVX512_VP2INTERSECT}};
        F expected{};
        for (const auto &[name, feature] : names) {
            if (flags.contains(name))
                expected |= feature;
        }
        // The kernel no longer names RDSEED where the processor has it with an erratum.
        QCOMPARE(SCpuInfo::features() | F::RDSEED, expected | F::RDSEED);
        QCOMPARE(SCpuInfo::type(), flags.contains("lm") ? CpuType::X86_64 : CpuType::X86);
    }

    void topology()
    {
        QVERIFY(SCpuInfo::packages() >= 1);
        QVERIFY(SCpuInfo::cores() >= SCpuInfo::packages());
        QVERIFY(SCpuInfo::threads() >= 1);
        QVERIFY(SCpuInfo::threads() <= QThread::idealThreadCount());
        QVERIFY(SCpuInfo::type() != CpuType::Unknown);
    }
};

QTEST_APPLESS_MAIN(TestSCpuInfo)
#include "tst_scpuinfo.moc"
