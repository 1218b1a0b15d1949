#include <tavex/files/sfilehelper.h>

#include <tavex/core/device_p.h>
#include <tavex/core/startup_p.h>
#include <tavex/system/platform_p.h>

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

/// Qt's words for an error without a reason.
QString unknownError()
{
    return QFile().errorString();
}

/// QIODevice::read(), but 0 where a closed socket or an ended process returns -1 at its end. For a
/// file, -1 stays an error.
qint64 readSome(QIODevice *device, char *data, qint64 size)
{
    const qint64 count = device->read(data, size);
    return count < 0 && device->atEnd() && !qobject_cast<QFileDevice *>(device) ? 0 : count;
}

/// Returns how many bytes the device took; -1 for an error.
qint64 writeWhileTaken(QIODevice *device, const char *data, qint64 size)
{
    qint64 count = 0;
    while (count < size) {
        const qint64 written = device->write(data + count, size - count);
        if (written < 0)
            return -1;
        if (written == 0)
            break;
        count += written;
    }
    return count;
}

/// Why \a device has just failed. QFile is silent on that if a part could be written.
QString reasonOf(const QIODevice *device)
{
    const auto *const file = qobject_cast<const QFileDevice *>(device);
    const QString reason = device->errorString();
    const bool isSilent = file && file->error() != QFileDevice::NoError && reason == unknownError();
    return isSilent ? qt_error_string() : reason;
}

/// Copies between two devices. Returns the one that failed, or null.
QIODevice *copyOpen(QIODevice *target, QIODevice *source, quint64 bufferSize)
{
    // A source that has no data and cannot wait is asked again: each time after so many
    // milliseconds, and in all about as long as the default timeout of devices.
    constexpr int Pause = 1;
    constexpr int MaxPauses = 30000;

    if (!source->isReadable())
        return source;
    if (!target->isWritable())
        return target;
    const std::unique_ptr<char[]> chunk(new (std::nothrow) char[bufferSize]);
    if (!chunk || bufferSize == 0) {
        char byte;
        return source->peek(&byte, 1) == 0 && source->atEnd() ? nullptr : source;
    }
    for (int pauses = 0; pauses <= MaxPauses;) {
        const qint64 count = readSome(source, chunk.get(), qint64(bufferSize));
        if (count < 0)
            return source;
        if (writeWhileTaken(target, chunk.get(), count) < 0)
            return target;
        if (count > 0) {
            pauses = 0;
        } else if (source->atEnd()) {
            // Asked only after a read: a pipe or a file in /proc is always "at its end".
            return nullptr;
        } else if (!source->waitForReadyRead(-1)) {
            ++pauses;
            QThread::msleep(Pause);
        }
    }
    return source;
}

/// What is to be deleted at the end. It belongs to one process: a child that fork() makes has a
/// copy and must forget it.
class DeletionList
{
public:
    static DeletionList &instance()
    {
        static constinit Lasting<DeletionList> list;
        return list.get();
    }

    DeletionList()
    {
        Platform::callInChildren([] { ++forks; });
    }
    Q_DISABLE_COPY_MOVE(DeletionList)
    ~DeletionList()
    {
        // In a child, another thread of the parent may have held the lock when the child was made,
        // and nobody would release it. So the lock is not taken there.
        if (m_owner == thisProcess())
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

    /// Has the number of forks as well, because a child may have the process number of its parent
    /// in a namespace of its own.
    static qint64 thisProcess() { return qint64{forks} << 32 | QCoreApplication::applicationPid(); }

    void forgetParent()
    {
        if (m_owner.exchange(thisProcess()) != thisProcess()) {
            m_files.clear();
            m_folders.clear();
        }
    }

    /// True if the file or link is gone.
    static bool deleteFile(const QString &path)
    {
        const QFileInfo info(path);
        return QFile::remove(path) || !(info.exists() || info.isSymLink());
    }

    /// True if the folder or link is gone.
    static bool deleteFolder(const QString &path)
    {
        const QFileInfo info(path);
        const bool isLink = info.isSymLink() || info.isJunction();
        if (!info.isDir() && !(isLink && !info.exists()))
            return true;
        // The target of a link stays.
        return isLink ? QFile::remove(path) || QDir().rmdir(path) : Platform::removeFolder(path);
    }

    QList<QString> m_files;
    QList<QString> m_folders;
    std::mutex m_mutex;
    std::atomic<qint64> m_owner = thisProcess();

    static constinit inline std::atomic<int> forks = 0; ///< From the first process to this one.
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
    const qint64 count = writeWhileTaken(device, data, size);
    if (count < 0)
        return -1;
    while (timeout != 0 && device->bytesToWrite() != 0) {
        if (!device->waitForBytesWritten(timeout))
            return -1;
    }
    return count;
}

bool SFileHelper::copyDevice(QIODevice *target, QIODevice *source, quint64 bufferSize)
{
    return copyDevice(target, source, bufferSize, nullptr);
}

bool SFileHelper::copyDevice(
    QIODevice *target, QIODevice *source, quint64 bufferSize, QString *errorString)
{
    QString ignored;
    QString &error = errorString ? *errorString : ignored;
    error.clear();
    if (!target || !source) {
        error = unknownError();
        return false;
    }
    // The source first: if it cannot be opened, the target is not touched.
    const bool opensSource = !source->isOpen();
    if (opensSource && !openDevice(source, QIODevice::ReadOnly)) {
        error = source->errorString();
        return false;
    }
    const bool opensTarget = !target->isOpen();
    QIODevice *failed = opensTarget && !openDevice(target, QIODevice::WriteOnly)
        ? target
        : copyOpen(target, source, bufferSize);

    // QFile buffers small pieces. That the disk is full shows only when they are flushed.
    auto *file = qobject_cast<QFileDevice *>(target);
    if (file && file->isOpen() && !file->flush() && !failed)
        failed = file;
    if (failed)
        error = reasonOf(failed); // Before it is closed, when it forgets.
    if (opensTarget && target->isOpen())
        target->close();
    if (file && opensTarget && !failed && file->error() != QFileDevice::NoError) {
        failed = file;
        error = file->errorString();
    }
    if (opensSource)
        source->close();
    return !failed;
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
        return path; // Qt would log a question about such a name, which nothing has.
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
