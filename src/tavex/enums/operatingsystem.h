#pragma once

#include <tavex/enums/senumbase.h>

namespace Quorvex {

#define TAVEX_OperatingSystem_KEYS(KEY)                                                            \
    KEY(Windows_32s, 0x1)                                                                          \
    KEY(Windows_95, 0x2)                                                                           \
    KEY(Windows_98, 0x3)                                                                           \
    KEY(Windows_Me, 0x4)                                                                           \
    KEY(Windows_4_0, 0x10)                                                                         \
    KEY(Windows_5_0, 0x20)                                                                         \
    KEY(Windows_5_1, 0x30)                                                                         \
    KEY(Windows_5_2, 0x40)                                                                         \
    KEY(Windows_6_0, 0x80)                                                                         \
    KEY(Windows_6_1, 0x90)                                                                         \
    KEY(Windows_6_2, 0xA0)                                                                         \
    KEY(Windows_6_3, 0xB0)                                                                         \
    KEY(Windows_10_0, 0xC0)                                                                        \
    KEY(Windows_11_0, 0xD0)                                                                        \
    KEY(Windows_CE, 0x100)                                                                         \
    KEY(Windows_CE__NET, 0x200)                                                                    \
    KEY(Windows_CE_5_0, 0x300)                                                                     \
    KEY(Windows_CE_6_0, 0x400)                                                                     \
    KEY(Windows, 0xFFF) /**< any Windows */                                                        \
    KEY(Mac_OS_9, 0x1000)                                                                          \
    KEY(macOS_10_12, 0x2000)                                                                       \
    KEY(macOS_10_13, 0x3000)                                                                       \
    KEY(macOS_10_14, 0x4000)                                                                       \
    KEY(macOS_10_15, 0x5000)                                                                       \
    KEY(macOS_11_0, 0x6000)                                                                        \
    KEY(macOS_12_0, 0x7000)                                                                        \
    KEY(macOS, 0x3F000) /**< any macOS */                                                          \
    KEY(OS_X, 0x3F000)  /**< the older name of macOS */                                            \
    KEY(iOS, 0x100000)  /**< any iOS */                                                            \
    KEY(iOS_15_0, 0x1F0000)                                                                        \
    KEY(Linux, 0x1000000)                                                                          \
    KEY(Android, 0x2000000)                                                                        \
    KEY(FreeBSD, 0x3000000)                                                                        \
    KEY(OpenBSD, 0x4000000)                                                                        \
    KEY(NetBSD, 0x5000000)                                                                         \
    KEY(AIX, 0x6000000)                                                                            \
    KEY(HP_UX, 0x7000000)                                                                          \
    KEY(Solaris, 0x8000000)                                                                        \
    KEY(QNX, 0x9000000)                                                                            \
    KEY(OS_2, 0xA000000)                                                                           \
    KEY(OS_400, 0xB000000)                                                                         \
    KEY(Symbian, 0xC000000)                                                                        \
    KEY(Haiku, 0xD000000)                                                                          \
    KEY(Unix, 0xD000001)                                                                           \
    KEY(Windows_NT, 0x80000010)                                                                    \
    KEY(Windows_2000, 0x80000020)                                                                  \
    KEY(Windows_XP, 0x80000030)                                                                    \
    KEY(Windows_2003, 0x80000040)                                                                  \
    KEY(Windows_Vista, 0x80000080)                                                                 \
    KEY(Windows_7, 0x80000090)                                                                     \
    KEY(Windows_8, 0x800000A0)                                                                     \
    KEY(Windows_8_1, 0x800000B0)                                                                   \
    KEY(Windows_10, 0x800000C0)                                                                    \
    KEY(Windows_11, 0x800000D0)                                                                    \
    KEY(macOS_Sierra, 0x80002000)                                                                  \
    KEY(macOS_High_Sierra, 0x80003000)                                                             \
    KEY(macOS_Mojave, 0x80004000)                                                                  \
    KEY(macOS_Catalina, 0x80005000)                                                                \
    KEY(macOS_Big_Sur, 0x80006000)                                                                 \
    KEY(macOS_Monterey, 0x80007000)

/// An operating system in bit fields: bits 0 to 3 the Windows 9x line, 4 to 7 the NT line, 8 to 11
/// the CE line, 12 to 17 macOS, from 20 iOS, from 24 other families. Bit 31 marks a version by its
/// marketing name.
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, OperatingSystem, quint32, TAVEX_OperatingSystem_KEYS);

} // namespace Quorvex
