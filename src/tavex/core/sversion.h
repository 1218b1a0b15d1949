#pragma once

#include <tavex/core/export.h>
#include <tavex/core/numbers.h>

#include <QMetaType>

#include <compare>
#include <concepts>

namespace Quorvex {

/// A version major.minor.patch, packed into one signed 32-bit integer: patch in bits 0 to 7, minor
/// in bits 8 to 15, major in bits 16 to 23.
///
/// The packed integer is the version's identity: comparison and arithmetic act on it, so carries
/// cross the borders of the components (1.2.255 and one more is 1.3.0) and integer order is version
/// order. Components are meant to be 0 to 255; nothing masks them, so a larger one spills into the
/// next. A negative integer is an invalid version, 0 is the null version. Overflow wraps around.
/// The text form is that of SConvert::toString() and SConvert::toVersion().
class SVersion
{
public:
    /// The null version, 0.0.0.
    constexpr SVersion() noexcept = default;
    /// Packs the three components, 0 to 255 each.
    constexpr SVersion(int major, int minor, int patch) noexcept
        : m_value(int((((uint(major) << 8) | uint(minor)) << 8) | uint(patch)))
    {
    }
    /// Takes a packed integer as it is. A real is none.
    /// @{
    constexpr SVersion(int value) noexcept
        : m_value(value)
    {
    }
    template <std::floating_point T>
    SVersion(T) = delete;
    constexpr SVersion &operator=(int value) noexcept
    {
        m_value = value;
        return *this;
    }
    template <std::floating_point T>
    SVersion &operator=(T) = delete;
    /// @}

    /// The packed integer.
    /// @{
    constexpr operator int() const noexcept { return m_value; }
    [[nodiscard]] constexpr int value() const noexcept { return m_value; }
    /// @}

    /// The component, 0 to 255.
    /// @{
    [[nodiscard]] constexpr int major() const noexcept { return (m_value >> 16) & 0xFF; }
    [[nodiscard]] constexpr int minor() const noexcept { return (m_value >> 8) & 0xFF; }
    [[nodiscard]] constexpr int patch() const noexcept { return m_value & 0xFF; }
    /// @}

    /// Replaces everything from bit 16 up, the mark of an invalid version included.
    constexpr void setMajor(int n) noexcept
    {
        m_value = int((uint(m_value) & 0xFFFF) | uint(n) << 16);
    }
    /// Replaces the minor component and clears bits 24 to 31.
    constexpr void setMinor(int n) noexcept
    {
        m_value = int((uint(m_value) & 0xFF00FF) | uint(n) << 8);
    }
    /// Replaces the patch component and clears bits 24 to 31.
    constexpr void setPatch(int n) noexcept { m_value = int((uint(m_value) & 0xFFFF00) | uint(n)); }

    /// The version that is \a n, which may be negative, further in that component. Carries cross
    /// the borders.
    /// @{
    [[nodiscard]] constexpr SVersion addMajor(int n) const noexcept { return plus(uint(n) << 16); }
    [[nodiscard]] constexpr SVersion addMinor(int n) const noexcept { return plus(uint(n) << 8); }
    [[nodiscard]] constexpr SVersion addPatch(int n) const noexcept { return plus(uint(n)); }
    /// @}

    /// One patch further.
    /// @{
    constexpr SVersion &operator++() noexcept { return *this = plus(1); }
    constexpr SVersion operator++(int) noexcept
    {
        const SVersion old = *this;
        ++*this;
        return old;
    }
    /// @}

    /// One patch back.
    /// @{
    constexpr SVersion &operator--() noexcept { return *this = plus(~0U); }
    constexpr SVersion operator--(int) noexcept
    {
        const SVersion old = *this;
        --*this;
        return old;
    }
    /// @}

    /// Adds the packed integers.
    friend constexpr SVersion operator+(SVersion a, SVersion b) noexcept
    {
        return a.plus(uint(b.m_value));
    }
    /// Subtracts the packed integers.
    friend constexpr SVersion operator-(SVersion a, SVersion b) noexcept
    {
        return a.plus(0U - uint(b.m_value));
    }

    // Beside a plain number the conversions in both directions would be equally good, so each
    // operator says what it means: sums take packed versions, comparisons compare the packed value.
    /// Adds or subtracts a packed version.
    /// @{
    template <SPromotesToInteger N>
    friend constexpr SVersion operator+(SVersion a, N b) noexcept
    {
        return a.plus(uint(b));
    }
    template <SPromotesToInteger N>
    friend constexpr SVersion operator+(N a, SVersion b) noexcept
    {
        return b.plus(uint(a));
    }
    template <SPromotesToInteger N>
    friend constexpr SVersion operator-(SVersion a, N b) noexcept
    {
        return a.plus(0U - uint(b));
    }
    template <SPromotesToInteger N>
    friend constexpr SVersion operator-(N a, SVersion b) noexcept
    {
        return SVersion(int(uint(a) - uint(b.m_value)));
    }
    /// @}

    /// Compares the packed integers; a number stands for a packed integer.
    /// @{
    friend constexpr bool operator==(const SVersion &, const SVersion &) noexcept = default;
    friend constexpr auto operator<=>(const SVersion &, const SVersion &) noexcept = default;
    template <typename N>
    requires SPromotesToInteger<N> || SNumber<N>
    friend constexpr bool operator==(const SVersion &version, N n) noexcept
    {
        return compareNumbers(version.m_value, +n) == 0;
    }
    template <typename N>
    requires SPromotesToInteger<N> || SNumber<N>
    friend constexpr auto operator<=>(const SVersion &version, N n) noexcept
    {
        return compareNumbers(version.m_value, +n);
    }
    /// @}

    /// Whether it is 0.0.0.
    [[nodiscard]] constexpr bool isNull() const noexcept { return m_value == 0; }
    /// Whether the packed integer is not negative. The null version is valid.
    [[nodiscard]] constexpr bool isValid() const noexcept { return m_value >= 0; }

    /// The version of the library that the program runs with.
    [[nodiscard]] TAVEX_EXPORT static SVersion currentVersion() noexcept;
    /// The version with the packed integer -1.
    [[nodiscard]] static constexpr SVersion invalidVersion() noexcept { return {-1}; }

private:
    [[nodiscard]] constexpr SVersion plus(uint n) const noexcept
    {
        return {int(uint(m_value) + n)};
    }

    int m_value = 0;
};

} // namespace Quorvex

Q_DECLARE_TYPEINFO(Quorvex::SVersion, Q_PRIMITIVE_TYPE);
