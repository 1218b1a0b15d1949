#include <tavex/cache/ssafenvcache.h>

namespace Quorvex {

SSafeNvCache::SSafeNvCache(const QString &name, const QString &folder)
    : m_mutex(std::make_unique<std::recursive_mutex>())
    , m_cache(std::make_unique<SNvCache>(name, folder))
{
}

SSafeNvCache::~SSafeNvCache() = default;

QString SSafeNvCache::folder() const
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->folder();
}

QString SSafeNvCache::name() const
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->name();
}

bool SSafeNvCache::isNull() const
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->isNull();
}

bool SSafeNvCache::isEmpty() const
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->isEmpty();
}

int SSafeNvCache::count() const
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->count();
}

bool SSafeNvCache::contains(const QString &key) const
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->contains(key);
}

QStringList SSafeNvCache::keys() const
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->keys();
}

bool SSafeNvCache::insert(const QString &key, QIODevice *source)
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->insert(key, source);
}

bool SSafeNvCache::insert(const QString &key, const QByteArray &data)
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->insert(key, data);
}

bool SSafeNvCache::insert(const QString &key, Interfaces::ISerializable *object)
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->insert(key, object);
}

bool SSafeNvCache::value(const QString &key, QIODevice *target) const
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->value(key, target);
}

bool SSafeNvCache::value(const QString &key, Interfaces::ISerializable *object) const
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->value(key, object);
}

QByteArray SSafeNvCache::value(const QString &key) const
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->value(key);
}

std::optional<QByteArray> SSafeNvCache::find(const QString &key) const
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->find(key);
}

bool SSafeNvCache::remove(const QString &key)
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->remove(key);
}

void SSafeNvCache::clear()
{
    const std::scoped_lock lock(*m_mutex);
    m_cache->clear();
}

QString SSafeNvCache::errorString() const
{
    const std::scoped_lock lock(*m_mutex);
    return m_cache->errorString();
}

} // namespace Quorvex
