#include <tavex/enums/isenum.h>

#include <tavex/application/senumruntimeloader.h>
#include <tavex/core/defaultlocale_p.h>
#include <tavex/core/lasting_p.h>

#include <QHash>
#include <QScopeGuard>

namespace Quorvex {

struct ISEnum::Private
{
    QHash<qint64, QStringList> keys;
    QStringList order;
    std::atomic<bool> isComplete = true;
    bool isLoading = false; ///< Under loadLock().
};

ISEnum::ISEnum()
    : d(std::make_unique<Private>())
{
}

ISEnum::~ISEnum() = default;

bool ISEnum::addKey(qint64 value, const QString &key)
{
    if (key.isEmpty() || d->keys.value(value).contains(key))
        return false;
    d->keys[value].append(key);
    d->order.append(key);
    return true;
}

void ISEnum::loadRuntimeKeys()
{
    // Not yet: the table may be a function-local static, for which other threads wait, and so may
    // what the loader uses.
    d->isComplete = false;
}

void ISEnum::load() const
{
    if (d->isComplete.load(std::memory_order_acquire))
        return;
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
