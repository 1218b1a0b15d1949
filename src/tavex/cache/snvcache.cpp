#include <tavex/cache/snvcache.h>

#include <tavex/files/sfilehelper.h>
#include <tavex/metadata/iserializable.h>
#include <tavex/system/platform_p.h>

#include <QCryptographicHash>
#include <QDataStream>
#include <QFile>
#include <QHash>
#include <QStringBuilder>
#include <QUuid>

namespace Quorvex {
namespace {

constexpr int StreamVersion = QDataStream::Qt_5_6;
constexpr quint64 ChunkSize = 32768;
constexpr QUuid Magic(0xc0e6a09c, 0xc943, 0x4039, 0x94, 0xb5, 0xcc, 0xae, 0xe6, 0x0e, 0x32, 0xe8);

/// The file that devices and objects are written to. It remembers a failed write, which QFile
/// forgets at the next one and an object may ignore.
class Writer : public QFile
{
public:
    /// False if any write has failed.
    bool finish()
    {
        note(flush());
        return m_error.isEmpty();
    }

    /// Why a write has failed; empty if none has.
    [[nodiscard]] const QString &failure() const noexcept { return m_error; }

protected:
    qint64 writeData(const char *data, qint64 size) override
    {
        const qint64 written = QFile::writeData(data, size);
        note(written == size);
        return written;
    }

private:
    /// QFile itself is silent on the reason if a part could be written.
    void note(bool isWritten)
    {
        if (!isWritten)
            m_error = qt_error_string();
    }

    QString m_error;
};

/// Calls \a write with a device that writes to \a file.
template <typename Write>
bool writeTo(Platform::NewFile &file, QString *errorString, const Write &write)
{
    Writer writer;
    if (file.open(writer) && write(writer) && writer.finish())
        return true;
    if (errorString->isEmpty())
        *errorString = writer.failure().isEmpty() ? writer.errorString() : writer.failure();
    return false;
}

/// Calls \a write with a stream that writes to \a file.
template <typename Write>
bool streamTo(Platform::NewFile &file, QString *errorString, const Write &write)
{
    return writeTo(file, errorString, [&](Writer &writer) {
        QDataStream stream(&writer);
        stream.setVersion(StreamVersion);
        return write(stream) && stream.status() == QDataStream::Ok;
    });
}

enum class IfNoFile { RemoveValue, KeepValue };

} // namespace

struct Q_DECL_HIDDEN SNvCache::Private
{
    Private(const QString &cacheName, const QString &parentFolder)
        : folder(parentFolder)
        , name(cacheName.isEmpty() ? QUuid::createUuid().toString(QUuid::WithoutBraces) : cacheName)
    {
        valid = Platform::makePrivateDirectory(pathName());
        if (!valid) {
            errorString = qt_error_string();
            return;
        }
        Platform::removeAbandonedFiles(pathName());
        if (!readIndex())
            index.clear();
    }

    /// The path of a file in the cache's directory; without a name, that of the directory.
    [[nodiscard]] QString pathName(const QString &fileName = QString()) const
    {
        const QString directory = folder % QLatin1Char('/') % name;
        return fileName.isEmpty() ? directory : directory % QLatin1Char('/') % fileName;
    }

    [[nodiscard]] QString pathName(const QByteArray &digest) const
    {
        return folder % QLatin1Char('/') % name % QLatin1Char('/') % QLatin1String(digest.toHex());
    }

    /// The digest that names the file of \a key: that of the index, else the SHA-256.
    [[nodiscard]] QByteArray hash(const QString &key) const
    {
        const auto entry = index.constFind(key);
        if (entry != index.constEnd())
            return *entry;
        return QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha256);
    }

    [[nodiscard]] bool removeFile(const QByteArray &digest) const
    {
        const QString path = pathName(digest);
        return QFile::remove(path) || !QFile::exists(path);
    }

    /// False, for a null pointer.
    bool refuse()
    {
        if (valid)
            errorString = QFile().errorString(); // Qt's words for an unknown error.
        return false;
    }

    template <typename Write>
    bool store(const QString &key, IfNoFile ifNoFile, const Write &write);
    bool readIndex();
    void writeIndex() const;

    bool valid = false;
    QString folder;
    QString name;
    QHash<QString, QByteArray> index; ///< From the keys to the SHA-256 that names their files.
    QString errorString;              ///< Of the latest insertion, or why it is not valid.
};

/// Makes a new file, calls \a write with it and with a text for the error, and puts the file in the
/// place of the value. If that fails, the earlier value is removed; \a ifNoFile says what becomes
/// of it if no new file can be made.
template <typename Write>
bool SNvCache::Private::store(const QString &key, IfNoFile ifNoFile, const Write &write)
{
    if (!valid)
        return false;
    const QByteArray digest = hash(key);
    QString error; // What is written may insert as well.
    {
        Platform::NewFile file;
        const bool created = file.create(pathName());
        if (created && write(file, &error) && file.moveTo(pathName(digest))) {
            errorString.clear();
            index.insert(key, digest);
            return true;
        }
        errorString = error.isEmpty() ? qt_error_string() : error;
        if (!created && ifNoFile == IfNoFile::KeepValue)
            return false;
    }
    (void)removeFile(digest);
    return false;
}

bool SNvCache::Private::readIndex()
{
    QFile file;
    if (!Platform::openFile(file, pathName(QStringLiteral("index"))))
        return false;
    QDataStream stream(&file);
    stream.setVersion(StreamVersion);
    QUuid magic;
    stream >> magic;
    if (magic != Magic)
        return false;
    // Reads the upper half of the count that writeIndex() writes, which is 0: docs/cache.md.
    qint32 count = 0;
    stream >> count;
    for (qint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        QString key;
        QByteArray digest;
        stream >> key >> digest;
        if (!digest.isEmpty())
            index.insert(key, digest);
    }
    return stream.status() == QDataStream::Ok;
}

void SNvCache::Private::writeIndex() const
{
    QString error;
    Platform::NewFile file;
    const bool written =
        file.create(pathName()) && streamTo(file, &error, [&](QDataStream &stream) {
            stream << Magic << qint64{index.size()};
            for (auto entry = index.cbegin(); entry != index.cend(); ++entry)
                stream << entry.key() << entry.value();
            return true;
        });
    if (written)
        (void)file.moveTo(pathName(QStringLiteral("index")));
}

SNvCache::SNvCache(const QString &name, const QString &folder)
    : d(std::make_unique<Private>(name, folder))
{
}

SNvCache::~SNvCache()
{
    if (d->valid)
        d->writeIndex();
}

QString SNvCache::folder() const
{
    return d->folder;
}

QString SNvCache::name() const
{
    return d->name;
}

bool SNvCache::isNull() const noexcept
{
    return !d->valid;
}

bool SNvCache::isEmpty() const noexcept
{
    return d->index.isEmpty();
}

int SNvCache::count() const noexcept
{
    return static_cast<int>(d->index.size());
}

bool SNvCache::contains(const QString &key) const
{
    return d->index.contains(key);
}

QStringList SNvCache::keys() const
{
    return d->index.keys();
}

bool SNvCache::insert(const QString &key, QIODevice *source)
{
    if (!source)
        return d->refuse();
    return d->store(key, IfNoFile::RemoveValue, [&](Platform::NewFile &file, QString *error) {
        return writeTo(file, error, [&](Writer &writer) {
            return SFileHelper::copyDevice(&writer, source, ChunkSize, error);
        });
    });
}

bool SNvCache::insert(const QString &key, const QByteArray &data)
{
    return d->store(key, IfNoFile::RemoveValue,
        [&](Platform::NewFile &file, QString *) { return file.write(data); });
}

bool SNvCache::insert(const QString &key, Interfaces::ISerializable *object)
{
    if (!object)
        return d->refuse();
    return d->store(key, IfNoFile::KeepValue, [&](Platform::NewFile &file, QString *error) {
        return streamTo(file, error, [&](QDataStream &stream) { return object->write(stream); });
    });
}

QString SNvCache::errorString() const
{
    return d->errorString;
}

bool SNvCache::value(const QString &key, QIODevice *target) const
{
    QFile source;
    return d->valid && target && Platform::openFile(source, d->pathName(d->hash(key)))
        && SFileHelper::copyDevice(target, &source, ChunkSize);
}

bool SNvCache::value(const QString &key, Interfaces::ISerializable *object) const
{
    QFile file;
    if (!d->valid || !object || !Platform::openFile(file, d->pathName(d->hash(key))))
        return false;
    QDataStream stream(&file);
    stream.setVersion(StreamVersion);
    return object->read(stream);
}

QByteArray SNvCache::value(const QString &key) const
{
    return find(key).value_or(QByteArray());
}

std::optional<QByteArray> SNvCache::find(const QString &key) const
{
    return d->valid ? Platform::readFile(d->pathName(d->hash(key))) : std::nullopt;
}

bool SNvCache::remove(const QString &key)
{
    if (!d->valid || !d->removeFile(d->hash(key)))
        return false;
    d->index.remove(key);
    return true;
}

void SNvCache::clear()
{
    const QStringList all = keys();
    for (const QString &key : all)
        remove(key);
    d->index.clear();
}

} // namespace Quorvex
