#include <tavex/files/sfilehelper.h>

#include <tavex/core/device_p.h>
#include <tavex/core/startup_p.h>
#include <tavex/system/platform_p.h>

#include <QDir>
#include <QFile>
#include <QFileDevice>
#include <QFileInfo>
#include <QThread>

#include <memory>
#include <mutex>
#include <new>

namespace Quorvex {
namespace {

/// QIODevice::read(), but 0 at the end of a device that Qt lets say -1 there: of a socket that is
/// closed or a process that has ended. Of a file, -1 is an error.
qint64 readSome(QIODevice *device, char *data, qint64 size)
{
    const qint64 count = device->read(data, size);
    return count < 0 && device->atEnd() && !qobject_cast<QFileDevice *>(device) ? 0 : count;
}

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

    if (!source->isReadable() || !target->isWritable())
        return false;
    const std::unique_ptr<char[]> chunk(new (std::nothrow) char[bufferSize]);
    if (!chunk || bufferSize == 0) {
        char byte;
        return source->peek(&byte, 1) == 0 && source->atEnd();
    }
    for (int pauses = 0; pauses <= MaxPauses;) {
        const qint64 count = readSome(source, chunk.get(), qint64(bufferSize));
        if (count < 0 || !writeChunk(target, chunk.get(), count))
            return false;
        if (count > 0) {
            pauses = 0;
        } else if (source->atEnd()) {
            // Not asked earlier: a pipe, or a file that the system makes up, always says so.
            return true;
        } else if (!source->waitForReadyRead(-1)) {
            ++pauses;
            QThread::msleep(Pause);
        }
    }
    return false;
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
        if (m_process.isSet())
            deleteNow();
    }

    void addFile(const QString &path) { add(&m_files, path); }
    void addFolder(const QString &path) { add(&m_folders, path); }

    void deleteNow()
    {
        const std::lock_guard lock(m_mutex);
        forgetParent();
        m_folders.removeIf(&deleteFolder);
        m_files.removeIf(&deleteFile);
    }

private:
    void add(QList<QString> *list, const QString &path)
    {
        const QString absolute = Platform::absolutePath(path);
        if (absolute.isEmpty())
            return;
        const std::lock_guard lock(m_mutex);
        forgetParent();
        list->append(absolute);
    }

    void forgetParent()
    {
        if (!m_process.set()) {
            m_files.clear();
            m_folders.clear();
        }
    }

    /// True if the file is gone, or the link.
    static bool deleteFile(const QString &path)
    {
        const QFileInfo info(path);
        return QFile::remove(path) || !(info.exists() || info.isSymLink());
    }

    /// True if no folder is there any more.
    static bool deleteFolder(const QString &path)
    {
        const QFileInfo info(path);
        const bool isLink = info.isSymLink() || info.isJunction();
        if (!info.isDir() && !(isLink && !info.exists()))
            return true;
        // What is behind a link is to stay.
        return isLink ? QFile::remove(path) || QDir().rmdir(path) : Platform::removeFolder(path);
    }

    QList<QString> m_files;
    QList<QString> m_folders;
    std::mutex m_mutex;
    Platform::ProcessMark m_process;
};

} // namespace

qint64 SFileHelper::readAllBuffer(QIODevice *device, char *data, qint64 size, int timeout)
{
    if (size <= 0)
        return 0;
    if (!device || !data || !device->isReadable())
        return -1;
    qint64 count = 0;
    while (count < size) {
        if (timeout != 0 && device->bytesAvailable() == 0 && !device->waitForReadyRead(timeout))
            return -1;
        const qint64 read = readSome(device, data + count, size - count);
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
    if (!device || (size > 0 && (!data || !device->isWritable())))
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
    // The source first: if there is none, the target stays as it is.
    const bool opensSource = !source->isOpen();
    if (opensSource && !openDevice(source, QIODevice::ReadOnly))
        return false;
    const bool opensTarget = !target->isOpen();
    bool success = (!opensTarget || openDevice(target, QIODevice::WriteOnly))
        && copyOpen(target, source, bufferSize);

    // A file takes small pieces without an error and learns only later that they do not fit.
    auto *file = qobject_cast<QFileDevice *>(target);
    if (file && file->isOpen())
        success = file->flush() && success;
    if (opensTarget && target->isOpen())
        target->close();
    if (file && opensTarget)
        success = success && file->error() == QFileDevice::NoError;
    if (opensSource)
        source->close();
    return success;
}

QString SFileHelper::uniqueEnumeratedName(const QString &fileName)
{
    if (fileName.contains(QChar::Null))
        return fileName;
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
    if (path.contains(QChar::Null))
        return path; // Nothing has such a name, which Qt logs when it is asked.
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
