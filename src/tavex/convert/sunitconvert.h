#pragma once

#include <tavex/core/numbers.h>
#include <tavex/enums/binaryunit.h>
#include <tavex/enums/scslengthunit.h>
#include <tavex/enums/silengthunit.h>
#include <tavex/enums/siprefix.h>

#include <algorithm>
#include <cmath>

namespace Quorvex {

/// Conversion between units, for every number type. All members may be called from any thread.
///
/// The arithmetic is done in `double`, unless a function says otherwise. An integer result is
/// truncated towards zero, one that does not fit its type becomes the nearest limit. Where both
/// units are the same, the value is returned untouched, so that it stays exact.
class SUnitConvert
{
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

    template <SNumber T>
    static T convert(T value, SIPrefix from, SIPrefix to) noexcept
    {
        return scale(value, 10.0, from, to);
    }

    template <SNumber T>
    static T convert(T value, SCSLengthUnit from, SCSLengthUnit to) noexcept
    {
        if (from == to)
            return value;
        if constexpr (std::floating_point<T>) {
            return static_cast<T>(
                static_cast<double>(value) * static_cast<double>(from) / static_cast<double>(to));
        } else {
            using Wide = decltype(+value);
            using Bits = std::make_unsigned_t<Wide>;
            if (static_cast<qint32>(to) <= 0)
                return 0;
            const auto product =
                static_cast<Wide>(static_cast<Bits>(value) * static_cast<Bits>(from));
            return static_cast<T>(std::clamp<Wide>(product / static_cast<Wide>(to),
                (std::numeric_limits<T>::min)(), (std::numeric_limits<T>::max)()));
        }
    }

    /// What one inch has by definition, the only link between the two systems of lengths.
    static constexpr double CentimetersPerInch = 2.54;

// Every unit has a function of its own.
#define TAVEX_TO_UNIT(Name, Enum, Unit)                                                            \
    template <SNumber T>                                                                           \
    [[nodiscard]] static T Name(T value, Enum from) noexcept                                       \
    {                                                                                              \
        return convert(value, from, Enum::Unit);                                                   \
    }

public:
    /// \a value, given in \a from, in the unit \a to.
    template <SNumber T>
    [[nodiscard]] static T binaryUnits(T value, BinaryUnit from, BinaryUnit to) noexcept
    {
        return convert(value, from, to);
    }

    /// \a value, given in \a from, in the unit of the name: `toKiB(value, from)` is
    /// `binaryUnits(value, from, BinaryUnit::KiB)`.
    /// @{
    TAVEX_TO_UNIT(toBytes, BinaryUnit, Byte)
    TAVEX_TO_UNIT(toKiB, BinaryUnit, KiB)
    TAVEX_TO_UNIT(toMiB, BinaryUnit, MiB)
    TAVEX_TO_UNIT(toGiB, BinaryUnit, GiB)
    TAVEX_TO_UNIT(toTiB, BinaryUnit, TiB)
    TAVEX_TO_UNIT(toPiB, BinaryUnit, PiB)
    TAVEX_TO_UNIT(toEiB, BinaryUnit, EiB)
    TAVEX_TO_UNIT(toZiB, BinaryUnit, ZiB)
    TAVEX_TO_UNIT(toYiB, BinaryUnit, YiB)
    /// @}

    /// Brings \a value, given in \a unit, into the unit that reads best and returns that unit: the
    /// one in which the number is smallest and still greater than 1. (So 1024 bytes stay 1024
    /// bytes, and 1536 bytes become 1.5 KiB as a real but stay as an integer, which would be 1.)
    /// Values of 1 or less stay as they are.
    template <SNumber T>
    [[nodiscard]] static BinaryUnit autoBinaryUnits(T &value, BinaryUnit unit) noexcept
    {
        T best = value;
        BinaryUnit bestUnit = unit;
        for (const SEnumKey<BinaryUnit> &row : BinaryUnit_T::rows()) {
            const T candidate = convert(value, unit, row.value);
            if (candidate > T(1) && candidate < best) {
                best = candidate;
                bestUnit = row.value;
            }
        }
        value = best;
        return bestUnit;
    }

    /// \a value, given with the prefix \a from, with the prefix \a to.
    template <SNumber T>
    [[nodiscard]] static T siPrefixes(T value, SIPrefix from, SIPrefix to) noexcept
    {
        return convert(value, from, to);
    }

    /// \a value, given with the prefix \a from, with the prefix of the name: `toKilo(value, from)`
    /// is `siPrefixes(value, from, SIPrefix::Kilo)`.
    /// @{
    TAVEX_TO_UNIT(toYocto, SIPrefix, Yocto)
    TAVEX_TO_UNIT(toZepto, SIPrefix, Zepto)
    TAVEX_TO_UNIT(toAtto, SIPrefix, Atto)
    TAVEX_TO_UNIT(toFemto, SIPrefix, Femto)
    TAVEX_TO_UNIT(toPico, SIPrefix, Pico)
    TAVEX_TO_UNIT(toNano, SIPrefix, Nano)
    TAVEX_TO_UNIT(toMicro, SIPrefix, Micro)
    TAVEX_TO_UNIT(toMilli, SIPrefix, Milli)
    TAVEX_TO_UNIT(toCenti, SIPrefix, Centi)
    TAVEX_TO_UNIT(toDeci, SIPrefix, Deci)
    TAVEX_TO_UNIT(toBaseUnit, SIPrefix, Base)
    TAVEX_TO_UNIT(toDeca, SIPrefix, Deca)
    TAVEX_TO_UNIT(toHecto, SIPrefix, Hecto)
    TAVEX_TO_UNIT(toKilo, SIPrefix, Kilo)
    TAVEX_TO_UNIT(toMega, SIPrefix, Mega)
    TAVEX_TO_UNIT(toGiga, SIPrefix, Giga)
    TAVEX_TO_UNIT(toTera, SIPrefix, Tera)
    TAVEX_TO_UNIT(toPeta, SIPrefix, Peta)
    TAVEX_TO_UNIT(toExa, SIPrefix, Exa)
    TAVEX_TO_UNIT(toZetta, SIPrefix, Zetta)
    TAVEX_TO_UNIT(toYotta, SIPrefix, Yotta)
    /// @}

    /// \a value, given in \a from, in the unit \a to. Integers are multiplied and then divided as
    /// integers, in the type that \a value has after integer promotion: the product wraps round
    /// where it does not fit. A number that is no unit and not positive gives 0 as \a to of an
    /// integer.
    template <SNumber T>
    [[nodiscard]] static T scsLengthUnits(T value, SCSLengthUnit from, SCSLengthUnit to) noexcept
    {
        return convert(value, from, to);
    }

    /// \a value, given in \a from, in the unit of the name: `toMiles(value, from)` is
    /// `scsLengthUnits(value, from, SCSLengthUnit::Mile)`.
    /// @{
    TAVEX_TO_UNIT(toInches, SCSLengthUnit, Inch)
    TAVEX_TO_UNIT(toFoots, SCSLengthUnit, Foot)
    TAVEX_TO_UNIT(toYards, SCSLengthUnit, Yard)
    TAVEX_TO_UNIT(toRods, SCSLengthUnit, Rod)
    TAVEX_TO_UNIT(toFurlongs, SCSLengthUnit, Furlong)
    TAVEX_TO_UNIT(toMiles, SCSLengthUnit, Mile)
    /// @}
#undef TAVEX_TO_UNIT

    /// \a value, given in the SI unit \a from, in the customary unit \a to. It is brought to
    /// centimetres, then to inches, then to \a to; integers are truncated after each of the three
    /// steps, so that 1 metre is 3 feet: 100 centimetres, 39 inches.
    template <SNumber T>
    [[nodiscard]] static T toSCSLength(T value, SILengthUnit from, SCSLengthUnit to) noexcept
    {
        using Step = std::conditional_t<std::floating_point<T>, double, T>;
        const auto centimeters = scale<Step>(value, 10.0, from, SILengthUnit::CentiMeter);
        const auto inches = saturated<Step>(static_cast<double>(centimeters) / CentimetersPerInch);
        return static_cast<T>(convert(inches, SCSLengthUnit::Inch, to));
    }

    /// \a value, given in the customary unit \a from, in the SI unit \a to. Only the result is
    /// truncated: 1 inch is 25 millimetres as an integer.
    template <SNumber T>
    [[nodiscard]] static T toSILength(T value, SCSLengthUnit from, SILengthUnit to) noexcept
    {
        const double inches = static_cast<double>(value) * static_cast<double>(from);
        return saturated<T>(scale(inches * CentimetersPerInch, 10.0, SILengthUnit::CentiMeter, to));
    }
};

} // namespace Quorvex
