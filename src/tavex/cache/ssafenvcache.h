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
        const QString &folder = SEnvironment::getFolder(SpecialFolder::CacheLocation, true));
    Q_DISABLE_COPY_MOVE(SSafeNvCache)
    ~SSafeNvCache();

    /// The function of this name of SNvCache, under the lock.
    /// @{
    [[nodiscard]] QString folder() const;
    [[nodiscard]] QString name() const;
    [[nodiscard]] bool isNull() const;
    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] int count() const;
    [[nodiscard]] bool contains(const QString &key) const;
    [[nodiscard]] QStringList keys() const;

    bool insert(const QString &key, QIODevice *source);
    bool insert(const QString &key, const QByteArray &data);
    bool insert(const QString &key, Interfaces::ISerializable *object);

    [[nodiscard]] bool value(const QString &key, QIODevice *target) const;
    [[nodiscard]] bool value(const QString &key, Interfaces::ISerializable *object) const;
    [[nodiscard]] QByteArray value(const QString &key) const;
    [[nodiscard]] std::optional<QByteArray> find(const QString &key) const;

    bool remove(const QString &key);
    void clear();
    /// @}

    /// Why the latest insert() failed, of whichever thread; empty if it succeeded.
    [[nodiscard]] QString errorString() const;

private:
    const std::unique_ptr<std::recursive_mutex> m_mutex;
    const std::unique_ptr<SNvCache> m_cache;
};

} // namespace Quorvex
