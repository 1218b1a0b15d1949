#include <tavex/system/scpuinfo.h>

#include <tavex/system/cpu_p.h>
#include <tavex/system/platform_p.h>

#include <QSysInfo>

#include <atomic>

namespace Quorvex {

/// Calls \a count once and returns its result from then on.
template <typename Count>
static int firstResult(std::atomic<int> *known, Count count)
{
    int result = known->load(std::memory_order_relaxed);
    if (result == 0) {
        const int found = count();
        if (known->compare_exchange_strong(result, found, std::memory_order_relaxed))
            result = found;
    }
    return result;
}

int Cpu::affinityAtLoad()
{
    static constinit std::atomic<int> count = 0;
    return firstResult(&count, &Platform::affinityProcessors);
}

QString SCpuInfo::vendor()
{
    return Cpu::vendor();
}

QString SCpuInfo::brand()
{
    return Cpu::brand();
}

CpuType SCpuInfo::type()
{
    struct Row
    {
        const char *architecture;
        CpuType type;
    };
    static constexpr Row rows[] = {{"i386", CpuType::X86}, {"x86_64", CpuType::X86_64},
        {"arm", CpuType::Arm}, {"arm64", CpuType::Arm64}, {"riscv32", CpuType::RiscV32},
        {"riscv64", CpuType::RiscV64}, {"power", CpuType::PowerPC}, {"power64", CpuType::PowerPC64},
        {"mips", CpuType::Mips}, {"mips64", CpuType::Mips64}, {"loongarch64", CpuType::LoongArch64},
        {"s390x", CpuType::S390X}, {"wasm", CpuType::WebAssembly}};
    const QString architecture = QSysInfo::currentCpuArchitecture();
    for (const Row &row : rows) {
        if (architecture == QLatin1String(row.architecture))
            return row.type;
    }
    return CpuType::Unknown;
}

CpuFeatureFlags SCpuInfo::features()
{
    return Cpu::features();
}

int SCpuInfo::packages()
{
    return Platform::processorTopology().packages;
}

int SCpuInfo::cores()
{
    return Platform::processorTopology().cores;
}

int SCpuInfo::threads()
{
    static constinit std::atomic<int> count = 0;
    return firstResult(&count, [] {
        const int affinity = Cpu::affinityAtLoad();
        const int quota = Platform::quotaProcessors();
        return quota > 0 ? qMin(affinity, quota) : affinity;
    });
}

} // namespace Quorvex
