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
    // Not std::atexit(), which the thread sanitizer calls after the library was unloaded.
    struct AtExit
    {
        // Qt makes its own at first use, and what is made later is destroyed earlier.
        AtExit() { static_cast<void>(QLocale()); }
        ~AtExit() { keepDefaultLocale(); }
        Q_DISABLE_COPY_MOVE(AtExit)
    };
    static const AtExit atExit;
}

} // namespace Quorvex
