#include <tavex/system/procfs_p.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cerrno>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
#include <utility>

#include <unistd.h>

namespace Quorvex::ProcFs {
namespace {

/// Empty if the file cannot be read.
QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Replaces the escapes of mountinfo: "\\" and three octal digits for blanks and backslashes.
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

/// The mount that holds \a path, which is absolute and without links.
const Mount *holder(const QString &path, const QList<Mount> &mounts)
{
    const Mount *found = nullptr;
    for (const Mount &mount : mounts) {
        if (isWithin(path, mount.point) && (!found || mount.point.size() > found->point.size()))
            found = &mount;
    }
    return found;
}

/// The mounts of \a listed that no later one hides. Walks down from the root, as the kernel does.
QList<Mount> reachable(const QList<Mount> &listed)
{
    // Where the parent of a mount is not listed, the root of the process stands for it.
    constexpr int Top = -1;
    const QString root = QStringLiteral("/");
    QSet<int> ids;
    for (const Mount &mount : listed)
        ids.insert(mount.id);
    std::multimap<std::pair<int, QString>, Mount> children; // By parent and point, sorted.
    for (const Mount &mount : listed) {
        const bool isTop = mount.parent == mount.id || !ids.contains(mount.parent);
        children.emplace(std::pair(isTop ? Top : mount.parent,
                             mount.point == root ? root : mount.point + QLatin1Char('/')),
            mount);
    }

    QList<Mount> found;
    QList<Mount> pending{{Top, Top, root, root, {}, {}, {}}};
    while (!pending.isEmpty()) {
        Mount mount = pending.takeFirst(); // Its isLocal is that of its parent.
        auto child = children.lower_bound({mount.id, {}});
        const auto isChild = [&] {
            return child != children.end() && child->first.first == mount.id;
        };
        if (!isChild() || child->second.point != mount.point) {
            mount.isLocal = mount.isLocal && (mount.id == Top || isLocalType(mount.type));
            found.append(mount);
        }
        QString last; // Hides the points within it.
        for (; isChild(); child = children.erase(child)) {
            if (!last.isEmpty() && isWithin(child->second.point, last))
                continue;
            last = child->second.point;
            pending.append(child->second);
            pending.last().isLocal = mount.isLocal;
        }
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
    const qint64 q = quota.trimmed().toLongLong(); // "max" gives 0: no limit.
    const qint64 p = period.trimmed().toLongLong();
    return q > 0 && p > 0 ? q / p + (q % p != 0) : 0;
}

/// Reads the limit of one group; 0 if it has none.
using GroupLimit = qint64(const QString &folder, bool isVersion2);

qint64 processorLimit(const QString &folder, bool isVersion2)
{
    if (isVersion2) {
        const auto fields = contents(folder + QLatin1String("/cpu.max")).split(' ');
        return quotaProcessors(fields.value(0), fields.value(1));
    }
    return quotaProcessors(contents(folder + QLatin1String("/cpu.cfs_quota_us")),
        contents(folder + QLatin1String("/cpu.cfs_period_us")));
}

qint64 memoryLimit(const QString &folder, bool isVersion2)
{
    const QLatin1String file(isVersion2 ? "/memory.max" : "/memory.limit_in_bytes");
    return contents(folder + file).trimmed().toLongLong(); // "max" gives 0.
}

qint64 lesser(qint64 a, qint64 b)
{
    return a > 0 && b > 0 ? qMin(a, b) : qMax(qMax(a, b), qint64(0));
}

/// Removes each "/.." at the beginning of \a group and returns their number.
int takeParents(QString &group)
{
    int count = 0;
    for (; group == QLatin1String("/..") || group.startsWith(QLatin1String("/../")); ++count)
        group.remove(0, 3);
    if (group == QLatin1String("/"))
        group.clear();
    return count;
}

/// Searches the folders \a depth levels below \a folder for the one whose group \a group lists this
/// process.
QString findGroup(const QString &folder, const QString &group, int depth)
{
    if (depth == 0) {
        const QString path = folder + group;
        const auto processes = contents(path + QLatin1String("/cgroup.procs")).split('\n');
        return processes.contains(QByteArray::number(getpid())) ? path : QString();
    }
    for (const QString &name :
        QDir(folder).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot)) {
        QString path = findGroup(folder + QLatin1Char('/') + name, group, depth - 1);
        if (!path.isEmpty())
            return path;
    }
    return {};
}

/// The folder of \a group, which is named as in /proc/self/cgroup, if \a mountRoot is mounted at
/// \a top. Returns \a top if it is not there, as when a process was moved out of its namespace.
QString groupFolder(const QString &top, QString mountRoot, QString group)
{
    // Both count from the root of the namespace and may lead up from there.
    const int depth = takeParents(mountRoot) - takeParents(group);
    if (depth == 0 && (mountRoot.isEmpty() || isWithin(group, mountRoot)))
        return top + group.mid(mountRoot.size());
    // Nothing tells the names of the folders between what is mounted and the namespace's root.
    const QString found = depth > 0 && mountRoot.isEmpty() ? findGroup(top, group, depth) : top;
    return found.isEmpty() ? top : found;
}

qint64 leastLimit(const QString &root, const char *controller, GroupLimit *limitOf)
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
        if (!isVersion2 && !controllers.split(',').contains(controller))
            continue;
        const auto mount = std::ranges::find_if(all, [&](const Mount &m) {
            return isVersion2 ? m.type == QLatin1String("cgroup2")
                              : m.type == QLatin1String("cgroup")
                    && m.options.split(QLatin1Char(',')).contains(QLatin1String(controller));
        });
        if (mount == all.end())
            continue;
        const QString top = root + mount->point;
        QString folder = groupFolder(top, mount->root, QFile::decodeName(line.mid(second + 1)));
        for (; folder.size() >= top.size(); folder.truncate(folder.lastIndexOf(QLatin1Char('/'))))
            least = lesser(least, limitOf(folder, isVersion2));
    }
    return least;
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
        list.append({fields.at(0).toInt(), fields.at(1).toInt(), unescaped(fields.at(3)),
            unescaped(fields.at(4)), QString::fromLatin1(fields.at(dash + 1)),
            unescaped(fields.at(dash + 2)), QString::fromLatin1(fields.at(dash + 3))});
    }
    return list.isEmpty() ? list : reachable(list);
}

bool isLocalType(const QString &type)
{
    // On disks (for fuseblk the kernel checks that); in memory; made by the kernel; laid over other
    // folders, as the roots of containers.
    static constexpr std::array types{"adfs", "affs", "apfs", "bcachefs", "befs", "bfs", "btrfs",
        "cramfs", "efs", "erofs", "exfat", "ext2", "ext3", "ext4", "f2fs", "fuseblk", "hfs",
        "hfsplus", "hpfs", "iso9660", "jffs2", "jfs", "minix", "msdos", "nilfs2", "ntfs", "ntfs3",
        "omfs", "qnx4", "qnx6", "reiser4", "reiserfs", "romfs", "squashfs", "sysv", "ubifs", "udf",
        "ufs", "umsdos", "v7", "vfat", "xfs", "yaffs2", "zfs", "zonefs", //
        "devtmpfs", "hugetlbfs", "ramfs", "rootfs", "tmpfs",             //
        "binder", "binfmt_misc", "bpf", "cgroup", "cgroup2", "configfs", "cpuset", "debugfs",
        "devpts", "efivarfs", "functionfs", "fusectl", "mqueue", "nsfs", "proc", "pstore",
        "resctrl", "securityfs", "selinuxfs", "smackfs", "sysfs", "tracefs", //
        "aufs", "ecryptfs", "overlay", "shiftfs"};
    return std::ranges::any_of(types, [&](const char *local) {
        return type == QLatin1String(local);
    }) || type.startsWith(QLatin1String("fuseblk."));
}

const Mount *mountOf(const QString &path, const QList<Mount> &mounts)
{
    if (!path.startsWith(QLatin1Char('/')) || path.contains(QChar::Null))
        return nullptr;
    QStringList pending = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    QString resolved; // Stands for "/" when empty.
    for (int links = 0; !pending.isEmpty();) {
        const QString name = pending.takeFirst();
        if (name == QLatin1String("."))
            continue;
        if (name == QLatin1String("..")) {
            resolved.truncate(qMax(resolved.lastIndexOf(QLatin1Char('/')), qsizetype(0)));
            continue;
        }
        QString next = resolved + QLatin1Char('/') + name;
        const Mount *mount = holder(next, mounts);
        if (!mount)
            return nullptr;
        if (!mount->isLocal) {
            // Another one may be mounted within it. Mount points contain no links.
            for (const QString &part : pending) {
                if (part == QLatin1String(".."))
                    break;
                if (part != QLatin1String("."))
                    next += QLatin1Char('/') + part;
            }
            return holder(next, mounts);
        }
        const std::optional<QString> target = linkTarget(next);
        // The kernel follows at most 40 links too.
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
    std::ranges::copy_if(mounts, std::back_inserter(list), [](const Mount &mount) {
        return std::ranges::none_of(folders,
                   [&](const char *folder) { return isWithin(mount.point, QLatin1String(folder)); })
            && std::ranges::none_of(
                types, [&](const char *type) { return mount.type == QLatin1String(type); });
    });
    return list;
}

int controlGroupProcessors(const QString &root)
{
    constexpr auto Most = qint64((std::numeric_limits<int>::max)());
    return static_cast<int>(qMin(leastLimit(root, "cpu", processorLimit), Most));
}

qint64 controlGroupMemory(const QString &root)
{
    return leastLimit(root, "memory", memoryLimit);
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
    // A processor that is off has no topology.
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
    // The source of a FUSE mount is any text that its program chose, such as a misleading path.
    if (!device.startsWith(QLatin1String("/dev/")))
        return {};
    const QString real = QFileInfo(root + device).canonicalFilePath();
    const QString block =
        QFileInfo(root + QLatin1String("/sys/class/block/") + QFileInfo(real).fileName())
            .canonicalFilePath();
    if (real.isEmpty() || block.isEmpty())
        return {};
    // The folder of a partition lies in that of its drive.
    const QString drive =
        QFileInfo::exists(block + QLatin1String("/partition")) ? QFileInfo(block).path() : block;
    if (contents(drive + QLatin1String("/removable")).trimmed() != "1")
        return {};
    return QStringLiteral("/dev/") + QFileInfo(drive).fileName();
}

} // namespace Quorvex::ProcFs
