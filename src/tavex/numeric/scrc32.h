#pragma once

#include <tavex/core/export.h>
#include <tavex/core/numbers.h>

#include <QByteArray>
#include <QByteArrayView>
#include <QHashFunctions>
#include <QString>
#include <QtEndian>

#include <array>
#include <concepts>
#include <utility>

class QDataStream;
class QDebug;
class QIODevice;

namespace Quorvex {

/// What SCrc32 takes as a number: an SNumber or a `char`.
template <typename T>
concept SCharOrNumber = SNumber<T> || std::same_as<T, char>;

/// A CRC-32 calculator for any generator polynomial, fed in pieces or, with hash(), in one call.
///
/// Every polynomial is worked with its most significant bit first, also those that are mostly used
/// in reflected form. The register starts as 0xFFFFFFFF, and what it holds at the end is the
/// result, without a final XOR. With the default polynomial this is CRC-32/MPEG-2: "123456789"
/// gives 0x0376E6E7.
///
/// Data of some length is folded by carry-less multiplication where the processor has it; else
/// tables do the work. The object holds the tables for its polynomial (8 KiB, slicing-by-8:
/// Kounavis and Berry, "A Systematic Approach to Building High Performance Software-Based CRC
/// Generators", 2005), so keep one rather than making many of an uncommon polynomial. The tables of
/// DefaultPolynomial, 0x82608EDB and 0xEDB88320 are ready; others are computed. An object is used
/// by one thread at a time; the static members may be called from any thread.
///
/// Arguments: data that is null feeds nothing. Positions and lengths are counted in bytes and cut
/// to the array's size; `from` and `to` stand for the bytes from `from` up to but not including
/// `to`. A number is fed as the bytes of its type, the lowest first on every machine; a real as its
/// IEEE 754 bits. Text is fed as UTF-8. A bare pointer without a length is refused, and so is a
/// number in place of data, as 0 would be a null pointer.
///
/// The layout stays as it is: the tables, the polynomial and the register, without a pointer, so
/// that a copy is one of memory and a short piece of data takes no call.
class TAVEX_EXPORT SCrc32
{
public:
    /// The generator polynomial of IEEE 802.3, most significant bit first.
    static constexpr uint DefaultPolynomial = 0x04C11DB7;

    /// A calculator for \a polynomial, whose most significant bit comes first and whose term of the
    /// 32nd power is left out.
    explicit SCrc32(uint polynomial = DefaultPolynomial) noexcept;

    /// The value that the register starts with.
    [[nodiscard]] static constexpr uint initValue() noexcept { return 0xFFFFFFFF; }

    /// The generator polynomial.
    [[nodiscard]] uint polynomial() const noexcept { return m_polynomial; }
    /// The register: the result for everything that was fed.
    /// @{
    [[nodiscard]] uint value() const noexcept { return m_value; }
    operator uint() const noexcept { return m_value; }
    /// @}

    /// Starts afresh with the same polynomial.
    void clear() noexcept { m_value = initValue(); }

    /// Goes on from the given register or, without one, from value(), stores the new register and
    /// returns it.
    /// @{
    uint update(uint crc, const char *data, quint64 length) noexcept
    {
        // Inline, so that a number costs no more than its look-ups.
        return m_value = length < ShortestFold && data ? slice(m_tables, crc, data, length)
                                                       : advance(crc, data, length);
    }
    uint update(const char *data, quint64 length) noexcept { return update(m_value, data, length); }
    uint update(uint crc, const QByteArray &data, quint64 from, quint64 to) noexcept
    {
        return update(crc, section(data, from, to));
    }
    uint update(uint crc, const QByteArray &data, quint64 length) noexcept
    {
        return update(crc, section(data, 0, length));
    }
    uint update(const QByteArray &data) noexcept { return update(m_value, QByteArrayView(data)); }
    uint update(const QByteArray &data, quint64 length) noexcept
    {
        return update(m_value, data, length);
    }
    uint update(const QString &text) { return update(text.toUtf8()); }
    template <SCharOrNumber T>
    uint update(const T &number) noexcept
    {
        std::array<char, sizeof(T)> bytes;
        qToLittleEndian(number, bytes.data());
        return update(bytes.data(), sizeof(T));
    }
    uint update(const char *) = delete;
    template <std::convertible_to<quint64> A, std::convertible_to<quint64>... More>
    uint update(A, std::convertible_to<quint64> auto, More...) = delete;
    /// @}

    /// Starts afresh, stores the new register and returns it.
    /// @{
    uint calculate(const char *data, quint64 length) noexcept
    {
        return update(initValue(), data, length);
    }
    uint calculate(const QByteArray &data, quint64 from, quint64 to) noexcept
    {
        return update(initValue(), data, from, to);
    }
    uint calculate(const QByteArray &data, quint64 length) noexcept
    {
        return update(initValue(), data, length);
    }
    uint calculate(const QByteArray &data) noexcept
    {
        return update(initValue(), QByteArrayView(data));
    }
    uint calculate(const QString &text)
    {
        clear();
        return update(text);
    }
    template <SCharOrNumber T>
    uint calculate(const T &number) noexcept
    {
        clear();
        return update(number);
    }
    uint calculate(const char *) = delete;
    template <std::convertible_to<quint64> A, std::convertible_to<quint64>... More>
    uint calculate(A, std::convertible_to<quint64> auto, More...) = delete;
    /// @}

    /// The result for the data alone.
    /// @{
    [[nodiscard]] static uint hash(
        const QByteArray &data, uint polynomial = DefaultPolynomial) noexcept;
    [[nodiscard]] static uint hash(const QByteArray &data, quint64 from, quint64 to,
        uint polynomial = DefaultPolynomial) noexcept;
    [[nodiscard]] static uint hash(const QString &text, uint polynomial = DefaultPolynomial);
    [[nodiscard]] static uint hash(const char *, uint polynomial = DefaultPolynomial) = delete;
    template <std::convertible_to<quint64>... N>
    [[nodiscard]] static uint hash(N...) = delete;
    /// @}

    /// Reads \a device from where it stands to its end, in chunks of 65,536 bytes, waiting for data
    /// where the device can. The device is neither opened nor rewound. \a ok may be null; it
    /// becomes false if the device is null or not open for reading, or if reading fails. The result
    /// is then the register so far. A sequential device cannot tell its end from a failure, which
    /// counts as its end.
    /// @{
    [[nodiscard]] static uint hash(
        QIODevice *device, bool *ok, uint polynomial = DefaultPolynomial);
    [[nodiscard]] static uint hash(QIODevice *device, uint polynomial = DefaultPolynomial);
    /// @}

    /// Compares value and polynomial.
    friend bool operator==(const SCrc32 &a, const SCrc32 &b) noexcept
    {
        return a.m_value == b.m_value && a.m_polynomial == b.m_polynomial;
    }
    /// Compares the value. A negative number of at most 32 bits stands for its bit pattern.
    template <SInteger N>
    friend bool operator==(const SCrc32 &crc, N n) noexcept
    {
        if constexpr (sizeof(N) <= sizeof(uint))
            return crc.m_value == static_cast<uint>(n);
        else
            return std::cmp_equal(crc.m_value, n);
    }

    /// The hash of value and polynomial.
    friend size_t qHash(const SCrc32 &crc, size_t seed = 0) noexcept
    {
        return qHashMulti(seed, crc.m_value, crc.m_polynomial);
    }

    /// Writes value and polynomial: `SCrc32(0x376e6e7, polynomial 0x4c11db7)`.
    TAVEX_EXPORT friend QDebug operator<<(QDebug debug, const SCrc32 &crc);
    /// Writes and reads polynomial and value, so that what reads can go on from there. Where
    /// reading fails, \a crc stays as it is.
    /// @{
    TAVEX_EXPORT friend QDataStream &operator<<(QDataStream &stream, const SCrc32 &crc);
    TAVEX_EXPORT friend QDataStream &operator>>(QDataStream &stream, SCrc32 &crc);
    /// @}

private:
    using Tables = std::array<std::array<uint, 256>, 8>;
    class Engine;
    class OneShot;

    /// From so many bytes on the processor's multiplication may be the quicker way.
    static constexpr quint64 ShortestFold = 16;

    static uint slice(const Tables &t, uint crc, const char *data, quint64 length) noexcept
    {
        for (; length >= 8; length -= 8, data += 8) {
            const uint a = crc ^ qFromBigEndian<uint>(data);
            const uint b = qFromBigEndian<uint>(data + 4);
            crc = t[7][a >> 24] ^ t[6][a >> 16 & 0xFF] ^ t[5][a >> 8 & 0xFF] ^ t[4][a & 0xFF]
                ^ t[3][b >> 24] ^ t[2][b >> 16 & 0xFF] ^ t[1][b >> 8 & 0xFF] ^ t[0][b & 0xFF];
        }
        if (length >= 4) {
            const uint a = crc ^ qFromBigEndian<uint>(data);
            crc = t[3][a >> 24] ^ t[2][a >> 16 & 0xFF] ^ t[1][a >> 8 & 0xFF] ^ t[0][a & 0xFF];
            length -= 4;
            data += 4;
        }
        for (; length > 0; --length, ++data)
            crc = crc << 8 ^ t[0][crc >> 24 ^ static_cast<uchar>(*data)];
        return crc;
    }

    [[nodiscard]] uint advance(uint crc, const char *data, quint64 length) const noexcept;

    uint update(uint crc, QByteArrayView data) noexcept
    {
        return update(crc, data.data(), quint64(data.size()));
    }
    static QByteArrayView section(const QByteArray &data, quint64 from, quint64 to) noexcept;

    Tables m_tables;
    uint m_polynomial;
    uint m_value = initValue();
};

} // namespace Quorvex

QT_SPECIALIZE_STD_HASH_TO_CALL_QHASH_BY_CREF(Quorvex::SCrc32)
