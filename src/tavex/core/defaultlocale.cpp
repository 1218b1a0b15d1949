#include <tavex/core/defaultlocale_p.h>

#include <tavex/core/startup_p.h>

#include <QList>
#include <QLocale>

#include <mutex>

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
    // Not std::atexit(): with the thread sanitizer its function runs after the library is unloaded.
    struct AtExit
    {
        // Makes Qt create its default locale first, so that this object is destroyed before it.
        AtExit() { static_cast<void>(QLocale()); }
        ~AtExit() { keepDefaultLocale(); }
        Q_DISABLE_COPY_MOVE(AtExit)
    };
    static const AtExit atExit;
}

} // namespace Quorvex
