#include <tavex/system/smemoryinfo.h>

#include <tavex/system/platform_p.h>

namespace Quorvex {

qint64 SMemoryInfo::total()
{
    return Platform::memory().total;
}

qint64 SMemoryInfo::available()
{
    return Platform::memory().available;
}

qint64 SMemoryInfo::limit()
{
    const qint64 limit = Platform::memoryLimit();
    return limit > 0 ? qMin(limit, total()) : total();
}

qint64 SMemoryInfo::processUse()
{
    return Platform::memory().processUse;
}

} // namespace Quorvex
