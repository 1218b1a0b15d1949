#pragma once

#include <tavex/cache/snvcache.h>

#include <mutex>

namespace Quorvex {

/// SNvCache for several threads: each member is that of SNvCache under one lock.
///
/// The lock is recursive: a device or an object may call the cache while it is read or written.
/// Two objects for one directory do not wait for each other.
class TAVEX_EXPORT SSafeNvCache
{
public:
    /// The cache that SNvCache makes of the same arguments.
    explicit SSafeNvCache(const QString &name = QString(),
        const QString &folder = SEnvironment::getFolder(SpecialFolder::CacheLocation, true))
        : m_cache(name, folder)
    {
    }

    /// The function of this name of SNvCache, under the lock.
    /// @{
    [[nodiscard]] QString folder() const { return locked()->folder(); }
    [[nodiscard]] QString name() const { return locked()->name(); }
    [[nodiscard]] bool isNull() const { return locked()->isNull(); }
    [[nodiscard]] bool isEmpty() const { return locked()->isEmpty(); }
    [[nodiscard]] int count() const { return locked()->count(); }
    [[nodiscard]] bool contains(const QString &key) const { return locked()->contains(key); }
    [[nodiscard]] QStringList keys() const { return locked()->keys(); }

    bool insert(const QString &key, QIODevice *source) { return locked()->insert(key, source); }
    bool insert(const QString &key, const QByteArray &data) { return locked()->insert(key, data); }
    bool insert(const QString &key, Interfaces::ISerializable *object)
    {
        return locked()->insert(key, object);
    }

    bool value(const QString &key, QIODevice *target) const { return locked()->value(key, target); }
    bool value(const QString &key, Interfaces::ISerializable *object) const
    {
        return locked()->value(key, object);
    }
    [[nodiscard]] QByteArray value(const QString &key) const { return locked()->value(key); }

    bool remove(const QString &key) { return locked()->remove(key); }
    void clear() { locked()->clear(); }
    /// @}

private:
    /// The cache, locked to the end of the expression.
    class Locked
    {
    public:
        explicit Locked(const SSafeNvCache &cache)
            : m_lock(cache.m_mutex)
            , m_cache(&cache.m_cache)
        {
        }
        SNvCache *operator->() const noexcept { return m_cache; }

    private:
        const std::lock_guard<std::recursive_mutex> m_lock;
        SNvCache *const m_cache;
    };
    [[nodiscard]] Locked locked() const { return Locked(*this); }

    mutable std::recursive_mutex m_mutex;
    mutable SNvCache m_cache;
};

} // namespace Quorvex
