#include <tavex/enums/isenum.h>

#include <tavex/core/defaultlocale_p.h>
#include <tavex/enums/enumtranslators_p.h>
#include <tavex/enums/senumruntimeloader.h>

#include <QHash>
#include <QScopeGuard>

#include <atomic>

namespace Quorvex {

struct ISEnum::Private
{
    QString name;
    QHash<qint64, QStringList> keys = {};
    QStringList order = {};
    std::atomic<bool> isComplete = false;
    bool isLoading = false; ///< Under loadLock().
};

ISEnum::ISEnum(const QString &name)
    : d(new Private{name})
{
}

ISEnum::~ISEnum() = default;

QString ISEnum::name() const
{
    return d->name;
}

bool ISEnum::addKey(qint64 value, const QString &key)
{
    if (key.isEmpty() || d->keys.value(value).contains(key))
        return false;
    d->keys[value].append(key);
    d->order.append(key);
    return true;
}

void ISEnum::load() const
{
    if (d->isComplete.load(std::memory_order_acquire))
        return;
    // The constructor does not load: while a function-local static is made, other threads wait for
    // it, and the loader could wait for one of them.
    keepDefaultLocaleAtExit();
    const std::scoped_lock lock(loadLock());
    if (d->isComplete || d->isLoading)
        return;
    d->isLoading = true;
    const auto finish = qScopeGuard([this] {
        d->isLoading = false;
        d->isComplete.store(true, std::memory_order_release);
    });
    if (const auto loader = SEnumRuntimeLoader::loader(name()))
        loader->loadKeys(const_cast<ISEnum *>(this));
}

const QStringList &ISEnum::allKeys() const
{
    load();
    return d->order;
}

QString ISEnum::text(qint64 value, bool isUnsigned, const QLocale &locale) const
{
    load();
    const auto keys = d->keys.constFind(value);
    if (keys != d->keys.cend())
        return keys->last();
    return isUnsigned ? locale.toString(static_cast<quint64>(value)) : locale.toString(value);
}

} // namespace Quorvex
