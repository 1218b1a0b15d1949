#pragma once

#include <tavex/core/snumber.h>
#include <tavex/enums/binaryunit.h>

#include <cmath>

namespace Quorvex {

/// Conversion between units, for every number type. All members may be called from any thread.
///
/// The arithmetic is done in `double`. An integer result is truncated towards zero, one that does
/// not fit its type becomes the nearest limit. Where both units are the same, the value is returned
/// untouched, so that it stays exact.
class SUnitConvert
{
    /// The conversion to one unit, which makes a function of its own of every unit.
    template <auto Target>
    struct To
    {
        template <SNumber T>
        [[nodiscard]] T operator()(T value, decltype(Target) from) const noexcept
        {
            return convert(value, from, Target);
        }
    };

    template <SNumber T, typename Unit>
    static T scale(T value, double base, Unit from, Unit to) noexcept
    {
        if (from == to)
            return value;
        const qint64 distance = qint64(to) - qint64(from);
        const auto number = static_cast<double>(value);
        return saturated<T>(distance > 0 ? number / std::pow(base, static_cast<double>(distance))
                                         : number * std::pow(base, static_cast<double>(-distance)));
    }

    template <SNumber T>
    static T convert(T value, BinaryUnit from, BinaryUnit to) noexcept
    {
        return scale(value, 2.0, from, to);
    }

public:
    /// \a value, given in \a from, in the unit \a to.
    template <SNumber T>
    [[nodiscard]] static T binaryUnits(T value, BinaryUnit from, BinaryUnit to) noexcept
    {
        return convert(value, from, to);
    }

    /// Each is called with a value and its unit: `toKiB(value, from)` is
    /// `binaryUnits(value, from, BinaryUnit::KiB)`.
    static constexpr To<BinaryUnit::Byte> toBytes{};
    static constexpr To<BinaryUnit::KiB> toKiB{};
    static constexpr To<BinaryUnit::MiB> toMiB{};
    static constexpr To<BinaryUnit::GiB> toGiB{};
    static constexpr To<BinaryUnit::TiB> toTiB{};
    static constexpr To<BinaryUnit::PiB> toPiB{};
    static constexpr To<BinaryUnit::EiB> toEiB{};
    static constexpr To<BinaryUnit::ZiB> toZiB{};
    static constexpr To<BinaryUnit::YiB> toYiB{};

    /// Brings \a value, given in \a unit, into the unit that reads best and returns that unit: the
    /// one in which the number is smallest and still greater than 1. (So 1024 bytes stay 1024
    /// bytes, and 1536 bytes become 1.5 KiB as a real but stay as an integer, which would be 1.)
    /// Values of 1 or less stay as they are.
    template <SNumber T>
    static BinaryUnit autoBinaryUnits(T &value, BinaryUnit unit) noexcept
    {
        T best = value;
        BinaryUnit bestUnit = unit;
        for (const SEnumKey<BinaryUnit> &row : BinaryUnit_T::rows) {
            const T candidate = convert(value, unit, row.value);
            if (candidate > T(1) && candidate < best) {
                best = candidate;
                bestUnit = row.value;
            }
        }
        value = best;
        return bestUnit;
    }
};

} // namespace Quorvex
