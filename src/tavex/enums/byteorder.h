#pragma once

#include <tavex/enums/senum.h>

namespace Quorvex {

#define TAVEX_BYTEORDER_KEYS(KEY)                                                                  \
    KEY(BigEndian, 0)                                                                              \
    KEY(LittleEndian, 1)

/// The order of the bytes of a number in memory.
TAVEX_ENUM(ByteOrder, qint32, TAVEX_BYTEORDER_KEYS);

} // namespace Quorvex
