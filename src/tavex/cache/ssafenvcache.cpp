#include <tavex/cache/ssafenvcache.h>

namespace Quorvex {

/// The cache, locked to the end of the expression.
class SSafeNvCache::Locked
{
public:
    explicit Locked(const SSafeNvCache &cache)
        : m_lock(*cache.m_mutex)
        , m_cache(cache.m_cache.get())
    {
    }
    SNvCache *operator->() const noexcept { return m_cache; }

private:
    const std::lock_guard<std::recursive_mutex> m_lock;
    SNvCache *const m_cache;
};

SSafeNvCache::Locked SSafeNvCache::locked() const
{
    return Locked(*this);
}

SSafeNvCache::SSafeNvCache(const QString &name, const QString &folder)
    : m_mutex(std::make_unique<std::recursive_mutex>())
    , m_cache(std::make_unique<SNvCache>(name, folder))
{
}

SSafeNvCache::~SSafeNvCache() = default;

QString SSafeNvCache::folder() const
{
    return locked()->folder();
}

QString SSafeNvCache::name() const
{
    return locked()->name();
}

bool SSafeNvCache::isNull() const
{
    return locked()->isNull();
}

bool SSafeNvCache::isEmpty() const
{
    return locked()->isEmpty();
}

int SSafeNvCache::count() const
{
    return locked()->count();
}

bool SSafeNvCache::contains(const QString &key) const
{
    return locked()->contains(key);
}

QStringList SSafeNvCache::keys() const
{
    return locked()->keys();
}

bool SSafeNvCache::insert(const QString &key, QIODevice *source)
{
    return locked()->insert(key, source);
}

bool SSafeNvCache::insert(const QString &key, const QByteArray &data)
{
    return locked()->insert(key, data);
}

bool SSafeNvCache::insert(const QString &key, Interfaces::ISerializable *object)
{
    return locked()->insert(key, object);
}

bool SSafeNvCache::value(const QString &key, QIODevice *target) const
{
    return locked()->value(key, target);
}

bool SSafeNvCache::value(const QString &key, Interfaces::ISerializable *object) const
{
    return locked()->value(key, object);
}

QByteArray SSafeNvCache::value(const QString &key) const
{
    return locked()->value(key);
}

std::optional<QByteArray> SSafeNvCache::find(const QString &key) const
{
    return locked()->find(key);
}

bool SSafeNvCache::remove(const QString &key)
{
    return locked()->remove(key);
}

void SSafeNvCache::clear()
{
    locked()->clear();
}

QString SSafeNvCache::errorString() const
{
    return locked()->errorString();
}

} // namespace Quorvex
