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

public:
    /// \a value, given in \a from, in the unit \a to.
    template <SNumber T>
    [[nodiscard]] static T binaryUnits(T value, BinaryUnit from, BinaryUnit to) noexcept
    {
        return convert(value, from, to);
    }

    /// Each is called with a value and its unit: `toKiB(value, from)` is
    /// `binaryUnits(value, from, BinaryUnit::KiB)`.
    /// @{
    static constexpr To<BinaryUnit::Byte> toBytes{};
    static constexpr To<BinaryUnit::KiB> toKiB{};
    static constexpr To<BinaryUnit::MiB> toMiB{};
    static constexpr To<BinaryUnit::GiB> toGiB{};
    static constexpr To<BinaryUnit::TiB> toTiB{};
    static constexpr To<BinaryUnit::PiB> toPiB{};
    static constexpr To<BinaryUnit::EiB> toEiB{};
    static constexpr To<BinaryUnit::ZiB> toZiB{};
    static constexpr To<BinaryUnit::YiB> toYiB{};
    /// @}

    /// Brings \a value, given in \a unit, into the unit that reads best and returns that unit: the
    /// one in which the number is smallest and still greater than 1. (So 1024 bytes stay 1024
    /// bytes, and 1536 bytes become 1.5 KiB as a real but stay as an integer, which would be 1.)
    /// Values of 1 or less stay as they are.
    template <SNumber T>
    static BinaryUnit autoBinaryUnits(T &value, BinaryUnit unit) noexcept
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

    /// Each is called with a value and its prefix: `toKilo(value, from)` is
    /// `siPrefixes(value, from, SIPrefix::Kilo)`.
    /// @{
    static constexpr To<SIPrefix::Yocto> toYocto{};
    static constexpr To<SIPrefix::Zepto> toZepto{};
    static constexpr To<SIPrefix::Atto> toAtto{};
    static constexpr To<SIPrefix::Femto> toFemto{};
    static constexpr To<SIPrefix::Pico> toPico{};
    static constexpr To<SIPrefix::Nano> toNano{};
    static constexpr To<SIPrefix::Micro> toMicro{};
    static constexpr To<SIPrefix::Milli> toMilli{};
    static constexpr To<SIPrefix::Centi> toCenti{};
    static constexpr To<SIPrefix::Deci> toDeci{};
    static constexpr To<SIPrefix::Base> toBaseUnit{};
    static constexpr To<SIPrefix::Deca> toDeca{};
    static constexpr To<SIPrefix::Hecto> toHecto{};
    static constexpr To<SIPrefix::Kilo> toKilo{};
    static constexpr To<SIPrefix::Mega> toMega{};
    static constexpr To<SIPrefix::Giga> toGiga{};
    static constexpr To<SIPrefix::Tera> toTera{};
    static constexpr To<SIPrefix::Peta> toPeta{};
    static constexpr To<SIPrefix::Exa> toExa{};
    static constexpr To<SIPrefix::Zetta> toZetta{};
    static constexpr To<SIPrefix::Yotta> toYotta{};
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

    /// Each is called with a value and its unit: `toMiles(value, from)` is
    /// `scsLengthUnits(value, from, SCSLengthUnit::Mile)`.
    /// @{
    static constexpr To<SCSLengthUnit::Inch> toInches{};
    static constexpr To<SCSLengthUnit::Foot> toFoots{};
    static constexpr To<SCSLengthUnit::Yard> toYards{};
    static constexpr To<SCSLengthUnit::Rod> toRods{};
    static constexpr To<SCSLengthUnit::Furlong> toFurlongs{};
    static constexpr To<SCSLengthUnit::Mile> toMiles{};
    /// @}

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
