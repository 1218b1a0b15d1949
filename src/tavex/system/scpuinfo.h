#pragma once

#include <tavex/core/export.h>
#include <tavex/enums/cpufeatureflags.h>
#include <tavex/enums/cputype.h>

#include <QString>

namespace Quorvex {

/// The machine's processors. All members may be called from any thread.
class TAVEX_EXPORT SCpuInfo
{
public:
    /// The maker as the processor names it, such as "GenuineIntel"; empty where it does not.
    [[nodiscard]] static QString vendor();

    /// The model as the processor names it; empty where it does not.
    [[nodiscard]] static QString brand();

    /// The machine's instruction set family, also where the program is built for an older one.
    [[nodiscard]] static CpuType type();

    /// The instruction set extensions that a program can use: the processor has them, and the
    /// operating system saves their registers.
    [[nodiscard]] static CpuFeatureFlags features();

    /// The number of processor packages, at least 1.
    [[nodiscard]] static int packages();

    /// The number of cores in all packages together, at least 1.
    [[nodiscard]] static int cores();

    /// The number of logical processors that this process may use, at least 1: those in its
    /// affinity mask and, under Linux, no more than the quota of its control groups, rounded up.
    /// Always the same: the mask is that of the library's load, the quota that of the first call.
    [[nodiscard]] static int threads();
};

} // namespace Quorvex
