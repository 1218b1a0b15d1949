#pragma once

#include <tavex/system/scpuinfo.h>

namespace Quorvex::Simd {

/// Whether the compiler can be trusted with vectors of more than 128 bits. GCC for Windows puts
/// them on a stack that is aligned to 16 bytes only, and reads them as if they were aligned (its
/// bug 54412).
#if defined(__MINGW32__) && !defined(__clang__)
constexpr bool HasWideVectors = false;
#else
constexpr bool HasWideVectors = true;
#endif

/// Whether the processor has all of \a wanted.
inline bool has(CpuFeatureFlags wanted)
{
    static const CpuFeatureFlags features = SCpuInfo::features();
    return (features & wanted) == wanted;
}

} // namespace Quorvex::Simd
