#include <tavex/system/platform_p.h>

#include <tavex/system/procfs_p.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QSysInfo>

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
#include <pwd.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Quorvex::Platform {
namespace {

constexpr int MaxProcessors = 1 << 20;

int onlineProcessors()
{
    return static_cast<int>(qBound(1L, sysconf(_SC_NPROCESSORS_ONLN), long{MaxProcessors}));
}

Volume toVolume(const ProcFs::Mount &mount)
{
    return {mount.point, mount.type, mount.source, !ProcFs::isNetworkType(mount.type)};
}

/// Lets the disk service do for a user what only the administrator may do directly.
bool askDiskService(const QString &action, const QString &device)
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("udisksctl"));
    if (program.isEmpty())
        return false;
    QProcess process;
    process.start(
        program, {action, QStringLiteral("--no-user-interaction"), QStringLiteral("-b"), device});
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit
        && process.exitCode() == 0;
}

/// An open file; -1 if there is none.
class Descriptor
{
public:
    Descriptor(const QString &path, int flags, mode_t mode = 0)
        : m_number(open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, mode))
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

/// Tells by the lock on \a file whether somebody holds it. Where a file system has no locks, every
/// file seems held.
bool lock(int file)
{
    return flock(file, LOCK_EX | LOCK_NB) == 0;
}

/// Removes what can be removed from the folder that \a file is open on, and closes it. Nobody leads
/// this elsewhere by putting a link in the place of a folder meanwhile: names count from the open
/// folder, and the last one is not followed.
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

QString commonDataFolder()
{
    return {};
}

QString colorFolder()
{
    return QStandardPaths::locate(QStandardPaths::GenericDataLocation, QStringLiteral("color/icc"),
        QStandardPaths::LocateDirectory);
}

QString commonApplicationDataText()
{
    return {};
}

QString localApplicationDataText()
{
    return {};
}

QString userDisplayName()
{
    passwd account{};
    passwd *found = nullptr;
    std::vector<char> buffer(1024);
    while (getpwuid_r(getuid(), &account, buffer.data(), buffer.size(), &found) == ERANGE
        && buffer.size() < 1 << 20)
        buffer.resize(buffer.size() * 2);
    if (!found)
        return {};
    // Office and telephone numbers follow the name, each behind a comma.
    const QString name =
        QString::fromLocal8Bit(found->pw_gecos).section(QLatin1Char(','), 0, 0).trimmed();
    return name.isEmpty() ? QString::fromLocal8Bit(found->pw_name) : name;
}

QString windowsProductName()
{
    return {};
}

QString absolutePath(const QString &path)
{
    const QLatin1Char slash('/');
    if (path.isEmpty() || path.contains(QChar::Null))
        return {};
    QString absolute = QFileInfo(path).filePath(); // With its folder for one of Qt's prefixes.
    if (!absolute.startsWith(slash)) {
        const QString current = QDir::currentPath();
        if (current.isEmpty())
            return {};
        absolute.prepend(current + slash);
    }
    while (
        absolute.size() > 1 && (absolute.endsWith(slash) || absolute.endsWith(QLatin1String("/."))))
        absolute.chop(1);
    return absolute;
}

bool linkDirectory(const QString &link, const QString &folder)
{
    // A relative text in a link would be taken from the link's own folder.
    const QByteArray target = QFile::encodeName(absolutePath(folder));
    const QByteArray name = QFile::encodeName(absolutePath(link));
    return !target.isEmpty() && symlink(target.constData(), name.constData()) == 0;
}

bool makePrivateFolder(const QString &path)
{
    return mkdir(QFile::encodeName(absolutePath(path)).constData(), 0700) == 0;
}

bool removeFolder(const QString &path)
{
    // A folder cannot be removed as "..".
    const QByteArray name = QFile::encodeName(QFileInfo(path).canonicalFilePath());
    if (name.isEmpty() || name == "/")
        return false;
    emptyFolder(open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    return rmdir(name.constData()) == 0;
}

ProcessMark::ProcessMark()
    : m_process(&m_ordinary)
{
    void *const page = mmap(
        nullptr, sizeof(m_ordinary), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (page == MAP_FAILED)
        return;
    m_process = new (page) std::atomic<qint64>(0);
    madvise(page, sizeof(m_ordinary), MADV_WIPEONFORK);
}

ProcessMark::~ProcessMark()
{
    if (m_process != &m_ordinary)
        munmap(m_process, sizeof(m_ordinary));
}

bool ProcessMark::set() noexcept
{
    const qint64 process = getpid();
    return m_process->exchange(process) == process;
}

bool ProcessMark::isSet() const noexcept
{
    return *m_process == getpid();
}

QByteArray readFile(const QString &path)
{
    const Descriptor file(path, O_RDONLY);
    const off_t size = lseek(file, 0, SEEK_END); // Half as long as fstat() takes.
    if (size < 0)
        return {};
    try {
        QByteArray data(size, Qt::Uninitialized);
        for (off_t done = 0; done < size;) {
            const ssize_t count =
                pread(file, data.data() + done, static_cast<std::size_t>(size - done), done);
            if (count == 0 || (count < 0 && errno != EINTR))
                return {};
            done += qMax(count, ssize_t{0});
        }
        return data;
    } catch (const std::bad_alloc &) {
        return {};
    }
}

NewFile::~NewFile()
{
    if (!m_path.isEmpty())
        unlink(QFile::encodeName(m_path).constData());
    if (m_file >= 0)
        close(static_cast<int>(m_file));
}

bool NewFile::create(const QString &path)
{
    Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (file < 0 || (!lock(file) && errno == EWOULDBLOCK))
        return false;
    // removeAbandonedFile() may have found it before it was locked.
    struct stat status;
    if (fstat(file, &status) != 0 || status.st_nlink == 0)
        return false;
    m_path = path;
    m_file = file.release();
    return true;
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
    // Some file systems tell only when a file is closed that there was no space for it. Closing a
    // copy tells the same, and the lock stays.
    const int copy = fcntl(static_cast<int>(m_file), F_DUPFD_CLOEXEC, 0);
    if (copy < 0 || close(copy) != 0
        || rename(QFile::encodeName(m_path).constData(), QFile::encodeName(path).constData()) != 0)
        return false;
    m_path.clear();
    return true;
}

void removeAbandonedFile(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const Descriptor file(path, O_RDWR | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0 || !lock(file))
        return;
    // By now its writer may have moved it and made another of this name. Under the lock the name
    // can no longer change hands.
    struct stat opened;
    struct stat named;
    if (fstat(file, &opened) == 0 && lstat(name.constData(), &named) == 0
        && opened.st_ino == named.st_ino && opened.st_dev == named.st_dev)
        unlink(name.constData());
}

bool isKernel64Bit()
{
    const QString machine = QSysInfo::currentCpuArchitecture();
    return QSysInfo::WordSize == 64 || machine.contains(QLatin1String("64"));
}

int affinityProcessors()
{
    // The kernel refuses a mask that is too small for the machine. The mask is that of the main
    // thread: the calling one may be confined for reasons of its own.
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
    const ProcFs::Mount *mount = ProcFs::mountOf(path, mounts);
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
    const QString drive = ProcFs::removableDrive(volume.device);
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
