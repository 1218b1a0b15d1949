#pragma once

#include <tavex/application/senvironment.h>
#include <tavex/core/export.h>

#include <QByteArray>
#include <QStringList>

#include <memory>
#include <optional>

class QIODevice;

namespace Quorvex {
namespace Interfaces {
class ISerializable;
} // namespace Interfaces

/// A cache that outlives the process: values by key, each in a file of its own, in one directory
/// (docs/cache.md tells its bytes). Nothing is ever evicted.
///
/// A value is written to a new file, which then replaces the old one. A reader in any process gets
/// the old value or the new one, never a part of one, also when a writer is killed. Nothing is
/// synchronised with the disk: after a loss of power values may be cut off or lost.
///
/// Any number of caches may use one directory at a time; each knows the keys of its own insertions
/// only. One object belongs to one thread at a time; SSafeNvCache is for several.
class TAVEX_EXPORT SNvCache
{
public:
    /// The cache in the directory "folder/name". That is made with all above it, under Linux open
    /// to the user alone. \a name may have separators and "..", and the directory is then what that
    /// path means: a name that comes from outside has to be checked by the caller. An empty name
    /// stands for a new one, made of a UUID.
    ///
    /// What was inserted before can be read and removed, but contains(), keys(), count() and
    /// clear() know only what this object has inserted. What killed processes have left half
    /// written is removed.
    explicit SNvCache(const QString &name = QString(),
        const QString &folder = SEnvironment::getFolder(SpecialFolder::CacheLocation, true));
    Q_DISABLE_COPY_MOVE(SNvCache)
    /// Writes the index.
    ~SNvCache();

    /// The folder that the directory is in, as it was given.
    [[nodiscard]] QString folder() const;
    /// The name of the directory in folder(): the given one, or the one that was made.
    [[nodiscard]] QString name() const;

    /// True if there is no directory. All that reads, inserts or removes then returns false.
    [[nodiscard]] bool isNull() const noexcept;

    /// Whether keys() is empty.
    [[nodiscard]] bool isEmpty() const noexcept;
    /// The number of keys().
    [[nodiscard]] int count() const noexcept;
    /// Whether \a key is one of keys().
    [[nodiscard]] bool contains(const QString &key) const;
    /// The keys that this object has inserted and not removed, in no particular order.
    [[nodiscard]] QStringList keys() const;

    /// Stores \a data, or what \a source has from its position on, or what \a object writes to a
    /// QDataStream of version Qt_5_6. True only if all of it is in the file and the system has
    /// reported no error up to the closing of the file.
    ///
    /// If it fails, the key's earlier value is gone too; only when no file could be opened for an
    /// object, it stays. A source that is not open is opened, and closed afterwards.
    /// @{
    bool insert(const QString &key, QIODevice *source);
    bool insert(const QString &key, const QByteArray &data);
    bool insert(const QString &key, Interfaces::ISerializable *object);
    /// @}

    /// Why the latest insert() failed, in the words of the system or of the device; empty if it
    /// succeeded.
    [[nodiscard]] QString errorString() const;

    /// Copies the value to \a target, which is opened for that if it is not open, or lets \a object
    /// read it; false if there is none or if that fails, which may be after a part.
    /// @{
    [[nodiscard]] bool value(const QString &key, QIODevice *target) const;
    [[nodiscard]] bool value(const QString &key, Interfaces::ISerializable *object) const;
    /// @}
    /// The value; empty also if there is none or it cannot be read.
    [[nodiscard]] QByteArray value(const QString &key) const;
    /// The value, which may be empty; nothing if there is none or it cannot be read.
    [[nodiscard]] std::optional<QByteArray> find(const QString &key) const;

    /// False only if there is a value and it cannot be removed.
    bool remove(const QString &key);

    /// Removes the values of all keys().
    void clear();

private:
    struct Private;
    const std::unique_ptr<Private> d;
};

} // namespace Quorvex
