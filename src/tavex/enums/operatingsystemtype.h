#pragma once

#include <tavex/enums/senumbase.h>
#include <tavex/enums/senumtranslatorbase.h>

namespace Quorvex {

#define TAVEX_OperatingSystemType_KEYS(KEY)                                                        \
    KEY(macOS, 1)                                                                                  \
    KEY(iOS, 2)                                                                                    \
    KEY(Windows, 3)                                                                                \
    KEY(Linux, 4)                                                                                  \
    KEY(BSD_, 5) /**< the underscore keeps clear of system headers that define BSD */              \
    KEY(Unix, 6)                                                                                   \
    KEY(Android, 7)                                                                                \
    KEY(Symbian, 8)

/// A family of operating systems.
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, OperatingSystemType, qint32, TAVEX_OperatingSystemType_KEYS);
TAVEX_EXPORTED_ENUM_TRANSLATOR(TAVEX_EXPORT, OperatingSystemType);

} // namespace Quorvex
