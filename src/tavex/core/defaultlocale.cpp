#include <tavex/core/defaultlocale_p.h>

#include <tavex/core/lasting_p.h>

#include <QList>
#include <QLocale>

#include <cstdlib>

namespace Quorvex {

void keepDefaultLocale()
{
    struct Kept
    {
        std::mutex mutex;
        QList<QLocale> locales;
    };
    static constinit Lasting<Kept> kept;
    Kept &k = kept.get();
    const std::scoped_lock lock(k.mutex);
    k.locales.append(QLocale());
}

void keepDefaultLocaleAtExit()
{
    static constinit std::atomic_flag isArranged;
    if (isArranged.test_and_set(std::memory_order_relaxed))
        return;
    // Qt makes its own at first use, and what is arranged later happens earlier.
    static_cast<void>(QLocale());
    static_cast<void>(std::atexit(&keepDefaultLocale));
}

} // namespace Quorvex
