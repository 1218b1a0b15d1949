#pragma once

#include <tavex/enums/senumbase.h>

namespace Quorvex {

#define TAVEX_CpuType_KEYS(KEY)                                                                    \
    KEY(Unknown, 0)                                                                                \
    KEY(X86, 1)                                                                                    \
    KEY(X86_64, 2)                                                                                 \
    KEY(Arm, 3)                                                                                    \
    KEY(Arm64, 4)                                                                                  \
    KEY(RiscV32, 5)                                                                                \
    KEY(RiscV64, 6)                                                                                \
    KEY(PowerPC, 7)                                                                                \
    KEY(PowerPC64, 8)                                                                              \
    KEY(Mips, 9)                                                                                   \
    KEY(Mips64, 10)                                                                                \
    KEY(LoongArch64, 11)                                                                           \
    KEY(S390X, 12)                                                                                 \
    KEY(WebAssembly, 13)

/// The instruction set family of a processor.
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, CpuType, qint32, TAVEX_CpuType_KEYS);

} // namespace Quorvex
