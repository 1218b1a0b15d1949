// What stands in for the vector code where there is none: neither ways to fold nor lanes.

#include <tavex/numeric/scrc32_p.h>
#include <tavex/numeric/srandom_p.h>

namespace Quorvex {

std::span<const Crc32::Fold> Crc32::folds() noexcept
{
    return {};
}

Crc32::FoldConstants Crc32::computeFoldConstants(uint polynomial) noexcept
{
    return foldConstants<SlowMultiply>(polynomial);
}

std::span<const RandomLanes::Fill> RandomLanes::fills() noexcept
{
    return {};
}

} // namespace Quorvex
