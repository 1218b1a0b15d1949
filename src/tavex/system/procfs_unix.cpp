#include <tavex/system/procfs_p.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <optional>

#include <unistd.h>

namespace Quorvex::ProcFs {
namespace {

/// Empty if the file cannot be read.
QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Undoes the escapes of mountinfo: three octal digits for blanks and backslashes.
QString unescaped(const QByteArray &field)
{
    const auto digit = [&](qsizetype at) {
        return at < field.size() && field[at] >= '0' && field[at] <= '7' ? field[at] - '0' : -1;
    };
    QByteArray text;
    text.reserve(field.size());
    for (qsizetype i = 0; i < field.size(); ++i) {
        const int a = digit(i + 1);
        const int b = digit(i + 2);
        const int c = digit(i + 3);
        if (field[i] == '\\' && a >= 0 && a < 4 && b >= 0 && c >= 0) {
            text.append(static_cast<char>(a << 6 | b << 3 | c));
            i += 3;
        } else {
            text.append(field[i]);
        }
    }
    return QFile::decodeName(text);
}

/// Whether \a path is \a folder or lies in it.
bool isWithin(const QString &path, const QString &folder)
{
    if (folder == QLatin1String("/"))
        return path.startsWith(QLatin1Char('/'));
    return path.startsWith(folder)
        && (path.size() == folder.size() || path.at(folder.size()) == QLatin1Char('/'));
}

/// The visible mount with the longest point that holds \a path, which is absolute and without
/// links.
const Mount *holder(const QString &path, const QList<Mount> &mounts)
{
    const Mount *found = nullptr;
    for (const Mount &mount : mounts) {
        if (isWithin(path, mount.point) && (!found || mount.point.size() >= found->point.size()))
            found = &mount;
    }
    return found;
}

/// Where the link \a path leads, an empty text if it is no link, nothing if it does not exist.
std::optional<QString> linkTarget(const QString &path)
{
    std::array<char, 4096> target;
    const ssize_t length =
        readlink(QFile::encodeName(path).constData(), target.data(), target.size());
    if (length >= 0)
        return QFile::decodeName(QByteArray(target.data(), length));
    if (errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG)
        return std::nullopt;
    return QString();
}

/// A quota of time per period as processors, rounded up; 0 if there is none.
qint64 quotaProcessors(const QByteArray &quota, const QByteArray &period)
{
    const qint64 q = quota.trimmed().toLongLong(); // "max" is 0 and thus no limit.
    const qint64 p = period.trimmed().toLongLong();
    return q > 0 && p > 0 ? q / p + (q % p != 0) : 0;
}

/// The least limit in \a group, a path below the mount point \a top, and in the groups above it.
qint64 leastLimit(const QString &top, QString group, bool isVersion2)
{
    qint64 least = 0;
    for (;;) {
        const QString folder = top + group;
        qint64 limit = 0;
        if (isVersion2) {
            const auto fields = contents(folder + QLatin1String("/cpu.max")).split(' ');
            limit = quotaProcessors(fields.value(0), fields.value(1));
        } else {
            limit = quotaProcessors(contents(folder + QLatin1String("/cpu.cfs_quota_us")),
                contents(folder + QLatin1String("/cpu.cfs_period_us")));
        }
        if (limit > 0 && (least == 0 || limit < least))
            least = limit;
        if (group.isEmpty())
            return least;
        group.truncate(qMax(group.lastIndexOf(QLatin1Char('/')), qsizetype(0)));
    }
}

/// \a group, as /proc/self/cgroup names it, below the part of the hierarchy that is mounted.
QString groupBelow(const QString &mountRoot, const QString &group)
{
    // A process that was moved out of its namespace has a group above the visible ones.
    if (group.contains(QLatin1String("/..")) || !isWithin(group, mountRoot))
        return {};
    const QString below = mountRoot == QLatin1String("/") ? group : group.mid(mountRoot.size());
    return below == QLatin1String("/") ? QString() : below;
}

/// The bytes of a line such as "MemTotal:  24684092 kB".
qint64 kilobyteLine(const QByteArray &text, const char *name)
{
    for (const QByteArray &line : text.split('\n')) {
        if (line.startsWith(name)) {
            constexpr qint64 Last = (std::numeric_limits<qint64>::max)() / 1024;
            return qBound(qint64(0), line.simplified().split(' ').value(1).toLongLong(), Last)
                * 1024;
        }
    }
    return 0;
}

} // namespace

QList<Mount> mounts(const QString &root)
{
    QList<Mount> list;
    for (const QByteArray &line :
        contents(root + QLatin1String("/proc/self/mountinfo")).split('\n')) {
        // id parent device root point options [tags...] - type source options
        const QList<QByteArray> fields = line.split(' ');
        const qsizetype dash = fields.indexOf("-", 6);
        if (dash < 0 || fields.size() < dash + 4)
            continue;
        list.append({unescaped(fields.at(3)), unescaped(fields.at(4)),
            QString::fromLatin1(fields.at(dash + 1)), unescaped(fields.at(dash + 2)),
            QString::fromLatin1(fields.at(dash + 3))});
    }
    // Where the root of the process is no mount point, as in a chroot, nothing is listed for it.
    const QString top = QStringLiteral("/");
    if (std::ranges::find(list, top, &Mount::point) == list.end())
        list.prepend({top, top, {}, {}, {}});
    return list;
}

bool isNetworkType(const QString &type)
{
    static constexpr std::array types{"9p", "acfs", "afpfs", "afs", "auristorfs", "autofs",
        "beegfs", "ceph", "cifs", "coda", "davfs", "fhgfs", "fuse.ceph", "fuse.cifs",
        "fuse.curlftpfs", "fuse.davfs", "fuse.davfs2", "fuse.gcsfuse", "fuse.glusterfs",
        "fuse.gvfsd-fuse", "fuse.juicefs", "fuse.mfs", "fuse.rclone", "fuse.s3fs", "fuse.smbnetfs",
        "fuse.sshfs", "gfs2", "glusterfs", "gpfs", "lustre", "ncp", "ncpfs", "nfs", "nfs4", "ocfs2",
        "orangefs", "panfs", "pvfs2", "smb3", "smbfs"};
    return std::ranges::any_of(
        types, [&](const char *network) { return type == QLatin1String(network); });
}

const Mount *mountOf(const QString &path, const QList<Mount> &mounts)
{
    if (path.isEmpty())
        return nullptr;
    // Not cleaned: what ".." means is only known once the links before it are followed.
    const QString absolute =
        QDir::isAbsolutePath(path) ? path : QDir::currentPath() + QLatin1Char('/') + path;
    QStringList pending = absolute.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    QString resolved; // Stands for "/" when empty.
    for (int links = 0; !pending.isEmpty();) {
        const QString name = pending.takeFirst();
        if (name == QLatin1String("."))
            continue;
        if (name == QLatin1String("..")) {
            resolved.truncate(qMax(resolved.lastIndexOf(QLatin1Char('/')), qsizetype(0)));
            continue;
        }
        const QString next = resolved + QLatin1Char('/') + name;
        const Mount *mount = holder(next, mounts);
        if (mount && isNetworkType(mount->type))
            return mount;
        const std::optional<QString> target = linkTarget(next);
        // The kernel follows no more than 40 links either.
        if (!target || (!target->isEmpty() && ++links > 40))
            return nullptr;
        if (target->isEmpty()) {
            resolved = next;
        } else {
            if (target->startsWith(QLatin1Char('/')))
                resolved.clear();
            pending = target->split(QLatin1Char('/'), Qt::SkipEmptyParts) + pending;
        }
    }
    return holder(resolved.isEmpty() ? QStringLiteral("/") : resolved, mounts);
}

QList<Mount> storageMounts(const QList<Mount> &mounts)
{
    static constexpr std::array folders{"/dev", "/proc", "/sys"};
    static constexpr std::array types{
        "autofs", "fuse.gvfsd-fuse", "fuse.portal", "nsfs", "rootfs", "rpc_pipefs"};
    QList<Mount> list;
    QSet<QString> seen;
    for (auto mount = mounts.crbegin(); mount != mounts.crend(); ++mount) {
        if (seen.contains(mount->point))
            continue;
        seen.insert(mount->point);
        const bool isSystem = std::ranges::any_of(folders, [&](const char *folder) {
            return isWithin(mount->point, QLatin1String(folder));
        }) || std::ranges::any_of(types, [&](const char *type) {
            return mount->type == QLatin1String(type);
        });
        if (!isSystem)
            list.prepend(*mount);
    }
    return list;
}

int controlGroupProcessors(const QString &root)
{
    const QList<Mount> all = mounts(root);
    qint64 least = 0;
    for (const QByteArray &line : contents(root + QLatin1String("/proc/self/cgroup")).split('\n')) {
        // id:controllers:path, where version 2 has no controllers
        const qsizetype first = line.indexOf(':');
        const qsizetype second = line.indexOf(':', first + 1);
        if (first < 0 || second < 0)
            continue;
        const QByteArray controllers = line.mid(first + 1, second - first - 1);
        const bool isVersion2 = controllers.isEmpty();
        if (!isVersion2 && !controllers.split(',').contains("cpu"))
            continue;
        const auto mount = std::ranges::find_if(all, [&](const Mount &m) {
            return isVersion2 ? m.type == QLatin1String("cgroup2")
                              : m.type == QLatin1String("cgroup")
                    && m.options.split(QLatin1Char(',')).contains(QLatin1String("cpu"));
        });
        if (mount == all.end())
            continue;
        const QString group = groupBelow(mount->root, QFile::decodeName(line.mid(second + 1)));
        const qint64 limit = leastLimit(root + mount->point, group, isVersion2);
        if (limit > 0 && (least == 0 || limit < least))
            least = limit;
    }
    return static_cast<int>(qMin(least, qint64((std::numeric_limits<int>::max)())));
}

Platform::ProcessorTopology topology(const QString &root)
{
    // Processors of one core, and of one package, have the same list of siblings.
    QSet<QByteArray> cores;
    QSet<QByteArray> packages;
    const QDir folder(root + QLatin1String("/sys/devices/system/cpu"));
    for (const QString &cpu : folder.entryList({QStringLiteral("cpu[0-9]*")}, QDir::Dirs)) {
        const QString path = folder.filePath(cpu) + QLatin1String("/topology/");
        cores.insert(contents(path + QLatin1String("thread_siblings_list")));
        packages.insert(contents(path + QLatin1String("core_siblings_list")));
    }
    // A processor that is switched off has no topology.
    cores.remove({});
    packages.remove({});
    return {static_cast<int>(packages.size()), static_cast<int>(cores.size())};
}

Platform::Memory memory(const QString &root)
{
    const QByteArray machine = contents(root + QLatin1String("/proc/meminfo"));
    const QByteArray process = contents(root + QLatin1String("/proc/self/status"));
    return {kilobyteLine(machine, "MemTotal:"), kilobyteLine(machine, "MemAvailable:"),
        kilobyteLine(process, "VmRSS:")};
}

QString removableDrive(const QString &device, const QString &root)
{
    const QString real = QFileInfo(root + device).canonicalFilePath();
    const QString block =
        QFileInfo(root + QLatin1String("/sys/class/block/") + QFileInfo(real).fileName())
            .canonicalFilePath();
    if (real.isEmpty() || block.isEmpty())
        return {};
    // A partition's folder lies in the folder of its drive.
    const QString drive =
        QFileInfo::exists(block + QLatin1String("/partition")) ? QFileInfo(block).path() : block;
    if (contents(drive + QLatin1String("/removable")).trimmed() != "1")
        return {};
    return QStringLiteral("/dev/") + QFileInfo(drive).fileName();
}

} // namespace Quorvex::ProcFs
