#include <tavex/progress/sthreading.h>

#include <tavex/system/ssysinfo.h>

#include <QAtomicInt>

#include <algorithm>

namespace Quorvex {
namespace {

/// 0 stands for all processors, which take longer to count than loading the library should.
QAtomicInt concurrence = 0;
QAtomicInt perCore = 1;

} // namespace

int SThreading::concurrenceCount(const ConcurrenceMode &mode)
{
    const int all = SSysInfo::cpuCount();
    switch (mode) {
    case ConcurrenceMode::Half:
        return std::max(1, all / 2);
    case ConcurrenceMode::MoreThanHalf:
        return std::max(1, 3 * all / 4);
    case ConcurrenceMode::AlmostFull:
        return std::max(1, all - 1);
    case ConcurrenceMode::Full:
        return std::max(1, all);
    default:
        return mode == ConcurrenceMode(0) ? 1 : 0;
    }
}

int SThreading::defaultConcurrence()
{
    const int count = concurrence.loadRelaxed();
    return count ? count : SSysInfo::cpuCount();
}

void SThreading::setDefaultConcurrence(const ConcurrenceMode &mode)
{
    setDefaultConcurrence(concurrenceCount(mode));
}

void SThreading::setDefaultConcurrence(int count)
{
    concurrence.storeRelaxed(std::max(count, 0));
}

int SThreading::threadsPerCore()
{
    return perCore.loadRelaxed();
}

void SThreading::setThreadsPerCore(int count)
{
    perCore.storeRelaxed(count);
}

} // namespace Quorvex
