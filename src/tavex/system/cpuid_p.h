#pragma once

#include <tavex/enums/cpufeatureflags.h>

/// \file
/// Reads the feature bits of x86 processors: Intel 64 and IA-32 Architectures Software Developer's
/// Manual, volume 2A, CPUID; AMD64 Architecture Programmer's Manual, volume 3, appendix E.

namespace Quorvex::Cpu {

/// The registers that name features; 0 for a leaf that the processor does not have.
struct CpuidRegisters
{
    quint32 leaf1Ecx = 0;
    quint32 leaf1Edx = 0;
    quint32 leaf7Ebx = 0;
    quint32 leaf7Ecx = 0;
    quint32 leaf7Edx = 0;
    quint32 leaf7Sub1Eax = 0;
    quint32 extended1Ecx = 0; ///< Of leaf 0x80000001.
    quint64 xcr0 = 0; ///< The register states that the operating system saves; 0 without OSXSAVE.
};

/// The features that a program can use: those with wide registers only if the operating system
/// saves these at a change of task.
constexpr CpuFeatureFlags featuresOf(const CpuidRegisters &registers) noexcept
{
    using R = CpuidRegisters;
    using F = CpuFeatureFlags;
    constexpr quint64 NoState = 0;
    constexpr quint64 Ymm = 0x6;  // XMM and the upper halves of YMM
    constexpr quint64 Zmm = 0xE6; // and the mask registers, upper halves of ZMM, ZMM16 to ZMM31
    struct Row
    {
        F feature;
        quint32 R::*leaf;
        int bit;
        quint64 state;
    };
    constexpr Row rows[] = {
        {F::MMX, &R::leaf1Edx, 23, NoState},
        {F::SSE, &R::leaf1Edx, 25, NoState},
        {F::SSE2, &R::leaf1Edx, 26, NoState},
        {F::SSE3, &R::leaf1Ecx, 0, NoState},
        {F::PCLMULQDQ, &R::leaf1Ecx, 1, NoState},
        {F::SSSE3, &R::leaf1Ecx, 9, NoState},
        {F::FMA, &R::leaf1Ecx, 12, Ymm},
        {F::SSE4_1, &R::leaf1Ecx, 19, NoState},
        {F::SSE4_2, &R::leaf1Ecx, 20, NoState},
        {F::MOVBE, &R::leaf1Ecx, 22, NoState},
        {F::POPCNT, &R::leaf1Ecx, 23, NoState},
        {F::AES, &R::leaf1Ecx, 25, NoState},
        {F::AVX, &R::leaf1Ecx, 28, Ymm},
        {F::F16C, &R::leaf1Ecx, 29, Ymm},
        {F::RDRAND, &R::leaf1Ecx, 30, NoState},
        {F::BMI1, &R::leaf7Ebx, 3, NoState},
        {F::AVX2, &R::leaf7Ebx, 5, Ymm},
        {F::BMI2, &R::leaf7Ebx, 8, NoState},
        {F::AVX512F, &R::leaf7Ebx, 16, Zmm},
        {F::AVX512DQ, &R::leaf7Ebx, 17, Zmm},
        {F::RDSEED, &R::leaf7Ebx, 18, NoState},
        {F::ADX, &R::leaf7Ebx, 19, NoState},
        {F::AVX512_IFMA, &R::leaf7Ebx, 21, Zmm},
        {F::AVX512CD, &R::leaf7Ebx, 28, Zmm},
        {F::SHA, &R::leaf7Ebx, 29, NoState},
        {F::AVX512BW, &R::leaf7Ebx, 30, Zmm},
        {F::AVX512VL, &R::leaf7Ebx, 31, Zmm},
        {F::AVX512_VBMI, &R::leaf7Ecx, 1, Zmm},
        {F::AVX512_VBMI2, &R::leaf7Ecx, 6, Zmm},
        {F::GFNI, &R::leaf7Ecx, 8, NoState},
        {F::VAES, &R::leaf7Ecx, 9, Ymm},
        {F::VPCLMULQDQ, &R::leaf7Ecx, 10, Ymm},
        {F::AVX512_VNNI, &R::leaf7Ecx, 11, Zmm},
        {F::AVX512_BITALG, &R::leaf7Ecx, 12, Zmm},
        {F::AVX512_VPOPCNTDQ, &R::leaf7Ecx, 14, Zmm},
        {F::AVX512_VP2INTERSECT, &R::leaf7Edx, 8, Zmm},
        {F::AVX512_FP16, &R::leaf7Edx, 23, Zmm},
        {F::AVX_VNNI, &R::leaf7Sub1Eax, 4, Ymm},
        {F::AVX512_BF16, &R::leaf7Sub1Eax, 5, Zmm},
        {F::LZCNT, &R::extended1Ecx, 5, NoState},
    };
    CpuFeatureFlags features{};
    for (const Row &row : rows) {
        if ((registers.*row.leaf >> row.bit & 1) != 0 && (registers.xcr0 & row.state) == row.state)
            features |= row.feature;
    }
    return features;
}

} // namespace Quorvex::Cpu
