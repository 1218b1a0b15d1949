#pragma once

#include <tavex/core/export.h>
#include <tavex/enums/concurrencemode.h>

namespace Quorvex {

/// How many threads to use. All functions may be called from any thread.
class TAVEX_EXPORT SThreading
{
public:
    /// The number of threads for \a mode, at least 1; 0 for Default and for values without a key
    /// other than 0, which gives 1.
    [[nodiscard]] static int concurrenceCount(const ConcurrenceMode &mode);

    /// The process's own number of threads: SSysInfo::cpuCount() until it is set.
    [[nodiscard]] static int defaultConcurrence();
    /// Sets it. A mode or a \a count that gives less than 1 sets SSysInfo::cpuCount().
    /// @{
    static void setDefaultConcurrence(const ConcurrenceMode &mode);
    static void setDefaultConcurrence(int count);
    /// @}

    /// A number that the application sets for its own use, 1 at first.
    /// @{
    [[nodiscard]] static int threadsPerCore();
    static void setThreadsPerCore(int count);
    /// @}
};

} // namespace Quorvex
