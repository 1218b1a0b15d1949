#pragma once

#include <tavex/enums/senumbase.h>

namespace Quorvex {

enum class CpuFeatureFlags : quint64;
/// It is a set of flags.
template <>
inline constexpr bool isFlags<CpuFeatureFlags> = true;

#define TAVEX_CpuFeatureFlags_KEYS(KEY)                                                            \
    KEY(None, Q_UINT64_C(0))                                                                       \
    KEY(MMX, Q_UINT64_C(1) << 0)                                                                   \
    KEY(SSE, Q_UINT64_C(1) << 1)                                                                   \
    KEY(SSE2, Q_UINT64_C(1) << 2)                                                                  \
    KEY(SSE3, Q_UINT64_C(1) << 3)                                                                  \
    KEY(SSSE3, Q_UINT64_C(1) << 4)                                                                 \
    KEY(SSE4_1, Q_UINT64_C(1) << 5)                                                                \
    KEY(SSE4_2, Q_UINT64_C(1) << 6)                                                                \
    KEY(POPCNT, Q_UINT64_C(1) << 7)                                                                \
    KEY(AES, Q_UINT64_C(1) << 8)                                                                   \
    KEY(PCLMULQDQ, Q_UINT64_C(1) << 9)                                                             \
    KEY(AVX, Q_UINT64_C(1) << 10)                                                                  \
    KEY(F16C, Q_UINT64_C(1) << 11)                                                                 \
    KEY(FMA, Q_UINT64_C(1) << 12)                                                                  \
    KEY(AVX2, Q_UINT64_C(1) << 13)                                                                 \
    KEY(BMI1, Q_UINT64_C(1) << 14)                                                                 \
    KEY(BMI2, Q_UINT64_C(1) << 15)                                                                 \
    KEY(LZCNT, Q_UINT64_C(1) << 16)                                                                \
    KEY(MOVBE, Q_UINT64_C(1) << 17)                                                                \
    KEY(RDRAND, Q_UINT64_C(1) << 18)                                                               \
    KEY(RDSEED, Q_UINT64_C(1) << 19)                                                               \
    KEY(ADX, Q_UINT64_C(1) << 20)                                                                  \
    KEY(SHA, Q_UINT64_C(1) << 21)                                                                  \
    KEY(GFNI, Q_UINT64_C(1) << 22)                                                                 \
    KEY(VAES, Q_UINT64_C(1) << 23)                                                                 \
    KEY(VPCLMULQDQ, Q_UINT64_C(1) << 24)                                                           \
    KEY(AVX_VNNI, Q_UINT64_C(1) << 25)                                                             \
    KEY(AVX512F, Q_UINT64_C(1) << 26)                                                              \
    KEY(AVX512DQ, Q_UINT64_C(1) << 27)                                                             \
    KEY(AVX512_IFMA, Q_UINT64_C(1) << 28)                                                          \
    KEY(AVX512CD, Q_UINT64_C(1) << 29)                                                             \
    KEY(AVX512BW, Q_UINT64_C(1) << 30)                                                             \
    KEY(AVX512VL, Q_UINT64_C(1) << 31)                                                             \
    KEY(AVX512_VBMI, Q_UINT64_C(1) << 32)                                                          \
    KEY(AVX512_VBMI2, Q_UINT64_C(1) << 33)                                                         \
    KEY(AVX512_VNNI, Q_UINT64_C(1) << 34)                                                          \
    KEY(AVX512_BITALG, Q_UINT64_C(1) << 35)                                                        \
    KEY(AVX512_VPOPCNTDQ, Q_UINT64_C(1) << 36)                                                     \
    KEY(AVX512_BF16, Q_UINT64_C(1) << 37)                                                          \
    KEY(AVX512_FP16, Q_UINT64_C(1) << 38)                                                          \
    KEY(AVX512_VP2INTERSECT, Q_UINT64_C(1) << 39)                                                  \
    KEY(Arm_NEON, Q_UINT64_C(1) << 48)                                                             \
    KEY(Arm_AES, Q_UINT64_C(1) << 49)                                                              \
    KEY(Arm_PMULL, Q_UINT64_C(1) << 50)                                                            \
    KEY(Arm_SHA1, Q_UINT64_C(1) << 51)                                                             \
    KEY(Arm_SHA2, Q_UINT64_C(1) << 52)                                                             \
    KEY(Arm_SHA3, Q_UINT64_C(1) << 53)                                                             \
    KEY(Arm_SHA512, Q_UINT64_C(1) << 54)                                                           \
    KEY(Arm_CRC32, Q_UINT64_C(1) << 55)                                                            \
    KEY(Arm_LSE, Q_UINT64_C(1) << 56)                                                              \
    KEY(Arm_FP16, Q_UINT64_C(1) << 57)                                                             \
    KEY(Arm_DotProd, Q_UINT64_C(1) << 58)                                                          \
    KEY(Arm_SVE, Q_UINT64_C(1) << 59)                                                              \
    KEY(Arm_SVE2, Q_UINT64_C(1) << 60)

/// Instruction set extensions, named as their makers do: bits 0 to 47 those of x86, bits 48 to 63
/// those of Arm.
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, CpuFeatureFlags, quint64, TAVEX_CpuFeatureFlags_KEYS);

} // namespace Quorvex
