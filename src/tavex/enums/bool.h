#pragma once

#include <tavex/enums/senumbase.h>
#include <tavex/enums/senumtranslatorbase.h>

namespace Quorvex {

#define TAVEX_Bool_KEYS(KEY)                                                                       \
    KEY(False, 0)                                                                                  \
    KEY(True, 1)

/// A truth value whose words can be named and translated.
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, Bool, bool, TAVEX_Bool_KEYS);
TAVEX_EXPORTED_ENUM_TRANSLATOR(TAVEX_EXPORT, Bool);

} // namespace Quorvex
