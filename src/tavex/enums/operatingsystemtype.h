#pragma once

#include <tavex/application/senumtranslatorbase.h>
#include <tavex/enums/senum.h>

namespace Quorvex {

#define TAVEX_OPERATINGSYSTEMTYPE_KEYS(KEY)                                                        \
    KEY(macOS, 1)                                                                                  \
    KEY(iOS, 2)                                                                                    \
    KEY(Windows, 3)                                                                                \
    KEY(Linux, 4)                                                                                  \
    KEY(BSD_, 5) /**< the underscore keeps clear of system headers that define BSD */              \
    KEY(Unix, 6)                                                                                   \
    KEY(Android, 7)                                                                                \
    KEY(Symbian, 8)

/// A family of operating systems.
TAVEX_ENUM(OperatingSystemType, qint32, TAVEX_OPERATINGSYSTEMTYPE_KEYS);
TAVEX_ENUM_TRANSLATOR(OperatingSystemType);

} // namespace Quorvex
