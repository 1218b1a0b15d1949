#pragma once

#include <tavex/enums/senumbase.h>

namespace Quorvex {

#define TAVEX_SCSLengthUnit_KEYS(KEY)                                                              \
    KEY(Inch, 1)                                                                                   \
    KEY(Foot, 12)                                                                                  \
    KEY(Yard, 36)                                                                                  \
    KEY(Rod, 198)                                                                                  \
    KEY(Furlong, 7920)                                                                             \
    KEY(Mile, 63360)

/// A customary length unit. Each value is the length in inches of exactly 2.54 centimetres.
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, SCSLengthUnit, qint32, TAVEX_SCSLengthUnit_KEYS);

} // namespace Quorvex
