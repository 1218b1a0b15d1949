#include "common.h"

#include <tavex/system/procfs_p.h>

#include <fcntl.h>
#include <pwd.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

/// A path and the text of the file there; "->" before the text makes a link to it.
using File = std::pair<QByteArray, QByteArray>;

static void fill(const QTemporaryDir &root, const QList<File> &files)
{
    for (const auto &[name, text] : files) {
        const QString path = root.path() + string(name);
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        const bool isLink = text.startsWith("->");
        QVERIFY2(isLink ? QFile::link(string(text.mid(2)), path) : putFile(path, text), name);
    }
}

class TestProcfs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Each row of the file is a name, the processors and the memory that the limits leave, and then
    // the lines of a root's files.
    void controlGroups()
    {
        const QString rows = string(contentOf(QFINDTESTDATA("controlgroups.txt"))).trimmed();
        for (const QString &row : rows.split("\n\n"_s)) {
            const QStringList lines = row.split(u'\n');
            const QStringList head = lines.at(0).split(" | "_s);
            const QTemporaryDir root;
            QMap<QByteArray, QByteArray> files;
            for (const QString &line : lines.mid(1)) {
                const QString text =
                    line.section(": "_s, 1).replace("PID"_s, QString::number(getpid()));
                files[line.section(": "_s, 0, 0).toLatin1()] += text.toLatin1() + '\n';
            }
            for (const auto &[name, text] : files.toStdMap())
                fill(root, {{name, text}});
            COMPARE_ROW(head.at(0), QString::number(ProcFs::controlGroupProcessors(root.path())),
                head.at(1));
            COMPARE_ROW(
                head.at(0), QString::number(ProcFs::controlGroupMemory(root.path())), head.at(2));
        }
    }

    // The count follows the mask of the process, but is taken before a thread confines itself.
    void affinity()
    {
        cpu_set_t all;
        cpu_set_t one{};
        QCOMPARE(sched_getaffinity(0, sizeof(all), &all), 0);
        CPU_SET(sched_getcpu(), &one);
        QCOMPARE(sched_setaffinity(0, sizeof(one), &one), 0);
        QCOMPARE(Platform::affinityProcessors(), 1);
        const int quota = ProcFs::controlGroupProcessors();
        QCOMPARE(SCpuInfo::threads(), qMin(CPU_COUNT(&all), quota > 0 ? quota : CPU_SETSIZE));
    }

    void topology()
    {
        const QTemporaryDir root;
        QCOMPARE(ProcFs::topology(root.path()).cores, 0);
        const QByteArray folder = "/sys/devices/system/cpu/cpu";
        QList<File> files{
            {folder + "6/online", "0\n"}, {folder + "freq/topology/thread_siblings_list", "9\n"}};
        // Two packages of two cores, the first package with two threads each; one is off.
        for (const char *siblings : {"0,4", "1,5", "2", "3", "0,4", "1,5"}) {
            const QByteArray cpu = folder + QByteArray::number(files.size() / 2 - 1) + "/topology/";
            files += {{cpu + "thread_siblings_list", siblings},
                {cpu + "core_siblings_list", siblings[0] < '2' ? "0-1,4-5" : "2-3"}};
        }
        fill(root, files);
        const auto [packages, cores] = ProcFs::topology(root.path());
        VERIFY_ALL(packages == 2, cores == 4);
    }

    void memoryAndMounts()
    {
        const QByteArray mounted =
            "22 27 0:21 / /proc rw - proc proc rw\n27 1 254:0 / / rw,relatime - ext4 /dev/vda rw\n"
            "39 41 0:39 / /mnt/hidden rw - nfs4 host:/x rw\n"
            "40 42 0:40 / /mnt/a\\040b\\134c rw shared:1 master:2 - nfs4 host:/export rw\n"
            "42 41 8:2 / /mnt rw - xfs /dev/sda2 rw\n41 27 8:1 / /mnt rw - fuse /dev/sda1 rw\n"
            "46 40 8:4 / /mnt/a\\040b\\134c/in rw - ext4 /dev/sdb rw\n"
            "47 27 8:5 / /x/y rw - ext4 /dev/sdd rw\n48 27 8:6 / /x rw - fuseblk /dev/sde rw\n"
            "43 27 0:43 / /dev/shm rw - tmpfs tmpfs rw\n44 27 0:44 / /devs rw - tmpfs tmp\\04 rw\n"
            "45 27 8:3 / /cut rw - ext4 /dev/sdc\nbroken\n";
        const QTemporaryDir root;
        fill(root,
            {{"/proc/meminfo", "MemTotal:  24684092 kB\nMemFree: 1 kB\nMemAvailable:\t7 kB\n"},
                {"/proc/self/status", "Name:\tx\nVmRSS:\t    2136 kB\nRssAnon:\t 144 kB\n"},
                {"/proc/self/mountinfo", mounted}});
        const auto [total, available, processUse] = ProcFs::memory(root.path());
        VERIFY_ALL(total == 25276510208, available == 7168, processUse == 2187264);
        QStringList listed;
        for (const auto &mount : ProcFs::storageMounts(ProcFs::mounts(root.path())))
            listed += mount.point + string(mount.isLocal ? " " : " far ") + mount.type + u' '
                + mount.source;
        QCOMPARE(listed.join(u'\n'),
            "/ ext4 /dev/vda\n/devs tmpfs tmp\\04\n/x fuseblk /dev/sde\n"
            "/mnt xfs /dev/sda2\n/mnt/a b\\c far nfs4 host:/export\n"
            "/mnt/a b\\c/in far ext4 /dev/sdb"_s);
        QVERIFY(ProcFs::mounts(root.path() + "/none"_s).isEmpty());
    }

    // The mount that does not answer is a folder here: what lies in it must not be looked at.
    void mountOfPath()
    {
        const QTemporaryDir root;
        const QString top = QDir(root.path()).canonicalPath();
        const QByteArray at = " 0:1 / " + top.toLatin1();
        fill(root,
            {{"/dir/f", ""}, {"/net/f", ""}, {"/net-but-not", ""}, {"/usb/f", ""}, {"/file", ""},
                {"/relative", "->dir/../net/gone"}, {"/loop", "->loop"}, {"/usb/up", "->../dir"},
                {"/absolute", "->" + top.toLatin1() + "/net/gone"},
                // Nothing is listed for the root, as in a chroot.
                {"/proc/self/mountinfo",
                    "2 1" + at + "/net rw - fuse.x x rw\n3 1" + at + "/usb rw - vfat x rw\n4 2" + at
                        + "/net/disk rw - xfs x rw\n"}});
        const QList<ProcFs::Mount> mounts = ProcFs::mounts(root.path());
        const File rows[] = {{"/dir", "/"}, {"/dir/none", ""}, {"/net", "/net"},
            {"/net/none/../../dir", "/net"}, {"/net-but-not", "/"}, {"/relative", "/net"},
            {"/absolute/x", "/net"}, {"/dir/../usb/.", "/usb"}, {"/loop", ""}, {"/file/x", ""},
            {"/usb/up", "/"}, {"/usb/up/../dir", "/"}, {"/net/./disk/x", "/net/disk"},
            {QByteArray("/dir\0x", 6), ""}};
        for (const auto &[path, point] : rows) {
            const auto *mount = ProcFs::mountOf(top + QString::fromLatin1(path), mounts);
            const QString found =
                mount ? mount->point.mid(mount->type.isEmpty() ? 0 : top.size()) : QString();
            QCOMPARE(path + ' ' + found.toLatin1(), path + ' ' + point);
            QVERIFY2(!mount || mount->isLocal != point.startsWith("/net"), path);
        }
        for (const auto &[types, isLocal] :
            {std::pair(" nf nfs fuse fuse.ext4 9p virtiofs autofs", false),
                {"fuseblk.x zfs", true}})
            for (const QString &type : string(types).split(u' '))
                QVERIFY2(ProcFs::isLocalType(type) == isLocal, qPrintable(type));
    }

    // The program behind this file system never answers.
    void silentMount()
    {
        const QTemporaryDir folder;
        const QByteArray path = folder.path().toLocal8Bit();
        const int device = open("/dev/fuse", O_RDWR | O_CLOEXEC);
        const QByteArray options =
            "rootmode=40000,user_id=0,group_id=0,fd=" + QByteArray::number(device);
        if (device < 0 || unshare(CLONE_NEWNS) != 0
            || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
            || mount("/dev/x", path.constData(), "fuse.silent", 0, options.constData()) != 0)
            QSKIP("Needs the right to mount");
        alarm(60); // Ends the program if it waits.
        for (const char *name : {"", "/x/../y"}) {
            SStorageInfo info(folder.path() + string(name));
            QCOMPARE(info.rootPath(), folder.path());
            VERIFY_ALL(!info.isLocal(), !info.eject(), !SDir(info.path()).isLocal());
        }
        alarm(0);
        close(device);
        umount2(path.constData(), MNT_DETACH);
    }

    // Such an account has no name for people.
    void namelessUser()
    {
        const passwd *account = getpwent();
        while (account && *account->pw_gecos)
            account = getpwent();
        if (geteuid() != 0 || !account)
            QSKIP("Needs the right to be another user");
        QCOMPARE(setreuid(account->pw_uid, 0), 0);
        const QString name = Platform::userDisplayName();
        QCOMPARE(setreuid(0, 0), 0);
        QCOMPARE(name, QString());
    }

    void removableDrives()
    {
        const QTemporaryDir root;
        fill(root,
            {{"/dev/sda1", ""}, {"/dev/sdb1", ""}, {"/dev/sr0", ""}, {"/dev/cdrom", "->sr0"},
                {"/sys/a/sda/sda1/partition", "1\n"}, {"/sys/a/sda/removable", "0\n"},
                {"/sys/b/sdb/sdb1/partition", "1\n"}, {"/sys/b/sdb/removable", "1\n"},
                {"/sys/c/sr0/removable", "1\n"}, {"/sys/class/block/sda1", "->../../a/sda/sda1"},
                {"/sys/class/block/sdb1", "->../../b/sdb/sdb1"},
                {"/sys/class/block/sr0", "->../../c/sr0"}});
        for (const auto &[device, drive] :
            {File("/dev/sdb1", "/dev/sdb"), File("/dev/cdrom", "/dev/sr0"), File("/dev/sda1", ""),
                File("/dev/none", ""), File("tmpfs", ""), File("", ""), File("host:/x", "")})
            QCOMPARE(ProcFs::removableDrive(string(device), root.path()).toLatin1(), drive);
    }
};

QTEST_APPLESS_MAIN(TestProcfs)
#include "tst_procfs.moc"
