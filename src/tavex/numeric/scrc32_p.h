#pragma once

#include <QtGlobal>

#include <array>
#include <span>

/// \file
/// Checksums by carry-less multiplication (Gopal and others, "Fast CRC Computation for Generic
/// Polynomials Using PCLMULQDQ Instruction", 2009). The data is a polynomial over GF(2), whose
/// remainder modulo P is sought. 128 bits of it are replaced by something that stands n bits
/// further on and has the same remainder: the two halves, times x^(n + 64) and x^n modulo P.

namespace Quorvex::Crc32 {

/// Factors for the halves of 128 bits.
struct alignas(16) Factors
{
    quint64 low;
    quint64 high;
};

/// What folding takes from a polynomial P.
struct FoldConstants
{
    std::array<Factors, 5> fold; ///< To go on by 128, 256, 512, 1024 and 2048 bits.
    /// Bring each 128 of the last 512 bits to the end of the data and 32 bits beyond it.
    std::array<Factors, 4> last;
    Factors barrett; ///< P and the quotient of x^96 by P, both without their first terms.
};

/// The constants of x^32 + \a polynomial. Multiply is constructed from the Barrett factors and
/// multiplies modulo P. It is inlined because the caller may use more instructions.
template <typename Multiply>
[[gnu::always_inline]] constexpr FoldConstants foldConstants(uint polynomial) noexcept
{
    // Divides x^96, two bits in a step.
    const uint topBit = polynomial >> 31;
    const uint x33 = polynomial << 1 ^ (polynomial & (0 - topBit));
    quint64 quotient = 0;
    uint power = polynomial;
    uint x64 = 0;
    for (int step = 0; step < 32; ++step) {
        if (step == 16)
            x64 = power;
        const uint high = power >> 31;
        const uint low = power >> 30 & 1;
        quotient = quotient << 2 | high << 1 | (low ^ (high & topBit));
        power = power << 2 ^ (x33 & (0 - high)) ^ (polynomial & (0 - low));
    }
    FoldConstants constants{};
    constants.barrett = {polynomial, quotient};
    const Multiply multiply(constants.barrett);
    const uint x96 = power;
    power = x64;
    for (Factors &factors : constants.fold) {
        power = multiply(power, power);
        factors = {power, multiply(power, x64)};
    }
    const auto x128 = static_cast<uint>(constants.fold[0].low);
    const auto x256 = static_cast<uint>(constants.fold[1].low);
    const auto last = [&](uint x) { return Factors{multiply(x, polynomial), multiply(x, x96)}; };
    constants.last = {last(multiply(x256, x128)), last(x256), last(x128), {polynomial, x96}};
    return constants;
}

/// Multiplies bit by bit: for the compiler.
class SlowMultiply
{
public:
    constexpr explicit SlowMultiply(const Factors &barrett) noexcept
        : m_polynomial(static_cast<uint>(barrett.low))
    {
    }
    constexpr uint operator()(uint a, uint b) const noexcept
    {
        uint product = 0;
        for (int bit = 31; bit >= 0; --bit) {
            product = product << 1 ^ (m_polynomial & (0 - (product >> 31)));
            product ^= a & (0 - (b >> bit & 1));
        }
        return product;
    }

private:
    uint m_polynomial;
};

/// A way to go on from the register \a crc with \a length bytes, at least ShortestFold.
using Fold = uint (*)(
    const FoldConstants &constants, uint crc, const uchar *data, std::size_t length) noexcept;
constexpr std::size_t ShortestFold = 16;

/// The ways to fold that this processor has, the fastest first.
[[nodiscard]] std::span<const Fold> folds() noexcept;

/// The constants of \a polynomial, computed by the processor's own multiplication. To be called
/// only where there are folds.
[[nodiscard]] FoldConstants computeFoldConstants(uint polynomial) noexcept;

} // namespace Quorvex::Crc32
