#pragma once

#include <tavex/core/export.h>
#include <tavex/core/numbers.h>

#include <QHashFunctions>
#include <QMetaType>

#include <compare>
#include <concepts>

class QDataStream;
class QDebug;
class QVersionNumber;

namespace Quorvex {

/// What an SVersion is compared with: a number, or what the language takes for one.
template <typename T>
concept SComparesAsNumber = SPromotesToInteger<T> || SNumber<T>;

/// What would become a number that nobody means as a packed version.
template <typename T>
concept SNoPackedVersion = std::is_arithmetic_v<T> && !SInteger<T>;

/// A version major.minor.patch, packed into one signed 32-bit integer: patch in bits 0 to 7, minor
/// in bits 8 to 15, major in bits 16 to 23.
///
/// The packed integer is the version's identity: comparison and arithmetic act on it, so carries
/// cross the borders of the components (1.2.255 and one more is 1.3.0) and integer order is version
/// order. Components are meant to be 0 to 255; nothing masks them, so a larger one spills into the
/// next. A negative integer is an invalid version, 0 is the null version. Overflow wraps around.
/// The text form is that of SConvert::toString() and SConvert::toVersion(). A QVariant, and with it
/// QSettings, holds and saves it.
///
/// The class is its one integer and stays so: versions lie in arrays and streams as such.
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
    /// Takes a packed integer as it is. A real, a `bool` and a character are none.
    /// @{
    constexpr explicit SVersion(int value) noexcept
        : m_value(value)
    {
    }
    template <SNoPackedVersion T>
    SVersion(T) = delete;
    constexpr SVersion &operator=(int value) noexcept
    {
        m_value = value;
        return *this;
    }
    template <SNoPackedVersion T>
    SVersion &operator=(T) = delete;
    /// @}

    /// The first three segments of \a number; those that are missing are 0. invalidVersion() if one
    /// of the three is not 0 to 255.
    [[nodiscard]] TAVEX_EXPORT static SVersion fromVersionNumber(const QVersionNumber &number);
    /// The three components; a null QVersionNumber if the version is not valid.
    [[nodiscard]] TAVEX_EXPORT QVersionNumber toVersionNumber() const;

    /// The packed integer.
    /// @{
    constexpr operator int() const noexcept { return m_value; }
    [[nodiscard]] constexpr int value() const noexcept { return m_value; }
    /// @}

    /// The component, 0 to 255. A header of the GNU system, `sys/sysmacros.h`, makes macros of
    /// `major` and `minor`; the longer names are safe from it.
    /// @{
    [[nodiscard]] constexpr int majorVersion() const noexcept { return (m_value >> 16) & 0xFF; }
    [[nodiscard]] constexpr int minorVersion() const noexcept { return (m_value >> 8) & 0xFF; }
    [[nodiscard]] constexpr int patchVersion() const noexcept { return m_value & 0xFF; }
    [[nodiscard]] constexpr int major() const noexcept { return majorVersion(); }
    [[nodiscard]] constexpr int minor() const noexcept { return minorVersion(); }
    [[nodiscard]] constexpr int patch() const noexcept { return patchVersion(); }
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
    [[nodiscard]] friend constexpr SVersion operator+(SVersion a, SVersion b) noexcept
    {
        return a.plus(uint(b.m_value));
    }
    /// Subtracts the packed integers.
    [[nodiscard]] friend constexpr SVersion operator-(SVersion a, SVersion b) noexcept
    {
        return a.plus(0U - uint(b.m_value));
    }

    // Beside a plain number the conversions in both directions would be equally good, so each
    // operator says what it means: sums take packed versions, comparisons compare the packed value.
    /// Adds or subtracts a packed version.
    /// @{
    template <SPromotesToInteger N>
    [[nodiscard]] friend constexpr SVersion operator+(SVersion a, N b) noexcept
    {
        return a.plus(uint(b));
    }
    template <SPromotesToInteger N>
    [[nodiscard]] friend constexpr SVersion operator+(N a, SVersion b) noexcept
    {
        return b.plus(uint(a));
    }
    template <SPromotesToInteger N>
    [[nodiscard]] friend constexpr SVersion operator-(SVersion a, N b) noexcept
    {
        return a.plus(0U - uint(b));
    }
    template <SPromotesToInteger N>
    [[nodiscard]] friend constexpr SVersion operator-(N a, SVersion b) noexcept
    {
        return SVersion(int(uint(a) - uint(b.m_value)));
    }
    /// @}

    /// Compares the packed integers; a number stands for a packed integer.
    /// @{
    friend constexpr bool operator==(const SVersion &, const SVersion &) noexcept = default;
    friend constexpr auto operator<=>(const SVersion &, const SVersion &) noexcept = default;
    template <SComparesAsNumber N>
    friend constexpr bool operator==(const SVersion &version, N n) noexcept
    {
        return compareNumbers(version.m_value, +n) == 0;
    }
    template <SComparesAsNumber N>
    friend constexpr auto operator<=>(const SVersion &version, N n) noexcept
    {
        return compareNumbers(version.m_value, +n);
    }
    /// @}

    /// The hash of the packed integer.
    friend constexpr size_t qHash(const SVersion &version, size_t seed = 0) noexcept
    {
        return ::qHash(version.m_value, seed);
    }

    /// Writes `SVersion(2.0.12)`, or the packed integer where the components are not all of it.
    TAVEX_EXPORT friend QDebug operator<<(QDebug debug, const SVersion &version);
    /// Writes and reads the packed integer as a qint32.
    /// @{
    TAVEX_EXPORT friend QDataStream &operator<<(QDataStream &stream, const SVersion &version);
    TAVEX_EXPORT friend QDataStream &operator>>(QDataStream &stream, SVersion &version);
    /// @}

    /// Whether it is 0.0.0.
    [[nodiscard]] constexpr bool isNull() const noexcept { return m_value == 0; }
    /// Whether the packed integer is not negative. The null version is valid.
    [[nodiscard]] constexpr bool isValid() const noexcept { return m_value >= 0; }

    /// The version of the library that the program runs with.
    [[nodiscard]] TAVEX_EXPORT static SVersion currentVersion() noexcept;
    /// The version with the packed integer -1.
    [[nodiscard]] static constexpr SVersion invalidVersion() noexcept { return SVersion(-1); }

private:
    [[nodiscard]] constexpr SVersion plus(uint n) const noexcept
    {
        return SVersion(int(uint(m_value) + n));
    }

    int m_value = 0;
};

} // namespace Quorvex

Q_DECLARE_TYPEINFO(Quorvex::SVersion, Q_PRIMITIVE_TYPE);
QT_SPECIALIZE_STD_HASH_TO_CALL_QHASH_BY_VALUE(Quorvex::SVersion)
