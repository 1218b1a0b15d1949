#include <tavex/enums/isenum.h>

#include <tavex/core/defaultlocale_p.h>
#include <tavex/enums/enumtranslators_p.h>
#include <tavex/enums/senumruntimeloader.h>

#include <QHash>
#include <QScopeGuard>

#include <atomic>

namespace Quorvex {

struct Q_DECL_HIDDEN ISEnum::Private
{
    QString name;
    QHash<qint64, QStringList> keys = {};
    QStringList order = {};
    QHash<QString, qint64> values = {};
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
    if (!d->values.contains(key))
        d->values.insert(key, value);
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

std::optional<qint64> ISEnum::value(const QString &key) const
{
    load();
    const auto value = d->values.constFind(key);
    return value == d->values.cend() ? std::nullopt : std::optional(*value);
}

std::optional<qint64> ISEnum::parse(const QString &keys, bool isUnsigned) const
{
    const auto parsePart = [&](const QString &part) {
        std::optional<qint64> result = value(part);
        if (!result) {
            bool isNumber = false;
            const qint64 number = isUnsigned ? static_cast<qint64>(part.toULongLong(&isNumber))
                                             : part.toLongLong(&isNumber);
            if (isNumber)
                result = number;
        }
        return result;
    };
    QString all = keys.trimmed();
    const std::optional<qint64> single = parsePart(all);
    if (single || !isFlags())
        return single;
    qint64 bits = 0;
    for (const QString &part :
        all.replace(QLatin1Char(','), QLatin1Char('|')).split(QLatin1Char('|'))) {
        const std::optional<qint64> value = parsePart(part.trimmed());
        if (!value)
            return std::nullopt;
        bits |= *value;
    }
    return bits;
}

QString ISEnum::print(qint64 value, bool isUnsigned) const
{
    load();
    QStringList keys;
    // As QMetaEnum::valueToKeys() does: combinations, which usually come last, before single bits.
    if (isFlags() && !d->keys.contains(value)) {
        for (auto key = d->order.crbegin(); key != d->order.crend(); ++key) {
            const qint64 flags = d->values.value(*key);
            if (flags != 0 && (value & flags) == flags) {
                value &= ~flags;
                keys.prepend(*key);
            }
        }
    }
    if (value != 0 || keys.isEmpty())
        keys.append(text(value, isUnsigned, QLocale::c()));
    return keys.join(QLatin1Char('|'));
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
