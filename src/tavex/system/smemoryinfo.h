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

    /// What this process and those in one container with it may take up together: total() or, under
    /// Linux, what their control groups grant if that is less. Reads files: about 0.1 ms.
    [[nodiscard]] static qint64 limit();

    /// What programs can still take without swapping, memory that caches would give back included.
    /// That of the machine: it can be more than limit().
    [[nodiscard]] static qint64 available();

    /// What this process takes up, libraries that it shares with others included.
    [[nodiscard]] static qint64 processUse();
};

} // namespace Quorvex
