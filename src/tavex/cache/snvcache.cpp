#include <tavex/cache/snvcache.h>

#include <tavex/files/sfilehelper.h>
#include <tavex/metadata/iserializable.h>
#include <tavex/system/platform_p.h>

#include <QCryptographicHash>
#include <QDataStream>
#include <QFile>
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
    bool finish() { return flush() && !m_failed; }

protected:
    qint64 writeData(const char *data, qint64 size) override
    {
        const qint64 written = QFile::writeData(data, size);
        m_failed = m_failed || written != size;
        return written;
    }

private:
    bool m_failed = false;
};

/// Calls \a write with a device that writes to \a file.
template <typename Write>
bool writeTo(Platform::NewFile &file, const Write &write)
{
    Writer writer;
    return file.open(writer) && write(writer) && writer.finish();
}

/// Calls \a write with a stream that writes to \a file.
template <typename Write>
bool streamTo(Platform::NewFile &file, const Write &write)
{
    return writeTo(file, [&](Writer &writer) {
        QDataStream stream(&writer);
        stream.setVersion(StreamVersion);
        return write(stream) && stream.status() == QDataStream::Ok;
    });
}

} // namespace

SNvCache::SNvCache(const QString &name, const QString &folder)
    : m_folder(folder)
    , m_name(name.isEmpty() ? QUuid::createUuid().toString(QUuid::WithoutBraces) : name)
{
    m_valid = Platform::makePrivateDirectory(pathName());
    if (!m_valid)
        return;
    Platform::removeAbandonedFiles(pathName());
    if (!readIndex())
        m_index.clear();
}

SNvCache::~SNvCache()
{
    if (m_valid)
        writeIndex();
}

bool SNvCache::insert(const QString &key, QIODevice *source)
{
    return source && store(key, IfNoFile::RemoveValue, [&](Platform::NewFile &file) {
        return writeTo(file,
            [&](Writer &writer) { return SFileHelper::copyDevice(&writer, source, ChunkSize); });
    });
}

bool SNvCache::insert(const QString &key, const QByteArray &data)
{
    return store(
        key, IfNoFile::RemoveValue, [&](Platform::NewFile &file) { return file.write(data); });
}

bool SNvCache::insert(const QString &key, Interfaces::ISerializable *object)
{
    return object && store(key, IfNoFile::KeepValue, [&](Platform::NewFile &file) {
        return streamTo(file, [&](QDataStream &stream) { return object->write(stream); });
    });
}

bool SNvCache::value(const QString &key, QIODevice *target) const
{
    QFile source;
    return m_valid && target && Platform::openFile(source, pathName(hash(key)))
        && SFileHelper::copyDevice(target, &source, ChunkSize);
}

bool SNvCache::value(const QString &key, Interfaces::ISerializable *object) const
{
    QFile file;
    if (!m_valid || !object || !Platform::openFile(file, pathName(hash(key))))
        return false;
    QDataStream stream(&file);
    stream.setVersion(StreamVersion);
    return object->read(stream);
}

QByteArray SNvCache::value(const QString &key) const
{
    return m_valid ? Platform::readFile(pathName(hash(key))) : QByteArray();
}

bool SNvCache::remove(const QString &key)
{
    if (!m_valid || !removeFile(hash(key)))
        return false;
    m_index.remove(key);
    return true;
}

void SNvCache::clear()
{
    const QStringList all = keys();
    for (const QString &key : all)
        remove(key);
    m_index.clear();
}

/// Makes a new file, calls \a write with it and puts it in the place of the value. If that fails,
/// the earlier value is removed; \a ifNoFile says what becomes of it if no new file can be made.
template <typename Write>
bool SNvCache::store(const QString &key, IfNoFile ifNoFile, const Write &write)
{
    if (!m_valid)
        return false;
    const QByteArray digest = hash(key);
    {
        Platform::NewFile file;
        const bool created = file.create(pathName());
        if (created && write(file) && file.moveTo(pathName(digest))) {
            m_index.insert(key, digest);
            return true;
        }
        if (!created && ifNoFile == IfNoFile::KeepValue)
            return false;
    }
    (void)removeFile(digest);
    return false;
}

/// The digest that names the file of \a key: that of the index, else the SHA-256.
QByteArray SNvCache::hash(const QString &key) const
{
    const auto entry = m_index.constFind(key);
    if (entry != m_index.constEnd())
        return *entry;
    return QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha256);
}

/// The path of a file in the cache's directory; without a name, that of the directory.
QString SNvCache::pathName(const QString &fileName) const
{
    const QString directory = m_folder % QLatin1Char('/') % m_name;
    return fileName.isEmpty() ? directory : directory % QLatin1Char('/') % fileName;
}

QString SNvCache::pathName(const QByteArray &digest) const
{
    return m_folder % QLatin1Char('/') % m_name % QLatin1Char('/') % QLatin1String(digest.toHex());
}

bool SNvCache::removeFile(const QByteArray &digest) const
{
    const QString path = pathName(digest);
    return QFile::remove(path) || !QFile::exists(path);
}

bool SNvCache::readIndex()
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
            m_index.insert(key, digest);
    }
    return stream.status() == QDataStream::Ok;
}

void SNvCache::writeIndex() const
{
    Platform::NewFile file;
    const bool written = file.create(pathName()) && streamTo(file, [&](QDataStream &stream) {
        stream << Magic << qint64{m_index.size()};
        for (auto entry = m_index.cbegin(); entry != m_index.cend(); ++entry)
            stream << entry.key() << entry.value();
        return true;
    });
    if (written)
        (void)file.moveTo(pathName(QStringLiteral("index")));
}

} // namespace Quorvex
