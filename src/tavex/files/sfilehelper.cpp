#include <tavex/files/sfilehelper.h>

#include <tavex/core/lasting_p.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileDevice>
#include <QFileInfo>
#include <QThread>

#include <atomic>
#include <memory>
#include <mutex>
#include <new>

namespace Quorvex {
namespace {

/// Writes the chunk; false for an error.
bool writeChunk(QIODevice *target, const char *data, qint64 size)
{
    while (size > 0) {
        const qint64 count = target->write(data, size);
        if (count <= 0)
            return count == 0;
        data += count;
        size -= count;
    }
    return true;
}

/// Copies between two devices that are meant to be open.
bool copyOpen(QIODevice *target, QIODevice *source, quint64 bufferSize)
{
    // A source that gives nothing and cannot wait is asked again after so many milliseconds, and so
    // often: about as long as devices wait by default.
    constexpr int Pause = 1;
    constexpr int MaxPauses = 30000;

    const std::unique_ptr<char[]> chunk(new (std::nothrow) char[bufferSize]);
    int pauses = 0;
    while (!source->atEnd()) {
        if (!chunk || bufferSize == 0 || !source->isReadable() || !target->isWritable())
            return false;
        const qint64 count = source->read(chunk.get(), qint64(bufferSize));
        if (count < 0 || !writeChunk(target, chunk.get(), count))
            return false;
        if (count > 0) {
            pauses = 0;
        } else if (!source->waitForReadyRead(-1)) {
            if (++pauses > MaxPauses)
                return false;
            QThread::msleep(Pause);
        }
    }
    return true;
}

/// What is to be deleted at the end. It belongs to one process: fork() gives the child a copy,
/// which the child has to forget.
class DeletionList
{
public:
    static DeletionList &instance()
    {
        static constinit Lasting<DeletionList> list;
        return list.get();
    }

    DeletionList() = default;
    Q_DISABLE_COPY_MOVE(DeletionList)
    ~DeletionList()
    {
        // Asked before the lock is taken, which another thread of the parent may have held when the
        // child was made.
        if (m_process == QCoreApplication::applicationPid())
            deleteNow();
    }

    void addFile(const QString &path) { add(&m_files, path); }
    void addFolder(const QString &path) { add(&m_folders, path); }

    void deleteNow()
    {
        const std::lock_guard lock(m_mutex);
        forgetParent();
        m_folders.removeIf(&deleteFolder);
        m_files.removeIf(
            [](const QString &path) { return !QFile::exists(path) || QFile::remove(path); });
    }

private:
    void add(QList<QString> *list, const QString &path)
    {
        if (path.isEmpty())
            return;
        const std::lock_guard lock(m_mutex);
        forgetParent();
        list->append(QFileInfo(path).absoluteFilePath());
    }

    void forgetParent()
    {
        const qint64 process = QCoreApplication::applicationPid();
        if (m_process.exchange(process) != process) {
            m_files.clear();
            m_folders.clear();
        }
    }

    /// True if the folder is gone.
    static bool deleteFolder(const QString &path)
    {
        if (!QFileInfo(path).isDir())
            return true;
        // What is behind a link is to stay. With a "/" at its end the path would lead there.
        const QString name = path.endsWith(QLatin1Char('/')) ? path.chopped(1) : path;
        const QFileInfo info(name);
        if (info.isSymLink() || info.isJunction())
            return QFile::remove(name) || QDir().rmdir(name);
        return QDir(path).removeRecursively();
    }

    QList<QString> m_files;
    QList<QString> m_folders;
    std::mutex m_mutex;
    std::atomic<qint64> m_process = QCoreApplication::applicationPid();
};

} // namespace

qint64 SFileHelper::readAllBuffer(QIODevice *device, char *data, qint64 size, int timeout)
{
    if (size <= 0)
        return 0;
    if (!device || !data)
        return -1;
    qint64 count = 0;
    while (count < size) {
        if (timeout != 0 && device->bytesAvailable() == 0 && !device->waitForReadyRead(timeout))
            return -1;
        if (device->atEnd())
            break;
        const qint64 read = device->read(data + count, size - count);
        if (read < 0)
            return -1;
        if (read == 0)
            break;
        count += read;
    }
    return count;
}

QByteArray SFileHelper::readAllBuffer(QIODevice *device, qint64 size, int timeout)
{
    const int length = static_cast<int>(size);
    if (length <= 0)
        return {};
    try {
        QByteArray data(length, Qt::Uninitialized);
        if (readAllBuffer(device, data.data(), length, timeout) == length)
            return data;
    } catch (const std::bad_alloc &) {
        return {};
    }
    return {};
}

qint64 SFileHelper::writeAllBuffer(QIODevice *device, const char *data, qint64 size, int timeout)
{
    if (!device || (!data && size > 0))
        return -1;
    qint64 count = 0;
    while (count < size) {
        const qint64 written = device->write(data + count, size - count);
        if (written < 0)
            return -1;
        if (written == 0)
            break;
        count += written;
    }
    while (timeout != 0 && device->bytesToWrite() != 0) {
        if (!device->waitForBytesWritten(timeout))
            return -1;
    }
    return count;
}

bool SFileHelper::copyDevice(QIODevice *target, QIODevice *source, quint64 bufferSize)
{
    if (!target || !source)
        return false;
    const bool opensTarget = !target->isOpen();
    const bool opensSource = !source->isOpen();
    if (opensTarget)
        target->open(QIODevice::WriteOnly);
    if (opensSource)
        source->open(QIODevice::ReadOnly);

    bool success = copyOpen(target, source, bufferSize);

    // A file takes small pieces without an error and learns only later that they do not fit.
    auto *file = qobject_cast<QFileDevice *>(target);
    if (file && file->isOpen())
        success = file->flush() && success;
    if (opensTarget)
        target->close();
    if (file && opensTarget)
        success = success && file->error() == QFileDevice::NoError;
    if (opensSource)
        source->close();
    return success;
}

QString SFileHelper::uniqueEnumeratedName(const QString &fileName)
{
    const QFileInfo info(fileName);
    QString candidate = fileName;
    for (int number = 2; number < 100 && QFile::exists(candidate); ++number) {
        candidate =
            QStringLiteral("%1/%2 - %3.%4")
                .arg(info.path(), info.baseName(), QString::number(number), info.completeSuffix());
    }
    return candidate;
}

const QString &SFileHelper::deleteFileOnExit(const QString &path)
{
    DeletionList::instance().addFile(path);
    return path;
}

const QString &SFileHelper::deleteFolderOnExit(const QString &path)
{
    DeletionList::instance().addFolder(path);
    return path;
}

const QString &SFileHelper::deleteOnExit(const QString &path)
{
    const QFileInfo info(path);
    if (info.isDir())
        return deleteFolderOnExit(path);
    return info.exists() ? deleteFileOnExit(path) : path;
}

const QList<QString> &SFileHelper::deleteOnExit(const QList<QString> &paths)
{
    for (const QString &path : paths)
        deleteOnExit(path);
    return paths;
}

void SFileHelper::deleteNow()
{
    DeletionList::instance().deleteNow();
}

} // namespace Quorvex
