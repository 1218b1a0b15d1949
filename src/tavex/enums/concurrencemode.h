#pragma once

#include <tavex/application/senumtranslatorbase.h>
#include <tavex/enums/senum.h>

namespace Quorvex {

#define TAVEX_CONCURRENCEMODE_KEYS(KEY)                                                            \
    KEY(Default, 1) /**< no number of its own */                                                   \
    KEY(Half, 2)                                                                                   \
    KEY(MoreThanHalf, 3) /**< three quarters */                                                    \
    KEY(AlmostFull, 4)   /**< all but one */                                                       \
    KEY(Full, 5)

/// How many of the processors a program is to use.
TAVEX_ENUM(ConcurrenceMode, qint32, TAVEX_CONCURRENCEMODE_KEYS);
TAVEX_ENUM_TRANSLATOR(ConcurrenceMode);

} // namespace Quorvex
