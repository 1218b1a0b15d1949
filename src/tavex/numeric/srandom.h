#pragma once

#include <tavex/core/export.h>
#include <tavex/numeric/sarray.h>

#include <QByteArray>
#include <QList>

#include <concepts>

namespace Quorvex {

/// A small pseudo-random generator for reproducible numbers: equal seeds give equal sequences on
/// every machine. It is the minimal standard generator (Park and Miller, "Random Number Generators:
/// Good Ones Are Hard to Find", 1988), the same as `std::minstd_rand0`, which multiplies by 16807
/// modulo 2^31 - 1. Not for cryptography. An object is used by one thread at a time; the static
/// members may be called from any thread.
///
/// It is a uniform random bit generator: `std::shuffle` and the standard library's distributions
/// take it. Their results differ between standard libraries; those of the members here do not.
///
/// The class is its one word of state and stays so: a step is a few instructions in place.
class TAVEX_EXPORT SRandom
{
public:
    /// What the call operator returns.
    using result_type = uint;

    /// What the generator multiplies the state by, modulo Modulus.
    static constexpr quint64 Multiplier = 16807;
    /// Every number is less than 2^31 - 1.
    static constexpr uint Modulus = 0x7FFFFFFF;

    /// Starts at \a seed as it is. Where the state is 0, which the generator could not leave, it
    /// goes on as from 123459876.
    explicit SRandom(uint seed) noexcept
        : m_state(seed)
    {
    }
    /// Starts afresh at \a seed.
    void seed(uint seed) noexcept { m_state = seed; }

    /// A fixed seed for programs that want the same numbers at every run.
    [[nodiscard]] static constexpr uint legacySeed() noexcept { return 0x5A5A5A5A; }

    /// A seed that depends on all bytes of \a data. Null or empty data gives one from the clock; a
    /// number is no data.
    /// @{
    [[nodiscard]] static uint defaultSeed(const char *data, quint64 length) noexcept;
    [[nodiscard]] static uint defaultSeed(const QByteArray &data) noexcept
    {
        return defaultSeed(data.constData(), quint64(data.size()));
    }
    template <std::convertible_to<quint64>... N>
    [[nodiscard]] static uint defaultSeed(N...) = delete;
    /// @}

    /// The next number, from 0 to 2^31 - 2. (0 comes only from a seed that 2^31 - 1 divides.)
    int next() noexcept
    {
        // The remainder without a division: 2^31 counts as 1 modulo 2^31 - 1, so the bits from 31
        // on are added to those below.
        const quint64 product = Multiplier * (m_state != 0 ? m_state : InPlaceOfZero);
        const auto sum = static_cast<uint>((product & Modulus) + (product >> 31));
        m_state = sum >= Modulus ? sum - Modulus : sum;
        return static_cast<int>(m_state);
    }

    /// The next number that is not 0, from min() to max().
    /// @{
    result_type operator()() noexcept
    {
        const int number = next();
        return static_cast<uint>(number != 0 ? number : next());
    }
    [[nodiscard]] static constexpr result_type min() noexcept { return 1; }
    [[nodiscard]] static constexpr result_type max() noexcept { return Modulus - 1; }
    /// @}

    /// A number from \a lowest, or 0, to below \a highest, each as likely as the others. If there
    /// is none between them, it is \a lowest, and the state stays.
    /// @{
    int bounded(int highest) noexcept { return bounded(0, highest); }
    int bounded(int lowest, int highest) noexcept;
    double bounded(double highest) noexcept { return highest > 0 ? nextDouble() * highest : 0; }
    /// @}

    /// next() divided by 2^31 - 1: at least 0 and below 1.
    double nextDouble() noexcept { return next() / double(Modulus); }

    /// The remainder of nextDouble() by \a max - \a min, added to \a min: in a range that is wider
    /// than 1, numbers from \a min to below \a min + 1 only. Of an empty range it is \a min, and
    /// the state stays.
    double nextDouble(double min, double max) noexcept;

    /// Gives every element the next number, in the order of the indices: next(), or nextDouble()
    /// for reals.
    /// @{
    void fill(QList<int> &list) { fill(list.data(), list.size()); }
    void fill(SArray<int> &array) noexcept { fill(array.data(), array.size()); }
    void fill(QList<double> &list) { fill(list.data(), list.size()); }
    void fill(SArray<double> &array) noexcept { fill(array.data(), array.size()); }
    /// @}

    /// Writes \a size bytes: four of every number that follows \a seed, the lowest first. (A number
    /// has 31 bits, so every fourth byte is below 128.) Nothing is written if \a data is null or
    /// \a size is not positive.
    static void fillData(char *data, qint64 size, uint seed) noexcept;
    /// Overwrites all bytes of \a bytes in this way.
    static void fillByteArray(QByteArray &bytes, uint seed)
    {
        fillData(bytes.data(), bytes.size(), seed);
    }

    /// Compares the states.
    friend bool operator==(const SRandom &, const SRandom &) noexcept = default;

private:
    static constexpr uint InPlaceOfZero = 123459876;

    /// Writes \a count numbers, 32 bits each with the lowest first.
    void fillWords(char *out, qsizetype count) noexcept;
    void fill(int *numbers, qsizetype count) noexcept;
    void fill(double *numbers, qsizetype count) noexcept;

    uint m_state;
};

} // namespace Quorvex
