#pragma once

#include <tavex/enums/senumbase.h>
#include <tavex/enums/senumtranslatorbase.h>

namespace Quorvex {

#define TAVEX_BinaryUnit_KEYS(KEY)                                                                 \
    KEY(Byte, 0)                                                                                   \
    KEY(KiB, 10)                                                                                   \
    KEY(MiB, 20)                                                                                   \
    KEY(GiB, 30)                                                                                   \
    KEY(TiB, 40)                                                                                   \
    KEY(PiB, 50)                                                                                   \
    KEY(EiB, 60)                                                                                   \
    KEY(ZiB, 70)                                                                                   \
    KEY(YiB, 80)

/// A unit of data size. Each value is the power of two that the unit stands for (IEC 80000-13).
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, BinaryUnit, qint32, TAVEX_BinaryUnit_KEYS);
TAVEX_EXPORTED_ENUM_TRANSLATOR(TAVEX_EXPORT, BinaryUnit);

} // namespace Quorvex
