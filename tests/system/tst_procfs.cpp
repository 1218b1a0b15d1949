#include <tavex/SCpuInfo>
#include <tavex/system/procfs_p.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

#include <sched.h>

using namespace Quorvex;

/// A root folder with files of given texts.
class SampleRoot
{
public:
    void add(const char *path, const char *text) const
    {
        const QFileInfo info(this->path() + QString::fromUtf8(path));
        QVERIFY(QDir().mkpath(info.path()));
        QFile file(info.filePath());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void link(const char *path, const char *target) const
    {
        QVERIFY(QFile::link(QString::fromUtf8(target), this->path() + QString::fromUtf8(path)));
    }
    [[nodiscard]] QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

using File = std::pair<const char *, const char *>;

class TestProcfs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void controlGroups_data()
    {
        QTest::addColumn<QList<File>>("files");
        QTest::addColumn<int>("processors");
        const char *mountinfo = "/proc/self/mountinfo";
        const char *cgroup = "/proc/self/cgroup";
        const File v2Mount(mountinfo, "30 23 0:26 / /cg rw shared:4 - cgroup2 cgroup2 rw\n");
        const File v2Group(cgroup, "0::/a/b\n");
        const auto v2 = [&](const char *name, const QList<File> &limits, int processors) {
            QTest::newRow(name) << QList<File>{v2Mount, v2Group} + limits << processors;
        };
        QTest::newRow("nothing") << QList<File>() << 0;
        v2("no limit", {{"/cg/a/b/cpu.max", "max 100000\n"}}, 0);
        v2("no controller", {}, 0);
        v2("whole", {{"/cg/a/b/cpu.max", "200000 100000\n"}}, 2);
        v2("rounded up", {{"/cg/a/b/cpu.max", "200001 100000\n"}}, 3);
        v2("part", {{"/cg/a/b/cpu.max", "1000 100000\n"}}, 1);
        v2("group above",
            {{"/cg/a/b/cpu.max", "800000 100000\n"}, {"/cg/a/cpu.max", "300000 100000\n"}}, 3);
        v2("top", {{"/cg/cpu.max", "500000 100000\n"}, {"/cg/a/b/cpu.max", "max 100000"}}, 5);
        v2("period 0", {{"/cg/a/b/cpu.max", "200000 0\n"}}, 0);
        v2("huge", {{"/cg/a/b/cpu.max", "9223372036854775807 1"}}, 2147483647);
        v2("damaged", {{"/cg/a/b/cpu.max", "x\ny"}, {"/cg/cpu.max", ""}}, 0);
        QTest::newRow("v2 outside the namespace")
            << QList<File>{v2Mount, {cgroup, "0::/../other\n"}, {"/cg/cpu.max", "400000 100000\n"}}
            << 4;

        const File v1Mount(mountinfo,
            "33 31 0:30 / /cg/cpuset rw - cgroup cgroup rw,cpuset\n"
            "32 31 0:29 /docker/x /cg/cpu\\040a rw - cgroup cgroup rw,cpu,cpuacct\n");
        const File v1Group(cgroup, "3:cpuset:/\n1:cpu,cpuacct:/docker/x/y\n0::/\n");
        const File period("/cg/cpu a/y/cpu.cfs_period_us", "50000\n");
        QTest::newRow("v1") << QList<File>{v1Mount, v1Group, period,
            {"/cg/cpu a/y/cpu.cfs_quota_us", "75000\n"}}
                            << 2;
        QTest::newRow("v1 without limit")
            << QList<File>{v1Mount, v1Group, period, {"/cg/cpu a/y/cpu.cfs_quota_us", "-1\n"}} << 0;
        QTest::newRow("v1 of another container") << QList<File>{v1Mount,
            {cgroup, "1:cpu:/docker/xy\n"}, {"/cg/cpu a/cpu.cfs_period_us", "100\n"},
            {"/cg/cpu a/cpu.cfs_quota_us", "600\n"}}
                                                 << 6;
        QTest::newRow("damaged") << QList<File>{{mountinfo, "1 2 - x\n- - -\n"},
            {cgroup, "::\n:\n0:cpu\n1:cpu:/a\n0::\n"}}
                                 << 0;
    }
    void controlGroups()
    {
        QFETCH(QList<File>, files);
        const SampleRoot root;
        for (const auto &[path, text] : files)
            root.add(path, text);
        QTEST(ProcFs::controlGroupProcessors(root.path()), "processors");
    }

    // The count is that of the process, and is taken before a thread confines itself.
    void affinity()
    {
        cpu_set_t mask;
        QCOMPARE(sched_getaffinity(0, sizeof(mask), &mask), 0);
        QVERIFY(SCpuInfo::threads() <= CPU_COUNT(&mask));
        QProcess child;
        child.setChildProcessModifier([&] {
            int first = 0;
            while (!CPU_ISSET(first, &mask))
                ++first;
            cpu_set_t one;
            CPU_ZERO(&one);
            CPU_SET(first, &one);
            sched_setaffinity(0, sizeof(one), &one);
        });
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--threads")});
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.readAllStandardOutput(), "1");
    }

    void topology()
    {
        const SampleRoot root;
        QCOMPARE(ProcFs::topology(root.path()).cores, 0);
        // Two packages of two cores, the first package with two threads each; one is off.
        const char *cores[] = {"0,4", "1,5", "2", "3", "0,4", "1,5"};
        for (int i = 0; i < 6; ++i) {
            const QByteArray folder =
                "/sys/devices/system/cpu/cpu" + QByteArray::number(i) + "/topology/";
            root.add((folder + "thread_siblings_list").constData(), cores[i]);
            root.add((folder + "core_siblings_list").constData(), cores[i][0] < '2' ? "0" : "2-3");
        }
        root.add("/sys/devices/system/cpu/cpu6/online", "0\n");
        root.add("/sys/devices/system/cpu/cpufreq/topology/thread_siblings_list", "9\n");
        QCOMPARE(ProcFs::topology(root.path()).cores, 4);
        QCOMPARE(ProcFs::topology(root.path()).packages, 2);
    }

    void memory()
    {
        const SampleRoot root;
        root.add("/proc/meminfo", "MemTotal:  24684092 kB\nMemFree: 1 kB\nMemAvailable:\t7 kB\n");
        root.add("/proc/self/status", "Name:\tx\nVmRSS:\t    2136 kB\nRssAnon:\t 144 kB\n");
        const Platform::Memory memory = ProcFs::memory(root.path());
        QCOMPARE(memory.total, Q_INT64_C(25276510208));
        QCOMPARE(memory.available, 7 * 1024);
        QCOMPARE(memory.processUse, 2136 * 1024);
    }

    void mountTable()
    {
        const SampleRoot root;
        root.add("/proc/self/mountinfo",
            "22 27 0:21 / /proc rw - proc proc rw\n"
            "27 1 254:0 / / rw,relatime - ext4 /dev/vda rw\n"
            "40 27 0:40 / /mnt/a\\040b\\134c rw shared:1 master:2 - nfs4 host:/export rw\n"
            "41 27 8:1 / /mnt rw - vfat /dev/sda1 rw\n"
            "42 27 8:2 / /mnt rw - xfs /dev/sda2 rw\n"
            "43 27 0:43 / /dev/shm rw - tmpfs tmpfs rw\n"
            "44 27 0:44 / /device rw - tmpfs tmpfs rw\n"
            "broken\n");
        const QList<ProcFs::Mount> all = ProcFs::mounts(root.path());
        QCOMPARE(all.size(), 7);
        QStringList listed;
        for (const ProcFs::Mount &mount : ProcFs::storageMounts(all))
            listed += mount.point + QLatin1Char(' ') + mount.source;
        QCOMPARE(listed,
            (QStringList{QStringLiteral("/ /dev/vda"), QStringLiteral("/mnt/a b\\c host:/export"),
                QStringLiteral("/mnt /dev/sda2"), QStringLiteral("/device tmpfs")}));
    }

    // The dead server is a folder here: what lies in it must not be looked at.
    void mountOfPath_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("type");
        for (const auto &[path, type] : {File("/dir", "ext4"), File("/dir/none", ""),
                 File("/net", "nfs"), File("/net/none/../../dir", "nfs"),
                 File("/net-but-not", "ext4"), File("/relative", "nfs"), File("/absolute/x", "nfs"),
                 File("/dir/../usb/.", "vfat"), File("/loop", ""), File("/file/x", ""),
                 File("/usb/up", "ext4"), File("/usb/up/../dir", "ext4")})
            QTest::newRow(path) << QString::fromLatin1(path) << QString::fromLatin1(type);
    }
    void mountOfPath()
    {
        QFETCH(QString, path);
        QFETCH(QString, type);
        const SampleRoot root;
        const QString top = QDir(root.path()).canonicalPath();
        for (const char *file : {"/dir/f", "/net/f", "/net-but-not", "/usb/f", "/file"})
            root.add(file, "");
        root.link("/relative", "dir/../net/gone");
        root.link("/absolute", qPrintable(top + QStringLiteral("/net/gone")));
        root.link("/loop", "loop");
        root.link("/usb/up", "../dir");
        const QList<ProcFs::Mount> mounts{{{}, QStringLiteral("/"), QStringLiteral("ext4"), {}, {}},
            {{}, top + QStringLiteral("/net"), QStringLiteral("nfs"), {}, {}},
            {{}, top + QStringLiteral("/usb"), QStringLiteral("vfat"), {}, {}}};
        const ProcFs::Mount *mount = ProcFs::mountOf(top + path, mounts);
        QCOMPARE(mount ? mount->type : QString(), type);
        const ProcFs::Mount *relative =
            ProcFs::mountOf(QDir::current().relativeFilePath(top) + path, mounts);
        QCOMPARE(relative, mount);
    }

    void networkTypes()
    {
        for (const char *type : {"nfs", "nfs4", "cifs", "fuse.sshfs", "autofs", "9p"})
            QVERIFY2(ProcFs::isNetworkType(QString::fromLatin1(type)), type);
        for (const char *type : {"", "ext4", "nf", "nfs5", "fuse", "fuseblk", "overlay", "tmpfs"})
            QVERIFY2(!ProcFs::isNetworkType(QString::fromLatin1(type)), type);
    }

    void directoryLink()
    {
        const QTemporaryDir top;
        QVERIFY(QDir(top.path()).mkpath(QStringLiteral("größe/in")));
        const QString folder = top.filePath(QStringLiteral("größe"));
        const QString link = top.filePath(QStringLiteral("link"));
        // Relative to where the program is, not to where the link is.
        QVERIFY(Platform::linkDirectory(link, QDir::current().relativeFilePath(folder)));
        QVERIFY(QDir(link + QStringLiteral("/in")).exists());
        QVERIFY(!Platform::linkDirectory(link, folder));
        QVERIFY(!Platform::linkDirectory(QString(), folder));
        QVERIFY(!Platform::linkDirectory(link + QStringLiteral("2"), QString()));
    }

    void removableDrives()
    {
        const SampleRoot root;
        for (const char *device : {"/dev/sda1", "/dev/sdb1", "/dev/sr0", "/dev/nodisk"})
            root.add(device, "");
        root.add("/sys/devices/a/sda/sda1/partition", "1\n");
        root.add("/sys/devices/a/sda/removable", "0\n");
        root.add("/sys/devices/b/sdb/sdb1/partition", "1\n");
        root.add("/sys/devices/b/sdb/removable", "1\n");
        root.add("/sys/devices/c/sr0/removable", "1\n");
        root.add("/sys/class/block/x", "");
        root.link("/sys/class/block/sda1", "../../devices/a/sda/sda1");
        root.link("/sys/class/block/sdb1", "../../devices/b/sdb/sdb1");
        root.link("/sys/class/block/sr0", "../../devices/c/sr0");
        root.link("/dev/cdrom", "sr0");
        const auto drive = [&](const char *device) {
            return ProcFs::removableDrive(QString::fromLatin1(device), root.path());
        };
        QCOMPARE(drive("/dev/sdb1"), QStringLiteral("/dev/sdb"));
        QCOMPARE(drive("/dev/cdrom"), QStringLiteral("/dev/sr0"));
        for (const char *fixed : {"/dev/sda1", "/dev/nodisk", "/dev/none", "tmpfs", "", "host:/x"})
            QVERIFY2(drive(fixed).isEmpty(), fixed);
    }
};

int main(int argc, char **argv)
{
    if (argc == 2 && qstrcmp(argv[1], "--threads") == 0)
        return std::printf("%d", SCpuInfo::threads()) > 0 ? 0 : 1;
    const QCoreApplication application(argc, argv);
    TestProcfs test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_procfs.moc"
