#include <tavex/numeric/simd_p.h>
#include <tavex/numeric/srandom_p.h>

#include <array>
#include <cstring>

#include <immintrin.h>

#define TAVEX_TARGET_256 [[gnu::target("avx2")]]

namespace Quorvex::RandomLanes {
namespace {

/// The first lanes: \a Count numbers that follow \a state.
template <std::size_t Count>
std::array<quint32, Count> firstLanes(quint32 state) noexcept
{
    std::array<quint32, Count> lanes;
    for (quint32 &lane : lanes) {
        state = static_cast<quint32>(SRandom::Multiplier * state % SRandom::Modulus);
        lane = state;
    }
    return lanes;
}

/// The factor that moves lanes on by \a exponent numbers. It is doubled: then the upper 32 bits of
/// a product are the bits from 31 on, which are to be added to the 31 below.
constexpr int factor(int exponent) noexcept
{
    return static_cast<int>(2 * multiplierPower(exponent));
}

/// Four lanes. Vectors are handed over by reference, since fill() is compiled for every processor
/// and cannot hand over wider ones in registers.
struct Lanes128
{
    using Vector = __m128i;
    static constexpr int Count = 4;
    static constexpr int Block = 8 * Count; ///< So many at a time keep the processor busy.

    static void load(Vector &v, const quint32 *from) noexcept
    {
        v = _mm_loadu_si128(reinterpret_cast<const Vector *>(from));
    }

    static void put(Vector &v, char *out, bool stream) noexcept
    {
        auto *const to = reinterpret_cast<Vector *>(out);
        stream ? _mm_stream_si128(to, v) : _mm_storeu_si128(to, v);
        multiply(v, v, factor(Block));
    }

    static void multiply(Vector &product, const Vector &v, int factor) noexcept
    {
        const Vector factors = _mm_set1_epi32(factor);
        const Vector modulus = _mm_set1_epi32(SRandom::Modulus);
        const auto even = _mm_castsi128_ps(_mm_mul_epu32(v, factors));
        const auto odd = _mm_castsi128_ps(_mm_mul_epu32(_mm_srli_epi64(v, 32), factors));
        const Vector high = _mm_castps_si128(_mm_shuffle_ps(even, odd, _MM_SHUFFLE(3, 1, 3, 1)));
        const Vector low =
            _mm_srli_epi32(_mm_castps_si128(_mm_shuffle_ps(even, odd, _MM_SHUFFLE(2, 0, 2, 0))), 1);
        const Vector rest = _mm_sub_epi32(_mm_add_epi32(high, low), modulus);
        const Vector result = _mm_add_epi32(rest, _mm_and_si128(_mm_srai_epi32(rest, 31), modulus));
        product = _mm_shuffle_epi32(result, _MM_SHUFFLE(3, 1, 2, 0)); // The even ones came first.
    }
};

/// Eight lanes.
struct Lanes256
{
    using Vector = __m256i;
    static constexpr int Count = 8;
    static constexpr int Block = 8 * Count;

    TAVEX_TARGET_256 static void load(Vector &v, const quint32 *from) noexcept
    {
        v = _mm256_loadu_si256(reinterpret_cast<const Vector *>(from));
    }

    TAVEX_TARGET_256 static void put(Vector &v, char *out, bool stream) noexcept
    {
        auto *const to = reinterpret_cast<Vector *>(out);
        stream ? _mm256_stream_si256(to, v) : _mm256_storeu_si256(to, v);
        multiply(v, v, factor(Block));
    }

    TAVEX_TARGET_256 static void multiply(Vector &product, const Vector &v, int factor) noexcept
    {
        const Vector factors = _mm256_set1_epi32(factor);
        const Vector modulus = _mm256_set1_epi32(SRandom::Modulus);
        const auto even = _mm256_castsi256_ps(_mm256_mul_epu32(v, factors));
        const auto odd = _mm256_castsi256_ps(_mm256_mul_epu32(_mm256_srli_epi64(v, 32), factors));
        const Vector high =
            _mm256_castps_si256(_mm256_shuffle_ps(even, odd, _MM_SHUFFLE(3, 1, 3, 1)));
        const Vector low = _mm256_srli_epi32(
            _mm256_castps_si256(_mm256_shuffle_ps(even, odd, _MM_SHUFFLE(2, 0, 2, 0))), 1);
        const Vector sum = _mm256_add_epi32(high, low);
        const Vector result = _mm256_min_epu32(sum, _mm256_sub_epi32(sum, modulus));
        product =
            _mm256_shuffle_epi32(result, _MM_SHUFFLE(3, 1, 2, 0)); // The even ones came first.
    }
};

/// Writes as many of the \a count numbers that follow \a state as fill whole blocks; the result
/// tells how many. To be inlined into a function that is compiled for what \a Lanes needs.
template <typename Lanes>
[[gnu::always_inline]] inline qsizetype fill(quint32 &state, char *out, qsizetype count) noexcept
{
    using Vector = typename Lanes::Vector;
    if (count < Lanes::Block)
        return 0;
    constexpr int Vectors = Lanes::Block / Lanes::Count;
    Vector v[Vectors];
    Lanes::load(v[0], firstLanes<Lanes::Count>(state).data());
    for (int i = 1; i < Vectors; ++i)
        Lanes::multiply(v[i], v[i - 1], factor(Lanes::Count));
    const bool stream = isStreamed(out, count);
    const qsizetype blocks = count / Lanes::Block;
    for (qsizetype i = 0; i < blocks; ++i) {
#pragma GCC unroll 8
        for (int j = 0; j < Vectors; ++j)
            Lanes::put(v[j], out + std::size_t(j) * sizeof v[j], stream);
        out += sizeof v;
    }
    if (stream)
        _mm_sfence();
    std::memcpy(&state, out - sizeof state, sizeof state);
    return blocks * Lanes::Block;
}

qsizetype fill128(quint32 &state, char *out, qsizetype count) noexcept
{
    return fill<Lanes128>(state, out, count);
}

TAVEX_TARGET_256 qsizetype fill256(quint32 &state, char *out, qsizetype count) noexcept
{
    const qsizetype filled = fill<Lanes256>(state, out, count);
    _mm256_zeroupper(); // Or SSE code that runs after this would be slow.
    return filled;
}

} // namespace

std::span<const Fill> fills() noexcept
{
    static constexpr std::array<Fill, 2> all{&fill256, &fill128};
    const bool wide = Simd::HasWideVectors && Simd::has(CpuFeatureFlags::AVX2);
    return std::span(all).subspan(wide ? 0 : 1);
}

} // namespace Quorvex::RandomLanes
