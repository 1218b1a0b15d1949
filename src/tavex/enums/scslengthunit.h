#pragma once

#include <tavex/enums/senum.h>

namespace Quorvex {

#define TAVEX_SCSLENGTHUNIT_KEYS(KEY)                                                              \
    KEY(Inch, 1)                                                                                   \
    KEY(Foot, 12)                                                                                  \
    KEY(Yard, 36)                                                                                  \
    KEY(Rod, 198)                                                                                  \
    KEY(Furlong, 7920)                                                                             \
    KEY(Mile, 63360)

/// A customary length unit. Each value is the length in inches of exactly 2.54 centimetres.
TAVEX_ENUM(SCSLengthUnit, qint32, TAVEX_SCSLENGTHUNIT_KEYS);

} // namespace Quorvex
