#include <tavex/numeric/srandom_p.h>
#include <tavex/system/scpuinfo.h>

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
    const __m128i upper = _mm_set1_epi64x(static_cast<qint64>(0xFFFFFFFF00000000));
    const __m128i modulus = _mm_set1_epi32(Modulus);
    const __m128i even = _mm_mul_epu32(v, factors);
    const __m128i odd = _mm_mul_epu32(_mm_srli_epi64(v, 32), factors);
    const __m128i high = _mm_or_si128(_mm_srli_epi64(even, 32), _mm_and_si128(odd, upper));
    const __m128i low =
        _mm_srli_epi32(_mm_or_si128(_mm_andnot_si128(upper, even), _mm_slli_epi64(odd, 32)), 1);
    const __m128i sum = _mm_sub_epi32(_mm_add_epi32(high, low), modulus);
    return _mm_add_epi32(sum, _mm_and_si128(_mm_srai_epi32(sum, 31), modulus));
}

qsizetype fill128(quint32 &state, char *out, qsizetype count) noexcept
{
    constexpr int Lanes = 4;
    constexpr int Block = 4 * Lanes; // Four multiplications at a time keep the processor busy.
    const auto lanes = firstLanes<Lanes>(state);
    const __m128i next = _mm_set1_epi32(factor(Lanes));
    __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i *>(lanes.data()));
    __m128i b = times(a, next);
    __m128i c = times(b, next);
    __m128i d = times(c, next);
    const __m128i jump = _mm_set1_epi32(factor(Block));
    const bool stream = isStreamed(out, count);
    const qsizetype blocks = count / Block;
    for (qsizetype i = 0; i < blocks; ++i) {
        auto *const to = reinterpret_cast<__m128i *>(out);
        if (stream) {
            _mm_stream_si128(to, a);
            _mm_stream_si128(to + 1, b);
            _mm_stream_si128(to + 2, c);
            _mm_stream_si128(to + 3, d);
        } else {
            _mm_storeu_si128(to, a);
            _mm_storeu_si128(to + 1, b);
            _mm_storeu_si128(to + 2, c);
            _mm_storeu_si128(to + 3, d);
        }
        a = times(a, jump);
        b = times(b, jump);
        c = times(c, jump);
        d = times(d, jump);
        out += sizeof(quint32) * Block;
    }
    if (stream)
        _mm_sfence();
    if (blocks > 0)
        std::memcpy(&state, out - sizeof state, sizeof state);
    return blocks * Block;
}

TAVEX_TARGET_256 inline __m256i times(__m256i v, __m256i factors) noexcept
{
    const __m256i even = _mm256_mul_epu32(v, factors);
    const __m256i odd = _mm256_mul_epu32(_mm256_srli_epi64(v, 32), factors);
    const __m256i high = _mm256_blend_epi32(_mm256_srli_epi64(even, 32), odd, 0xAA);
    const __m256i low =
        _mm256_srli_epi32(_mm256_blend_epi32(even, _mm256_slli_epi64(odd, 32), 0xAA), 1);
    const __m256i sum = _mm256_add_epi32(high, low);
    return _mm256_min_epu32(sum, _mm256_sub_epi32(sum, _mm256_set1_epi32(Modulus)));
}

TAVEX_TARGET_256 qsizetype fill256(quint32 &state, char *out, qsizetype count) noexcept
{
    constexpr int Lanes = 8;
    constexpr int Block = 4 * Lanes; // Four multiplications at a time keep the processor busy.
    const auto lanes = firstLanes<Lanes>(state);
    const __m256i next = _mm256_set1_epi32(factor(Lanes));
    __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i *>(lanes.data()));
    __m256i b = times(a, next);
    __m256i c = times(b, next);
    __m256i d = times(c, next);
    const __m256i jump = _mm256_set1_epi32(factor(Block));
    const bool stream = isStreamed(out, count);
    const qsizetype blocks = count / Block;
    for (qsizetype i = 0; i < blocks; ++i) {
        auto *const to = reinterpret_cast<__m256i *>(out);
        if (stream) {
            _mm256_stream_si256(to, a);
            _mm256_stream_si256(to + 1, b);
            _mm256_stream_si256(to + 2, c);
            _mm256_stream_si256(to + 3, d);
        } else {
            _mm256_storeu_si256(to, a);
            _mm256_storeu_si256(to + 1, b);
            _mm256_storeu_si256(to + 2, c);
            _mm256_storeu_si256(to + 3, d);
        }
        a = times(a, jump);
        b = times(b, jump);
        c = times(c, jump);
        d = times(d, jump);
        out += sizeof(quint32) * Block;
    }
    if (stream)
        _mm_sfence();
    _mm256_zeroupper(); // Or SSE code that runs after this would be slow.
    if (blocks > 0)
        std::memcpy(&state, out - sizeof state, sizeof state);
    return blocks * Block;
}

} // namespace

std::span<const Fill> fills() noexcept
{
    static constexpr std::array<Fill, 2> all{&fill256, &fill128};
    const bool wide = (SCpuInfo::features() & CpuFeatureFlags::AVX2) == CpuFeatureFlags::AVX2;
    return std::span(all).subspan(wide ? 0 : 1);
}

} // namespace Quorvex::RandomLanes
