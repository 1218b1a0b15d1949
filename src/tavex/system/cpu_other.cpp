// For architectures whose processors a program cannot ask.

#include <tavex/system/cpu_p.h>

namespace Quorvex::Cpu {

QString vendor()
{
    return {};
}

QString brand()
{
    return {};
}

CpuFeatureFlags features()
{
    return CpuFeatureFlags::None;
}

} // namespace Quorvex::Cpu
