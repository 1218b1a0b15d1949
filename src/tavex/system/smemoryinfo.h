#pragma once

#include <tavex/core/export.h>

#include <QtGlobal>

namespace Quorvex {

/// Physical memory in bytes; 0 where the system does not tell. All members may be called from any
/// thread.
class TAVEX_EXPORT SMemoryInfo
{
public:
    /// What the machine has.
    [[nodiscard]] static qint64 total();

    /// What programs can still take without swapping, memory that caches would give back included.
    [[nodiscard]] static qint64 available();

    /// What this process takes up, libraries that it shares with others included.
    [[nodiscard]] static qint64 processUse();
};

} // namespace Quorvex
