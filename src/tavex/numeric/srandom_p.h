#pragma once

#include <tavex/numeric/srandom.h>

#include <span>

/// \file
/// Random numbers in lanes: each lane of a vector jumps ahead by the number of all lanes, which is
/// one multiplication by a power of the generator's multiplier, and so they give the one sequence.

namespace Quorvex::RandomLanes {

/// The \a exponent-th power of the multiplier.
constexpr quint32 multiplierPower(int exponent) noexcept
{
    quint64 power = 1;
    for (; exponent > 0; --exponent)
        power = power * SRandom::Multiplier % SRandom::Modulus;
    return static_cast<quint32>(power);
}

/// Large fills go past the caches, which have no room for them anyway. That takes an aligned place.
constexpr qsizetype StreamedCount = (qsizetype(8) << 20) / qsizetype(sizeof(quint32));
constexpr std::size_t StreamedAlignment = 32;
inline bool isStreamed(const char *out, qsizetype count) noexcept
{
    return count >= StreamedCount && reinterpret_cast<quintptr>(out) % StreamedAlignment == 0;
}

/// Writes numbers that follow \a state to \a out, 32 bits each with the lowest first: as many of
/// \a count as fill whole blocks of lanes. The last one becomes the state, which must not be
/// divisible by the modulus. Returns how many were written.
using Fill = qsizetype (*)(quint32 &state, char *out, qsizetype count) noexcept;

/// The ways to fill that this processor has, the fastest first.
[[nodiscard]] std::span<const Fill> fills() noexcept;

} // namespace Quorvex::RandomLanes
