#include "common.h"

#include <tavex/system/procfs_p.h>

#include <sched.h>

/// A path and the text of the file there; "->" before the text makes a link to it.
using File = std::pair<QByteArray, QByteArray>;

static void fill(const QTemporaryDir &root, const QList<File> &files)
{
    for (const auto &[name, text] : files) {
        const QString path = root.path() + string(name);
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        if (text.startsWith("->"))
            QVERIFY(QFile::link(string(text.mid(2)), path));
        else
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }
}

class TestProcfs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void controlGroups()
    {
        const auto row = [](const char *name, int processors, const QByteArray &mountinfo,
                             const QByteArray &cgroup, const QList<File> &limits) {
            const QTemporaryDir root;
            fill(root, {{"/proc/self/mountinfo", mountinfo}, {"/proc/self/cgroup", cgroup}});
            fill(root, limits);
            QVERIFY2(ProcFs::controlGroupProcessors(root.path()) == processors, name);
        };
        row("nothing", 0, {}, {}, {});
        row("damaged", 0, "1 2 - x\n- - -\n", "::\n:\n0:cpu\n1:cpu:/a\n0::\n", {});

        const QByteArray mount2 = "30 23 0:26 / /cg rw shared:4 - cgroup2 cgroup2 rw\n";
        const auto version2 = [&](const char *name, int processors, const QByteArray &own,
                                  const QByteArray &above = {}, const QByteArray &top = {}) {
            row(name, processors, mount2, "0::/a/b\n",
                {{"/cg/a/b/cpu.max", own}, {"/cg/a/cpu.max", above}, {"/cg/cpu.max", top}});
        };
        version2("rounded up", 3, "200001 100000\n");
        version2("group above", 3, "800000 100000\n", "300000 100000\n");
        version2("top", 5, "max 100000", "", "500000 100000\n");
        version2("period 0", 0, "200000 0\n");
        version2("huge", 2147483647, "9223372036854775807 1");
        version2("damaged limits", 0, "x\ny", " ");
        row("outside the namespace", 4, mount2, "0::/../x\n", {{"/cg/cpu.max", "400000 100000"}});

        const auto version1 = [&](const char *name, int processors, const QByteArray &group,
                                  const QByteArray &folder, const QByteArray &quota) {
            row(name, processors,
                "33 31 0:30 / /cg/cpuset rw - cgroup cgroup rw,cpuset\n"
                "32 31 0:29 /docker/x /cg/cpu\\040a rw - cgroup cgroup rw,cpu,cpuacct\n",
                "3:cpuset:/\n1:cpu,cpuacct:" + group + "\n0::/\n",
                {{folder + "/cpu.cfs_period_us", "50000\n"},
                    {folder + "/cpu.cfs_quota_us", quota}});
        };
        version1("v1", 2, "/docker/x/y", "/cg/cpu a/y", "75000\n");
        version1("v1 without limit", 0, "/docker/x/y", "/cg/cpu a/y", "-1\n");
        version1("v1 of another container", 6, "/docker/xy", "/cg/cpu a", "300000\n");
    }

    // The count follows the mask of the process, but is taken before a thread confines itself.
    void affinity()
    {
        cpu_set_t all;
        cpu_set_t one;
        QCOMPARE(sched_getaffinity(0, sizeof(all), &all), 0);
        CPU_ZERO(&one);
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
        QVERIFY(packages == 2 && cores == 4);
    }

    void memoryAndMounts()
    {
        const QTemporaryDir root;
        fill(root,
            {{"/proc/meminfo", "MemTotal:  24684092 kB\nMemFree: 1 kB\nMemAvailable:\t7 kB\n"},
                {"/proc/self/status", "Name:\tx\nVmRSS:\t    2136 kB\nRssAnon:\t 144 kB\n"},
                {"/proc/self/mountinfo",
                    "22 27 0:21 / /proc rw - proc proc rw\n"
                    "27 1 254:0 / / rw,relatime - ext4 /dev/vda rw\n"
                    "40 27 0:40 / /mnt/a\\040b\\134c rw shared:1 master:2 - nfs4 host:/export rw\n"
                    "41 27 8:1 / /mnt rw - vfat /dev/sda1 rw\n"
                    "42 27 8:2 / /mnt rw - xfs /dev/sda2 rw\n"
                    "43 27 0:43 / /dev/shm rw - tmpfs tmpfs rw\n"
                    "44 27 0:44 / /device rw - tmpfs tmp\\04 rw\n"
                    "45 27 8:3 / /cut rw - ext4 /dev/sdc\nbroken\n"}});
        const auto [total, available, processUse] = ProcFs::memory(root.path());
        const QList<qint64> memory{total, available, processUse};
        QCOMPARE(memory, QList<qint64>({25276510208, 7168, 2187264}));
        QStringList listed;
        for (const auto &mount : ProcFs::storageMounts(ProcFs::mounts(root.path())))
            listed += mount.point + u' ' + mount.type + u' ' + mount.source;
        QCOMPARE(listed.join(u'\n'),
            string("/ ext4 /dev/vda\n/mnt/a b\\c nfs4 host:/export\n"
                   "/mnt xfs /dev/sda2\n/device tmpfs tmp\\04"));
    }

    // The dead server is a folder here: what lies in it must not be looked at.
    void mountOfPath()
    {
        const QTemporaryDir root;
        const QString top = QDir(root.path()).canonicalPath();
        fill(root,
            {{"/dir/f", ""}, {"/net/f", ""}, {"/net-but-not", ""}, {"/usb/f", ""}, {"/file", ""},
                {"/relative", "->dir/../net/gone"}, {"/loop", "->loop"}, {"/usb/up", "->../dir"},
                {"/absolute", "->" + top.toLatin1() + "/net/gone"}});
        const QList<ProcFs::Mount> mounts{{{}, string("/"), string("ext4"), {}, {}},
            {{}, top + string("/net"), string("nfs"), {}, {}},
            {{}, top + string("/usb"), string("vfat"), {}, {}}};
        const File rows[] = {{"/dir", "ext4"}, {"/dir/none", ""}, {"/net", "nfs"},
            {"/net/none/../../dir", "nfs"}, {"/net-but-not", "ext4"}, {"/relative", "nfs"},
            {"/absolute/x", "nfs"}, {"/dir/../usb/.", "vfat"}, {"/loop", ""}, {"/file/x", ""},
            {"/usb/up", "ext4"}, {"/usb/up/../dir", "ext4"}};
        for (const auto &[path, type] : rows) {
            for (const QString &folder : {top, QDir::current().relativeFilePath(top)}) {
                const auto *mount = ProcFs::mountOf(folder + string(path), mounts);
                QCOMPARE(path + ' ' + (mount ? mount->type.toLatin1() : ""), path + ' ' + type);
            }
        }
        for (const char *type : {"", "nf", "nfs5", "fuse", "fuseblk"})
            QVERIFY2(!ProcFs::isNetworkType(string(type)), type);
    }

    void removableDrives()
    {
        const QTemporaryDir root;
        fill(root,
            {{"/dev/sda1", ""}, {"/dev/sdb1", ""}, {"/dev/sr0", ""}, {"/dev/cdrom", "->sr0"},
                {"/sys/devices/a/sda/sda1/partition", "1\n"},
                {"/sys/devices/a/sda/removable", "0\n"},
                {"/sys/devices/b/sdb/sdb1/partition", "1\n"},
                {"/sys/devices/b/sdb/removable", "1\n"}, {"/sys/devices/c/sr0/removable", "1\n"},
                {"/sys/class/block/sda1", "->../../devices/a/sda/sda1"},
                {"/sys/class/block/sdb1", "->../../devices/b/sdb/sdb1"},
                {"/sys/class/block/sr0", "->../../devices/c/sr0"}});
        for (const auto &[device, drive] :
            {File("/dev/sdb1", "/dev/sdb"), File("/dev/cdrom", "/dev/sr0"), File("/dev/sda1", ""),
                File("/dev/none", ""), File("tmpfs", ""), File("", ""), File("host:/x", "")})
            QCOMPARE(ProcFs::removableDrive(string(device), root.path()).toLatin1(), drive);
    }
};

QTEST_APPLESS_MAIN(TestProcfs)
#include "tst_procfs.moc"
