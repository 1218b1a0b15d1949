#include <tavex/system/platform_p.h>

#include <tavex/system/procfs_p.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QStringBuilder>
#include <QStringList>
#include <QSysInfo>
#include <QUuid>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <linux/cdrom.h>
#include <pthread.h>
#include <pwd.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Quorvex::Platform {
namespace {

constexpr int MaxProcessors = 1 << 20;
constexpr std::size_t ChunkSize = 1 << 30;

int onlineProcessors()
{
    return static_cast<int>(qBound(1L, sysconf(_SC_NPROCESSORS_ONLN), long{MaxProcessors}));
}

Volume toVolume(const ProcFs::Mount &mount)
{
    return {mount.point, mount.type, mount.source, mount.isLocal};
}

/// Asks the disk service to do what this user may not do directly.
bool askDiskService(const QString &action, const QString &device)
{
    const QString program = findProgram(QStringLiteral("udisksctl"));
    if (program.isEmpty())
        return false;
    QProcess process;
    process.start(
        program, {action, QStringLiteral("--no-user-interaction"), QStringLiteral("-b"), device});
    if (!process.waitForFinished()) {
        process.kill(); // QProcess logs if it is destroyed while the program runs.
        process.waitForFinished();
        return false;
    }
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

/// An open file; -1 if there is none.
class Descriptor
{
public:
    Descriptor(const QString &path, int flags, mode_t mode = 0)
        : Descriptor(AT_FDCWD, QFile::encodeName(path), flags, mode)
    {
    }
    Descriptor(int folder, const QByteArray &name, int flags, mode_t mode = 0)
        : m_number(openat(folder, name.constData(), flags | O_CLOEXEC, mode))
    {
    }
    Q_DISABLE_COPY_MOVE(Descriptor)
    ~Descriptor()
    {
        if (m_number >= 0)
            close(m_number);
    }

    operator int() const noexcept { return m_number; }
    int release() noexcept { return std::exchange(m_number, -1); }

private:
    int m_number;
};

/// The absolute form of \a path; empty for an empty one, or if the current folder was removed. It
/// is not cleaned: where ".." leads is known only once the links before it are followed.
QString absolute(const QString &path)
{
    if (path.isEmpty() || path.startsWith(QLatin1Char('/')))
        return path;
    const QString current = QDir::currentPath();
    return current.isEmpty() ? QString() : current + QLatin1Char('/') + path;
}

struct Account
{
    QString name;
    QString description; ///< The field "gecos".
};

Account accountOf(uid_t user)
{
    passwd account{};
    passwd *found = nullptr;
    std::vector<char> buffer(1024);
    while (getpwuid_r(user, &account, buffer.data(), buffer.size(), &found) == ERANGE
        && buffer.size() < 1 << 20)
        buffer.resize(buffer.size() * 2);
    if (!found)
        return {};
    return {QString::fromLocal8Bit(found->pw_name), QString::fromLocal8Bit(found->pw_gecos)};
}

/// The folders in which the shell looks for programs. An empty one is the current folder.
QStringList programFolders()
{
    QString folders = qEnvironmentVariable("PATH");
    if (!qEnvironmentVariableIsSet("PATH")) {
        std::array<char, 256> preset{};
        confstr(_CS_PATH, preset.data(), preset.size());
        folders = QString::fromLocal8Bit(preset.data());
    }
    return folders.split(QLatin1Char(':'));
}

bool isDirectory(const QString &path)
{
    struct stat status;
    return stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// Opens a file to read it. Does not wait at a FIFO that nobody writes to.
Descriptor openForReading(const QString &path)
{
    return {path, O_RDONLY | O_NONBLOCK | O_NOCTTY};
}

bool isFile(int file)
{
    struct stat status;
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

/// False if the system reports that something written to \a file was lost. Some file systems report
/// a full disk only at close(). Closing a copy of the descriptor reports it too, and leaves the
/// file open and locked.
bool hasArrived(int file)
{
    const int copy = fcntl(file, F_DUPFD_CLOEXEC, 0);
    return copy >= 0 && close(copy) == 0;
}

/// Gives \a file a name. False if something has that name already.
bool giveName(int file, int folder, const QByteArray &name)
{
    if (linkat(file, "", folder, name.constData(), AT_EMPTY_PATH) == 0)
        return true;
    // Before Linux 6.10 only the administrator may do that.
    return errno == ENOENT
        && linkat(AT_FDCWD, ("/proc/self/fd/" + QByteArray::number(file)).constData(), folder,
               name.constData(), AT_SYMLINK_FOLLOW)
        == 0;
}

/// Makes newFilesFolder() and calls \a make with the open folder and a unique name, to make a file
/// there. Returns the path of the file; empty if that failed.
template <typename Make>
QString makeNamed(const QString &directory, const Make &make)
{
    // Another writer removes the folder when it finds it empty, which it is until this one has put
    // its file there. Then this one tries again.
    constexpr int MaxTries = 1000;

    const QString folderPath = newFilesFolder(directory);
    const QByteArray nativePath = QFile::encodeName(folderPath);
    for (int i = 0; i < MaxTries; ++i) {
        const bool isMade = mkdir(nativePath.constData(), 0777) == 0;
        if (!isMade && errno != EEXIST)
            return {};
        const Descriptor folder(AT_FDCWD, nativePath, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
        if (folder < 0) {
            // Something else has the name. A link is removed and not followed: its target is not
            // the cache's.
            if (errno == ENOTDIR || errno == ELOOP)
                unlink(nativePath.constData());
            else if (errno != ENOENT)
                break;
            continue;
        }
        // Whoever may write to the directory has to be able to write to the folder.
        struct stat status;
        if (isMade && stat(QFile::encodeName(directory).constData(), &status) == 0
            && (status.st_mode & (S_IWGRP | S_IWOTH)) != 0)
            (void)fchmod(folder, status.st_mode & 0777);
        const QByteArray name = QUuid::createUuid().toByteArray(QUuid::WithoutBraces);
        if (make(folder, name))
            return folderPath % QLatin1Char('/') % QLatin1String(name);
        if (errno != ENOENT)
            break;
    }
    const int error = errno;
    rmdir(nativePath.constData());
    errno = error;
    return {};
}

/// Locks \a file. False if another process has locked it, or if its file system has no locks.
bool lock(int file)
{
    return flock(file, LOCK_EX | LOCK_NB) == 0;
}

/// Removes what can be removed from the folder that \a file has open, and closes it. Every name is
/// looked up in an open folder and no link is followed, so nobody can lead this elsewhere by
/// replacing a folder with a link.
void emptyFolder(int file)
{
    DIR *const folder = fdopendir(file);
    if (!folder) {
        if (file >= 0)
            close(file);
        return;
    }
    while (const dirent *const entry = readdir(folder)) {
        const char *const name = entry->d_name;
        if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0
            || unlinkat(file, name, 0) == 0)
            continue;
        emptyFolder(openat(file, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        unlinkat(file, name, AT_REMOVEDIR);
    }
    closedir(folder);
}

} // namespace

QString windowsText(WindowsText)
{
    return {};
}

QString temporaryFolder()
{
    for (const QString &folder :
        {qEnvironmentVariable("TMPDIR"), QStringLiteral("/tmp"), QStringLiteral("/var/tmp")}) {
        if (folder.startsWith(QLatin1Char('/')) && QFileInfo(folder).isDir())
            return QDir(folder).canonicalPath();
    }
    return {};
}

QString runtimeFolder()
{
    // The same path as that of QStandardPaths, which would make the folder and log what is wrong.
    QString path = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!path.startsWith(QLatin1Char('/'))) {
        const QString temporary = temporaryFolder();
        if (temporary.isEmpty())
            return {};
        path = temporary + QLatin1String("/runtime-") + accountOf(geteuid()).name;
    }
    struct stat status;
    if (lstat(QFile::encodeName(path).constData(), &status) != 0)
        return path;
    const bool isPrivate =
        S_ISDIR(status.st_mode) && status.st_uid == geteuid() && (status.st_mode & 0777) == 0700;
    return isPrivate ? path : QString();
}

QString colorFolder()
{
    return QStandardPaths::locate(QStandardPaths::GenericDataLocation, QStringLiteral("color/icc"),
        QStandardPaths::LocateDirectory);
}

QString userDisplayName()
{
    // Office and telephone numbers follow the name, each behind a comma.
    return accountOf(getuid()).description.section(QLatin1Char(','), 0, 0);
}

QString absolutePath(const QString &path)
{
    const QLatin1Char slash('/');
    if (path.isEmpty() || path.contains(QChar::Null))
        return {};
    QString result =
        absolute(QFileInfo(path).filePath()); // Replaces a prefix that QDir::searchPaths() knows.
    while (result.size() > 1 && (result.endsWith(slash) || result.endsWith(QLatin1String("/."))))
        result.chop(1);
    return result;
}

bool linkDirectory(const QString &link, const QString &folder)
{
    // A relative target would count from the folder that the link is in.
    const QByteArray target = QFile::encodeName(absolutePath(folder));
    const QByteArray name = QFile::encodeName(absolutePath(link));
    return !target.isEmpty() && symlink(target.constData(), name.constData()) == 0;
}

bool removeFolder(const QString &path)
{
    // rmdir() refuses a path that ends in "..".
    const QByteArray name = QFile::encodeName(QFileInfo(path).canonicalFilePath());
    if (name.isEmpty() || name == "/")
        return false;
    emptyFolder(open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    return rmdir(name.constData()) == 0;
}

void callInChildren(void (*call)())
{
    (void)pthread_atfork(nullptr, nullptr, call);
}

std::optional<QByteArray> readFile(const QString &path)
{
    const Descriptor file = openForReading(path);
    // lseek() takes half as long as fstat(). Of what is no regular file, only a disk has a size.
    constexpr off_t SmallestDisk = 1 << 18;
    const off_t size = lseek(file, 0, SEEK_END);
    if (size < 0 || (size >= SmallestDisk && !isFile(file)))
        return std::nullopt;
    try {
        QByteArray data(size, Qt::Uninitialized);
        for (off_t done = 0; done < size;) {
            const ssize_t count =
                pread(file, data.data() + done, static_cast<std::size_t>(size - done), done);
            if (count == 0 || (count < 0 && errno != EINTR))
                return std::nullopt;
            done += qMax(count, ssize_t{0});
        }
        return data;
    } catch (const std::bad_alloc &) {
        return std::nullopt;
    }
}

bool makePrivateDirectory(const QString &path)
{
    if (path.contains(QChar::Null)) {
        errno = EINVAL;
        return false;
    }
    const auto make = [&] { return mkdir(QFile::encodeName(path).constData(), 0700) == 0; };
    if (make())
        return true;
    if (errno == ENOENT) {
        // QDir::mkpath() would take "link/.." for the folder that the link is in.
        qsizetype end = path.size();
        while (end > 1 && path.at(end - 1) == QLatin1Char('/'))
            --end;
        const qsizetype slash = path.lastIndexOf(QLatin1Char('/'), end - 1);
        if (slash > 0 && makePrivateDirectory(path.left(slash)) && make())
            return true;
    }
    return isDirectory(path);
}

bool openFile(QFile &file, const QString &path)
{
    Descriptor source = openForReading(path);
    if (!isFile(source) || !file.open(source, QIODevice::ReadOnly, QFile::AutoCloseHandle))
        return false;
    source.release();
    return true;
}

QString findProgram(const QString &name)
{
    if (name.isEmpty() || name.contains(QChar::Null))
        return {};
    const bool isPath = name.contains(QLatin1Char('/'));
    for (QString path : isPath ? QStringList{QString()} : programFolders()) {
        if (!path.isEmpty() && !path.endsWith(QLatin1Char('/')))
            path += QLatin1Char('/');
        path = absolute(path + name);
        const QFileInfo file(path);
        if (file.isFile() && file.isExecutable())
            return path;
    }
    return {};
}

NewFile::~NewFile()
{
    if (!m_path.isEmpty()) {
        unlink(QFile::encodeName(m_path).constData());
        rmdir(QFile::encodeName(newFilesFolder(m_directory)).constData());
    }
    if (m_file >= 0)
        close(static_cast<int>(m_file));
}

bool NewFile::create(const QString &directory)
{
    m_directory = directory;
    m_file = Descriptor(directory, O_RDWR | O_TMPFILE, 0666).release();
    return m_file >= 0 || createNamed();
}

bool NewFile::createNamed()
{
    m_path = makeNamed(m_directory, [&](int folder, const QByteArray &name) {
        Descriptor file(folder, name, O_WRONLY | O_CREAT | O_EXCL, 0666);
        if (file < 0)
            return false;
        // removeAbandonedFiles() of another process may have removed it before it was locked.
        struct stat status;
        const bool isRemoved = (!lock(file) && errno == EWOULDBLOCK)
            || (fstat(file, &status) == 0 && status.st_nlink == 0);
        if (isRemoved) {
            errno = ENOENT;
            return false;
        }
        m_file = file.release();
        return true;
    });
    return !m_path.isEmpty();
}

/// For file systems that make files without a name but cannot give them one later.
bool NewFile::copyNamed()
{
    const int nameless = static_cast<int>(std::exchange(m_file, -1));
    ssize_t count = -1;
    if (createNamed()) {
        off_t offset = 0;
        do {
            count = sendfile(static_cast<int>(m_file), nameless, &offset, ChunkSize);
        } while (count > 0 || (count < 0 && errno == EINTR));
    }
    close(nameless);
    return count == 0 && hasArrived(static_cast<int>(m_file));
}

bool NewFile::write(const QByteArray &data) const
{
    for (qsizetype done = 0; done < data.size();) {
        const ssize_t count = ::write(static_cast<int>(m_file), data.constData() + done,
            static_cast<std::size_t>(data.size() - done));
        if (count < 0 && errno != EINTR)
            return false;
        done += qMax(count, ssize_t{0});
    }
    return true;
}

bool NewFile::open(QFile &device) const
{
    return device.open(static_cast<int>(m_file), QIODevice::WriteOnly);
}

bool NewFile::moveTo(const QString &path)
{
    const QByteArray target = QFile::encodeName(path);
    const int file = static_cast<int>(m_file);
    if (!hasArrived(file))
        return false;
    if (m_path.isEmpty()) {
        if (giveName(file, AT_FDCWD, target))
            return true;
        // linkat() does not replace what is there, rename() does.
        if (errno == EEXIST) {
            (void)lock(file);
            m_path = makeNamed(m_directory,
                [&](int folder, const QByteArray &name) { return giveName(file, folder, name); });
        }
        if (m_path.isEmpty() && !copyNamed())
            return false;
    }
    if (rename(QFile::encodeName(m_path).constData(), target.constData()) != 0)
        return false;
    m_path.clear();
    rmdir(QFile::encodeName(newFilesFolder(m_directory)).constData());
    return true;
}

void removeAbandonedFiles(const QString &directory)
{
    const QString path = newFilesFolder(directory);
    Descriptor file(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    const std::unique_ptr<DIR, int (*)(DIR *)> folder(fdopendir(file), &closedir);
    if (!folder)
        return;
    const int number = file.release(); // closedir() closes it.
    while (const dirent *entry = readdir(folder.get())) {
        const char *const name = entry->d_name;
        struct stat status;
        if (fstatat(number, name, &status, AT_SYMLINK_NOFOLLOW) != 0 || S_ISDIR(status.st_mode))
            continue;
        if (S_ISREG(status.st_mode)) {
            const Descriptor left(number, name, O_RDWR | O_NOFOLLOW | O_NONBLOCK);
            if (left >= 0 && lock(left))
                unlinkat(number, name, 0);
        } else {
            unlinkat(number, name, 0);
        }
    }
    rmdir(QFile::encodeName(path).constData());
}

bool isKernel64Bit()
{
    const QString machine = QSysInfo::currentCpuArchitecture();
    return QSysInfo::WordSize == 64 || machine.contains(QLatin1String("64"));
}

int affinityProcessors()
{
    // The kernel refuses a mask that is too small for the machine. This asks for the mask of the
    // main thread: the calling thread may have restricted itself.
    for (int size = 1024; size <= MaxProcessors; size *= 2) {
        const std::unique_ptr<cpu_set_t, void (*)(cpu_set_t *)> set(
            CPU_ALLOC(size), [](cpu_set_t *s) { CPU_FREE(s); });
        if (!set)
            break;
        const std::size_t bytes = CPU_ALLOC_SIZE(size);
        if (sched_getaffinity(getpid(), bytes, set.get()) == 0)
            return qMax(CPU_COUNT_S(bytes, set.get()), 1);
        if (errno != EINVAL)
            break;
    }
    return onlineProcessors();
}

int quotaProcessors()
{
    return ProcFs::controlGroupProcessors();
}

qint64 memoryLimit()
{
    return ProcFs::controlGroupMemory();
}

ProcessorTopology processorTopology()
{
    const ProcessorTopology told = ProcFs::topology();
    if (told.cores > 0 && told.packages > 0)
        return told;
    return {1, onlineProcessors()};
}

Memory memory()
{
    return ProcFs::memory();
}

Volume volumeOf(const QString &path)
{
    const QList<ProcFs::Mount> mounts = ProcFs::mounts();
    const ProcFs::Mount *mount = ProcFs::mountOf(absolute(path), mounts);
    return mount ? toVolume(*mount) : Volume();
}

QList<Volume> volumes()
{
    QList<Volume> list;
    for (const ProcFs::Mount &mount : ProcFs::storageMounts(ProcFs::mounts()))
        list.append(toVolume(mount));
    return list;
}

bool ejectVolume(const Volume &volume)
{
    const QString drive = volume.isLocal ? ProcFs::removableDrive(volume.device) : QString();
    if (drive.isEmpty())
        return false;
    const bool unmounted =
        umount2(QFile::encodeName(volume.rootPath).constData(), UMOUNT_NOFOLLOW) == 0
        || askDiskService(QStringLiteral("unmount"), volume.device);
    return unmounted
        && (ioctl(Descriptor(drive, O_RDONLY | O_NONBLOCK), CDROMEJECT) == 0
            || askDiskService(QStringLiteral("power-off"), drive));
}

} // namespace Quorvex::Platform
