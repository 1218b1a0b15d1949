#pragma once

#include <type_traits>

namespace Quorvex {

/// Whether the enumeration \a E is a set of flags. Specialise it as true to give an enumeration the
/// bit operators below, before anything else asks:
///
///     enum class Style : quint32;
///     template <>
///     inline constexpr bool Quorvex::isFlags<Style> = true;
///
/// An enumeration outside Quorvex also needs `using namespace Quorvex`.
template <typename E>
inline constexpr bool isFlags = false;

/// An enumeration that is a set of flags.
template <typename E>
concept SFlags = std::is_enum_v<E> && isFlags<E>;

/// The operator on the bits.
/// @{
template <SFlags E>
[[nodiscard]] constexpr E operator|(E a, E b) noexcept
{
    using U = std::underlying_type_t<E>;
    return static_cast<E>(static_cast<U>(a) | static_cast<U>(b));
}

template <SFlags E>
[[nodiscard]] constexpr E operator&(E a, E b) noexcept
{
    using U = std::underlying_type_t<E>;
    return static_cast<E>(static_cast<U>(a) & static_cast<U>(b));
}

template <SFlags E>
[[nodiscard]] constexpr E operator^(E a, E b) noexcept
{
    using U = std::underlying_type_t<E>;
    return static_cast<E>(static_cast<U>(a) ^ static_cast<U>(b));
}

template <SFlags E>
[[nodiscard]] constexpr E operator~(E a) noexcept
{
    return static_cast<E>(~static_cast<std::underlying_type_t<E>>(a));
}

template <SFlags E>
constexpr E &operator|=(E &a, E b) noexcept
{
    return a = a | b;
}

template <SFlags E>
constexpr E &operator&=(E &a, E b) noexcept
{
    return a = a & b;
}

template <SFlags E>
constexpr E &operator^=(E &a, E b) noexcept
{
    return a = a ^ b;
}
/// @}

/// Whether \a set has at least one of the bits of \a flags.
template <SFlags E>
[[nodiscard]] constexpr bool testAnyFlag(E set, E flags) noexcept
{
    return (set & flags) != E{};
}

} // namespace Quorvex
