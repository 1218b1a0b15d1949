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
        state = static_cast<quint32>(Multiplier * quint64(state) % Modulus);
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

inline __m128i times(__m128i v, __m128i factors) noexcept
{
    const __m128i modulus = _mm_set1_epi32(Modulus);
    const auto even = _mm_castsi128_ps(_mm_mul_epu32(v, factors));
    const auto odd = _mm_castsi128_ps(_mm_mul_epu32(_mm_srli_epi64(v, 32), factors));
    const __m128i high = _mm_castps_si128(_mm_shuffle_ps(even, odd, _MM_SHUFFLE(3, 1, 3, 1)));
    const __m128i low =
        _mm_srli_epi32(_mm_castps_si128(_mm_shuffle_ps(even, odd, _MM_SHUFFLE(2, 0, 2, 0))), 1);
    const __m128i rest = _mm_sub_epi32(_mm_add_epi32(high, low), modulus);
    const __m128i result = _mm_add_epi32(rest, _mm_and_si128(_mm_srai_epi32(rest, 31), modulus));
    return _mm_shuffle_epi32(result, _MM_SHUFFLE(3, 1, 2, 0)); // The even ones came first.
}

inline void put(__m128i &v, __m128i jump, char *out, bool stream) noexcept
{
    auto *const to = reinterpret_cast<__m128i *>(out);
    stream ? _mm_stream_si128(to, v) : _mm_storeu_si128(to, v);
    v = times(v, jump);
}

qsizetype fill128(quint32 &state, char *out, qsizetype count) noexcept
{
    constexpr int Lanes = 4;
    constexpr int Block = 8 * Lanes; // Eight multiplications at a time keep the processor busy.
    if (count < Block)
        return 0;
    const auto lanes = firstLanes<Lanes>(state);
    const __m128i next = _mm_set1_epi32(factor(Lanes));
    __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i *>(lanes.data()));
    __m128i b = times(a, next);
    __m128i c = times(b, next);
    __m128i d = times(c, next);
    __m128i e = times(d, next);
    __m128i f = times(e, next);
    __m128i g = times(f, next);
    __m128i h = times(g, next);
    const __m128i jump = _mm_set1_epi32(factor(Block));
    const bool stream = isStreamed(out, count);
    const qsizetype blocks = count / Block;
    for (qsizetype i = 0; i < blocks; ++i) {
        put(a, jump, out + 0 * sizeof a, stream);
        put(b, jump, out + 1 * sizeof a, stream);
        put(c, jump, out + 2 * sizeof a, stream);
        put(d, jump, out + 3 * sizeof a, stream);
        put(e, jump, out + 4 * sizeof a, stream);
        put(f, jump, out + 5 * sizeof a, stream);
        put(g, jump, out + 6 * sizeof a, stream);
        put(h, jump, out + 7 * sizeof a, stream);
        out += sizeof(quint32) * Block;
    }
    if (stream)
        _mm_sfence();
    std::memcpy(&state, out - sizeof state, sizeof state);
    return blocks * Block;
}

TAVEX_TARGET_256 inline __m256i times(__m256i v, __m256i factors) noexcept
{
    const __m256i modulus = _mm256_set1_epi32(Modulus);
    const auto even = _mm256_castsi256_ps(_mm256_mul_epu32(v, factors));
    const auto odd = _mm256_castsi256_ps(_mm256_mul_epu32(_mm256_srli_epi64(v, 32), factors));
    const __m256i high = _mm256_castps_si256(_mm256_shuffle_ps(even, odd, _MM_SHUFFLE(3, 1, 3, 1)));
    const __m256i low = _mm256_srli_epi32(
        _mm256_castps_si256(_mm256_shuffle_ps(even, odd, _MM_SHUFFLE(2, 0, 2, 0))), 1);
    const __m256i sum = _mm256_add_epi32(high, low);
    const __m256i result = _mm256_min_epu32(sum, _mm256_sub_epi32(sum, modulus));
    return _mm256_shuffle_epi32(result, _MM_SHUFFLE(3, 1, 2, 0)); // The even ones came first.
}

TAVEX_TARGET_256 inline void put(__m256i &v, __m256i jump, char *out, bool stream) noexcept
{
    auto *const to = reinterpret_cast<__m256i *>(out);
    stream ? _mm256_stream_si256(to, v) : _mm256_storeu_si256(to, v);
    v = times(v, jump);
}

TAVEX_TARGET_256 qsizetype fill256(quint32 &state, char *out, qsizetype count) noexcept
{
    constexpr int Lanes = 8;
    constexpr int Block = 8 * Lanes; // Eight multiplications at a time keep the processor busy.
    if (count < Block)
        return 0;
    const auto lanes = firstLanes<Lanes>(state);
    const __m256i next = _mm256_set1_epi32(factor(Lanes));
    __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i *>(lanes.data()));
    __m256i b = times(a, next);
    __m256i c = times(b, next);
    __m256i d = times(c, next);
    __m256i e = times(d, next);
    __m256i f = times(e, next);
    __m256i g = times(f, next);
    __m256i h = times(g, next);
    const __m256i jump = _mm256_set1_epi32(factor(Block));
    const bool stream = isStreamed(out, count);
    const qsizetype blocks = count / Block;
    for (qsizetype i = 0; i < blocks; ++i) {
        put(a, jump, out + 0 * sizeof a, stream);
        put(b, jump, out + 1 * sizeof a, stream);
        put(c, jump, out + 2 * sizeof a, stream);
        put(d, jump, out + 3 * sizeof a, stream);
        put(e, jump, out + 4 * sizeof a, stream);
        put(f, jump, out + 5 * sizeof a, stream);
        put(g, jump, out + 6 * sizeof a, stream);
        put(h, jump, out + 7 * sizeof a, stream);
        out += sizeof(quint32) * Block;
    }
    if (stream)
        _mm_sfence();
    _mm256_zeroupper(); // Or SSE code that runs after this would be slow.
    std::memcpy(&state, out - sizeof state, sizeof state);
    return blocks * Block;
}

} // namespace

std::span<const Fill> fills() noexcept
{
    static constexpr std::array<Fill, 2> all{&fill256, &fill128};
    const bool wide = Simd::HasWideVectors && Simd::has(CpuFeatureFlags::AVX2);
    return std::span(all).subspan(wide ? 0 : 1);
}

} // namespace Quorvex::RandomLanes
