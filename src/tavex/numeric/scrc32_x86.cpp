#include <tavex/numeric/scrc32_p.h>
#include <tavex/numeric/simd_p.h>

#include <QtEndian>

#include <immintrin.h>

// What a function may use is said at each of them, because the rest of the library has to run on
// every processor. A compiler inlines such functions only into those that may use at least as much.
#define TAVEX_TARGET_128 [[gnu::target("pclmul,sse4.1")]]
#define TAVEX_TARGET_512                                                                           \
    [[gnu::target("avx512f,avx512dq,avx512bw,avx512vl,avx512vbmi,vpclmulqdq,pclmul")]]

namespace Quorvex::Crc32 {
namespace {

// The first byte of the data is the most significant one: within 128 bits the order is turned
// round.

TAVEX_TARGET_128 inline __m128i byteOrder() noexcept
{
    return _mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
}

TAVEX_TARGET_128 inline __m128i bytes(const uchar *data) noexcept
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i *>(data));
}

TAVEX_TARGET_128 inline __m128i load(const uchar *data) noexcept
{
    return _mm_shuffle_epi8(bytes(data), byteOrder());
}

TAVEX_TARGET_128 inline __m128i load(const Factors &factors) noexcept
{
    return _mm_load_si128(reinterpret_cast<const __m128i *>(&factors));
}

TAVEX_TARGET_128 inline __m128i fold(__m128i v, __m128i factors, __m128i next) noexcept
{
    return _mm_xor_si128(next,
        _mm_xor_si128(
            _mm_clmulepi64_si128(v, factors, 0x00), _mm_clmulepi64_si128(v, factors, 0x11)));
}

/// The remainder of the 96 bits \a v, by the quotient (Barrett). It is exact: nothing is carried,
/// so what is cut off has no part in the quotient. The first term of the inverse is added apart,
/// and that of the divisor has no part in the remainder.
TAVEX_TARGET_128 inline uint reduce96(__m128i v, __m128i barrett) noexcept
{
    const __m128i top = _mm_srli_si128(v, 4);
    const __m128i quotient =
        _mm_xor_si128(top, _mm_srli_si128(_mm_clmulepi64_si128(top, barrett, 0x10), 8));
    return static_cast<uint>(
        _mm_cvtsi128_si32(_mm_xor_si128(v, _mm_clmulepi64_si128(quotient, barrett, 0x00))));
}

/// Goes on from \a v with \a length bytes, which at least 16 others precede.
[[gnu::always_inline]] TAVEX_TARGET_128 inline uint finish(
    const FoldConstants &constants, __m128i v, const uchar *data, std::size_t length) noexcept
{
    const __m128i by128 = load(constants.fold[0]);
    for (; length >= 16; length -= 16, data += 16)
        v = fold(v, by128, load(data));
    if (length > 0) {
        // v moves up by the remaining bytes, which come in at its end; what leaves it at its top is
        // folded.
        static constexpr auto moves = [] {
            std::array<uchar, 48> table{};
            for (std::size_t i = 0; i < table.size(); ++i)
                table[i] = static_cast<uchar>(i >= 16 && i < 32 ? i - 16 : 0x80);
            return table;
        }();
        const auto *const middle = moves.data() + 16;
        const __m128i up = bytes(middle - length);
        const __m128i top = _mm_shuffle_epi8(v, bytes(middle + 16 - length));
        v = fold(
            top, by128, _mm_blendv_epi8(_mm_shuffle_epi8(v, up), load(data + length - 16), up));
    }
    // The lower half stays as it is, 32 bits further up.
    return reduce96(_mm_xor_si128(_mm_clmulepi64_si128(v, load(constants.last[3]), 0x11),
                        _mm_slli_si128(_mm_move_epi64(v), 4)),
        load(constants.barrett));
}

TAVEX_TARGET_128 uint fold128(
    const FoldConstants &constants, uint crc, const uchar *data, std::size_t length) noexcept
{
    const uchar *const end = data + length;
    __m128i a = _mm_xor_si128(load(data), _mm_set_epi32(static_cast<int>(crc), 0, 0, 0));
    data += 16;
    if (length >= 64) {
        __m128i b = load(data);
        __m128i c = load(data + 16);
        __m128i d = load(data + 32);
        const __m128i by512 = load(constants.fold[2]);
        for (data += 48; end - data >= 64; data += 64) {
            a = fold(a, by512, load(data));
            b = fold(b, by512, load(data + 16));
            c = fold(c, by512, load(data + 32));
            d = fold(d, by512, load(data + 48));
        }
        const __m128i by256 = load(constants.fold[1]);
        c = fold(a, by256, c);
        d = fold(b, by256, d);
        a = fold(c, load(constants.fold[0]), d);
    }
    return finish(constants, a, data, static_cast<std::size_t>(end - data));
}

// Where an intrinsic without a mask exists, GCC 12 warns of a variable in its own header.
constexpr int All = 0xFF;

TAVEX_TARGET_512 inline __m512i broadcast(__m128i v) noexcept
{
    return _mm512_maskz_broadcast_i64x2(All, v);
}

/// The bytes of \a value, and zeros.
TAVEX_TARGET_512 inline __m512i toVector(uint value) noexcept
{
    return _mm512_zextsi128_si512(_mm_cvtsi32_si128(static_cast<int>(value)));
}

TAVEX_TARGET_512 inline __m512i inOrder(__m512i raw) noexcept
{
    return _mm512_shuffle_epi8(raw, broadcast(byteOrder()));
}

TAVEX_TARGET_512 inline __m512i load512(const uchar *data) noexcept
{
    return inOrder(_mm512_loadu_si512(data));
}

TAVEX_TARGET_512 inline __m512i load512(const Factors &factors) noexcept
{
    return broadcast(load(factors));
}

TAVEX_TARGET_512 inline __m512i fold(__m512i v, __m512i factors, __m512i next) noexcept
{
    constexpr int XorAll = 0x96;
    return _mm512_ternarylogic_epi64(_mm512_clmulepi64_epi128(v, factors, 0x00),
        _mm512_clmulepi64_epi128(v, factors, 0x11), next, XorAll);
}

TAVEX_TARGET_512 uint fold512(
    const FoldConstants &constants, uint crc, const uchar *data, std::size_t length) noexcept
{
    // The end of a page may be that of the memory. Masked bytes are not read, but it takes long
    // then.
    constexpr std::size_t WorthWide = 40;
    constexpr quintptr PageSize = 4096;
    if (length < WorthWide
        || (length < 64 && reinterpret_cast<quintptr>(data) % PageSize > PageSize - 64))
        return fold128(constants, crc, data, length);

    // The first block gets the bytes that are too many for whole blocks, behind zeros, which do not
    // count. The register goes on top of the first four bytes.
    const std::size_t first = (length - 1) % 64 + 1;
    const uint start = qToBigEndian(crc);
    __m512i a = toVector(start)
        ^ (length >= 64 ? _mm512_loadu_si512(data)
                        : _mm512_maskz_loadu_epi8(~quint64(0) >> (64 - length), data));
    if (first != 64) {
        // By a permutation: with the expand instruction one call had to wait for the one before.
        static constexpr auto indices = [] {
            std::array<uchar, 128> table{};
            for (std::size_t k = 0; k < 64; ++k)
                table[64 + k] = static_cast<uchar>(k);
            return table;
        }();
        a = _mm512_maskz_permutexvar_epi8(
            ~quint64(0) << (64 - first), _mm512_loadu_si512(indices.data() + first), a);
    }
    a = inOrder(a);
    const uchar *const end = data + length;
    data += first;
    const __m512i by512 = load512(constants.fold[2]);
    if (first < 4 && data != end) {
        a = fold(a, by512, inOrder(_mm512_loadu_si512(data) ^ toVector(start >> 8 * first)));
        data += 64;
    }
    if (end - data >= 192) {
        __m512i b = load512(data);
        __m512i c = load512(data + 64);
        __m512i d = load512(data + 128);
        const __m512i by2048 = load512(constants.fold[4]);
        for (data += 192; end - data >= 256; data += 256) {
            a = fold(a, by2048, load512(data));
            b = fold(b, by2048, load512(data + 64));
            c = fold(c, by2048, load512(data + 128));
            d = fold(d, by2048, load512(data + 192));
        }
        const __m512i by1024 = load512(constants.fold[3]);
        c = fold(a, by1024, c);
        d = fold(b, by1024, d);
        a = fold(c, by512, d);
    }
    for (; data != end; data += 64)
        a = fold(a, by512, load512(data));
    a = fold(a, _mm512_loadu_si512(constants.last.data()), _mm512_setzero_si512());
    const __m256i half =
        _mm512_maskz_extracti64x4_epi64(All, a, 0) ^ _mm512_maskz_extracti64x4_epi64(All, a, 1);
    const uint result = reduce96(
        _mm256_castsi256_si128(half) ^ _mm256_extracti128_si256(half, 1), load(constants.barrett));
    // Code for SSE that runs after this would be slow if the upper parts of the registers were not
    // 0.
    _mm256_zeroupper();
    return result;
}

class FastMultiply
{
public:
    explicit FastMultiply(const Factors &barrett) noexcept
        : m_barrett(barrett)
    {
    }
    TAVEX_TARGET_128 inline uint operator()(uint a, uint b) const noexcept
    {
        return reduce96(_mm_clmulepi64_si128(_mm_cvtsi32_si128(static_cast<int>(a)),
                            _mm_cvtsi32_si128(static_cast<int>(b)), 0x00),
            load(m_barrett));
    }

private:
    Factors m_barrett;
};

} // namespace

std::span<const Fold> folds() noexcept
{
    using F = CpuFeatureFlags;
    static constexpr std::array<Fold, 2> all{&fold512, &fold128};
    if (!Simd::has(F::PCLMULQDQ | F::SSE4_1))
        return {};
    const bool wide = Simd::HasWideVectors
        && Simd::has(
            F::VPCLMULQDQ | F::AVX512F | F::AVX512DQ | F::AVX512BW | F::AVX512VL | F::AVX512_VBMI);
    return std::span(all).subspan(wide ? 0 : 1);
}

TAVEX_TARGET_128 FoldConstants computeFoldConstants(uint polynomial) noexcept
{
    return foldConstants<FastMultiply>(polynomial);
}

} // namespace Quorvex::Crc32
