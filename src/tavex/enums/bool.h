#pragma once

#include <tavex/application/senumtranslatorbase.h>
#include <tavex/enums/senum.h>

namespace Quorvex {

#define TAVEX_BOOL_KEYS(KEY)                                                                       \
    KEY(False, 0)                                                                                  \
    KEY(True, 1)

/// A truth value whose words can be named and translated.
TAVEX_ENUM(Bool, bool, TAVEX_BOOL_KEYS);
TAVEX_ENUM_TRANSLATOR(Bool);

} // namespace Quorvex
