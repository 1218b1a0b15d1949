// Arm under Linux, which hands the feature bits to every process:
// Documentation/arch/arm64/elf_hwcaps.rst.

#include <tavex/system/cpu_p.h>

#include <QByteArray>
#include <QFile>

#include <sys/auxv.h>

namespace Quorvex::Cpu {
namespace {

/// The value of the first line of that name in /proc/cpuinfo.
QByteArray infoLine(const char *name)
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    for (const QByteArray &line : file.readAll().split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon >= 0 && line.left(colon).trimmed() == name)
            return line.mid(colon + 1).trimmed();
    }
    return {};
}

struct Row
{
    CpuFeatureFlags feature;
    unsigned long type;
    int bit;
};

// The bits differ between the two instruction sets. They are numbers because older headers lack the
// names of newer features.
#ifdef __aarch64__
constexpr Row rows[] = {
    {CpuFeatureFlags::Arm_NEON, AT_HWCAP, 1},
    {CpuFeatureFlags::Arm_AES, AT_HWCAP, 3},
    {CpuFeatureFlags::Arm_PMULL, AT_HWCAP, 4},
    {CpuFeatureFlags::Arm_SHA1, AT_HWCAP, 5},
    {CpuFeatureFlags::Arm_SHA2, AT_HWCAP, 6},
    {CpuFeatureFlags::Arm_CRC32, AT_HWCAP, 7},
    {CpuFeatureFlags::Arm_LSE, AT_HWCAP, 8},
    {CpuFeatureFlags::Arm_FP16, AT_HWCAP, 10},
    {CpuFeatureFlags::Arm_SHA3, AT_HWCAP, 17},
    {CpuFeatureFlags::Arm_DotProd, AT_HWCAP, 20},
    {CpuFeatureFlags::Arm_SHA512, AT_HWCAP, 21},
    {CpuFeatureFlags::Arm_SVE, AT_HWCAP, 22},
    {CpuFeatureFlags::Arm_SVE2, AT_HWCAP2, 1},
};
#else
constexpr Row rows[] = {
    {CpuFeatureFlags::Arm_NEON, AT_HWCAP, 12},
    {CpuFeatureFlags::Arm_FP16, AT_HWCAP, 23},
    {CpuFeatureFlags::Arm_DotProd, AT_HWCAP, 24},
    {CpuFeatureFlags::Arm_AES, AT_HWCAP2, 0},
    {CpuFeatureFlags::Arm_PMULL, AT_HWCAP2, 1},
    {CpuFeatureFlags::Arm_SHA1, AT_HWCAP2, 2},
    {CpuFeatureFlags::Arm_SHA2, AT_HWCAP2, 3},
    {CpuFeatureFlags::Arm_CRC32, AT_HWCAP2, 4},
};
#endif

} // namespace

QString vendor()
{
    struct Maker
    {
        int code;
        const char *name;
    };
    // Main ID Register, field Implementer.
    static constexpr Maker makers[] = {{0x41, "ARM"}, {0x42, "Broadcom"}, {0x43, "Cavium"},
        {0x46, "Fujitsu"}, {0x48, "HiSilicon"}, {0x4E, "NVIDIA"}, {0x50, "APM"}, {0x51, "Qualcomm"},
        {0x53, "Samsung"}, {0x56, "Marvell"}, {0x61, "Apple"}, {0x69, "Intel"}, {0x6D, "Microsoft"},
        {0xC0, "Ampere"}};
    const int code = infoLine("CPU implementer").toInt(nullptr, 16);
    for (const Maker &maker : makers) {
        if (maker.code == code)
            return QString::fromLatin1(maker.name);
    }
    return {};
}

QString brand()
{
    return QString::fromUtf8(infoLine("model name"));
}

CpuFeatureFlags features()
{
    CpuFeatureFlags features{};
    for (const Row &row : rows) {
        if ((getauxval(row.type) >> row.bit & 1) != 0)
            features |= row.feature;
    }
    return features;
}

} // namespace Quorvex::Cpu
