#pragma once

// Not used here, but moc of Qt 6.4 cannot parse <concepts> unless it has seen a header of Qt's.
#include <QtGlobal>

#include <compare>
#include <concepts>
#include <limits>
#include <type_traits>
#include <utility>

namespace Quorvex {

/// One of the \a Types.
template <typename T, typename... Types>
concept SOneOf = (std::same_as<T, Types> || ...);

/// An integer that counts: every integral type but `bool` and the character types. `signed char`
/// and `unsigned char` are the 8-bit integers.
template <typename T>
concept SInteger = std::integral<T> && !SOneOf<T, bool, char, wchar_t, char8_t, char16_t, char32_t>;

/// What the language turns into an SInteger by itself: one, a `bool`, a character, or an enumerator
/// of an enumeration without scope.
template <typename T>
concept SPromotesToInteger = std::is_scalar_v<T> && SInteger<decltype(+std::declval<T>())>;

/// A number: an SInteger, `float` or `double`.
template <typename T>
concept SNumber = SInteger<T> || SOneOf<T, float, double>;

/// \a value as T. An integer type takes it truncated towards zero; what does not fit becomes the
/// nearest limit and NaN becomes 0. `float` takes it rounded, and infinite where it is too large.
template <SNumber T>
[[nodiscard]] constexpr T saturated(double value) noexcept
{
    if constexpr (std::floating_point<T>) {
        return static_cast<T>(value);
    } else {
        using Limits = std::numeric_limits<T>;
        // One past the largest value: a power of two, which a double holds exactly for every width.
        constexpr double end = 2.0 * static_cast<double>(quint64(1) << (Limits::digits - 1));
        if (value != value)
            return 0;
        if (value >= end)
            return (Limits::max)();
        if (value <= static_cast<double>((Limits::min)()))
            return (Limits::min)();
        return static_cast<T>(value);
    }
}

/// Compares two numbers by their values, whatever their signedness and width.
template <SInteger A, SNumber B>
[[nodiscard]] constexpr auto compareNumbers(A a, B b) noexcept
{
    if constexpr (std::floating_point<B>) {
        return static_cast<double>(a) <=> static_cast<double>(b);
    } else if constexpr (std::is_signed_v<A> == std::is_signed_v<B>) {
        return a <=> b;
    } else if constexpr (std::is_signed_v<A>) {
        return a < 0 ? std::strong_ordering::less : std::make_unsigned_t<A>(a) <=> b;
    } else {
        return b < 0 ? std::strong_ordering::greater : a <=> std::make_unsigned_t<B>(b);
    }
}

} // namespace Quorvex
