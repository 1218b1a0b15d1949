#pragma once

#include <tavex/enums/senumbase.h>

namespace Quorvex {

#define TAVEX_SIPrefix_KEYS(KEY)                                                                   \
    KEY(Yocto, -24)                                                                                \
    KEY(Zepto, -21)                                                                                \
    KEY(Atto, -18)                                                                                 \
    KEY(Femto, -15)                                                                                \
    KEY(Pico, -12)                                                                                 \
    KEY(Nano, -9)                                                                                  \
    KEY(Micro, -6)                                                                                 \
    KEY(Milli, -3)                                                                                 \
    KEY(Centi, -2)                                                                                 \
    KEY(Deci, -1)                                                                                  \
    KEY(Base, 0)                                                                                   \
    KEY(Deca, 1)                                                                                   \
    KEY(Hecto, 2)                                                                                  \
    KEY(Kilo, 3)                                                                                   \
    KEY(Mega, 6)                                                                                   \
    KEY(Giga, 9)                                                                                   \
    KEY(Tera, 12)                                                                                  \
    KEY(Peta, 15)                                                                                  \
    KEY(Exa, 18)                                                                                   \
    KEY(Zetta, 21)                                                                                 \
    KEY(Yotta, 24)

/// A decimal prefix of the SI. Each value is the power of ten of the prefix.
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, SIPrefix, qint32, TAVEX_SIPrefix_KEYS);

} // namespace Quorvex
