#pragma once

#include <tavex/enums/senumbase.h>
#include <tavex/enums/senumtranslatorbase.h>

namespace Quorvex {

#define TAVEX_ConcurrenceMode_KEYS(KEY)                                                            \
    KEY(Default, 1) /**< no number of its own */                                                   \
    KEY(Half, 2)                                                                                   \
    KEY(MoreThanHalf, 3) /**< three quarters */                                                    \
    KEY(AlmostFull, 4)   /**< all but one */                                                       \
    KEY(Full, 5)

/// How many of the processors a program is to use.
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, ConcurrenceMode, qint32, TAVEX_ConcurrenceMode_KEYS);
TAVEX_EXPORTED_ENUM_TRANSLATOR(TAVEX_EXPORT, ConcurrenceMode);

} // namespace Quorvex
