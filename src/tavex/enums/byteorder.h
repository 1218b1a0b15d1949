#pragma once

#include <tavex/enums/senumbase.h>

namespace Quorvex {

#define TAVEX_ByteOrder_KEYS(KEY)                                                                  \
    KEY(BigEndian, 0)                                                                              \
    KEY(LittleEndian, 1)

/// The order of the bytes of a number in memory.
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, ByteOrder, qint32, TAVEX_ByteOrder_KEYS);

} // namespace Quorvex
