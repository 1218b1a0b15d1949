#include "common.h"

using F = Quorvex::SpecialFolder;

/// Unsets the variables that folders depend on, then sets those that are named.
static void setEnvironment(const QStringList &assignments)
{
    for (const char *name : {"HOME", "TMPDIR", "XDG_CACHE_HOME", "XDG_CONFIG_DIRS",
             "XDG_CONFIG_HOME", "XDG_DATA_DIRS", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        qunsetenv(name);
    for (const QString &assignment : assignments)
        qputenv(
            qPrintable(assignment.section(u'=', 0, 0)), assignment.section(u'=', 1).toLocal8Bit());
}

class TestSEnvironment : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        const QByteArray function = QTest::currentTestFunction();
        if (function.startsWith(SSysInfo::isLinux() ? "windows" : "linux"))
            QSKIP("Folders of the other system");
        if (SSysInfo::isLinux())
            setEnvironment({});
    }

    void linuxFolders()
    {
        const std::tuple<const char16_t *, F, const char16_t *> rows[] = {
            {u"HOME=/h/数据/", F::HomeLocation, u"/h/数据"}, {u"", F::HomeLocation, u"/"},
            {u"", F::GenericDataLocation, u"/.local/share"}, {u"", F::ConfigLocation, u"/.config"},
            {u"HOME=/h XDG_DATA_HOME=/x/Ü//y/", F::GenericDataLocation, u"/x/Ü/y"},
            {u"XDG_DATA_HOME=/x/", F::AppDataLocation, u"/x/tst_senvironment"},
            {u"HOME=/h", F::DataLocation, u"/h/.local/share/tst_senvironment"},
            {u"XDG_CACHE_HOME=/c/", F::CacheLocation, u"/c/tst_senvironment"},
            {u"XDG_CONFIG_HOME=/k/", F::AppConfigLocation, u"/k/tst_senvironment"},
            {u"TMPDIR=/proc/", F::TempLocation, u"/proc"}, {u"HOME=/h", F::RootLocation, u"/"},
            {u"TMPDIR=.", F::TempLocation, u"/tmp"}, {u"TMPDIR=/none", F::TempLocation, u"/tmp"},
            {u"TMPDIR=/dev/null", F::TempLocation, u"/tmp"},
            {u"XDG_RUNTIME_DIR=/none/r", F::RuntimeLocation, u"/none/r"},
            {u"XDG_RUNTIME_DIR=/tmp", F::RuntimeLocation, u""},
            {u"XDG_DATA_HOME=/x/", F::CommonDataLocation, u"/x"},
            {u"XDG_DATA_HOME=/x XDG_DATA_DIRS=/y", F::ColorFolder, u""}};
        for (const auto &[environment, folder, path] : rows) {
            setEnvironment(QString::fromUtf16(environment).split(u' '));
            QCOMPARE(SEnvironment::getFolder(folder, false), QString::fromUtf16(path));
            if (folder != F::RootLocation)
                QCOMPARE(SEnvironment::getFolder(folder, true), QString::fromUtf16(path));
        }
    }

    void linuxNothingIsMade()
    {
        const QTemporaryDir home;
        setEnvironment({string("HOME=") + home.path(), string("XDG_DATA_DIRS=") + home.path(),
            string("TMPDIR=") + home.path()});
        const QString profiles = home.filePath(string("color/icc"));
        QVERIFY(QDir().mkpath(profiles));
        for (const bool writable : {false, true}) {
            for (int value = -1; value <= 103; ++value) {
                const QString path = SEnvironment::getFolder(static_cast<F>(value), writable);
                QCOMPARE(path, QDir::cleanPath(path));
            }
            QCOMPARE(SEnvironment::colorFolder(writable), profiles);
            const QString runtime = SEnvironment::runtimeFolder(writable);
            QVERIFY(runtime.startsWith(home.filePath(string("runtime-"))));
        }
        const auto made = QDir(home.path()).entryList(QDir::Hidden | QDir::AllEntries);
        QCOMPARE(made.join(u' '), string(". .. color"));
    }

    void windowsFolders()
    {
        const auto variable = [](const char *name) {
            return QDir::fromNativeSeparators(qEnvironmentVariable(name));
        };
        QCOMPARE(SEnvironment::commonDataFolder(false), variable("ProgramData"));
        QCOMPARE(SEnvironment::commonApplicationDataFolderLegacy(), variable("ProgramData"));
        QCOMPARE(SEnvironment::localApplicationDataFolderLegacy(), variable("LOCALAPPDATA"));
        QCOMPARE(SEnvironment::colorFolder(true).toLower(),
            variable("windir").toLower() + string("/system32/spool/drivers/color"));
        for (const QString &writable :
            {SEnvironment::commonDataFolder(true), SEnvironment::tempFolder(true)})
            QVERIFY2(QFileInfo(writable).isWritable(), qPrintable(writable));
    }

    void ownAndUnknown()
    {
        qputenv("USERNAME", string("Zoë").toLocal8Bit());
        QCOMPARE(SEnvironment::userName(), string("Zoë"));
        const QString full = SEnvironment::fullUserName();
        QVERIFY(!full.isEmpty() && (SSysInfo::isWindows() || !full.contains(u',')));
        QCOMPARE(SEnvironment::qtRuntimeVersionString(), string(qVersion()));
        QCOMPARE(SEnvironment::qtCompiledVersionString(), string(QT_VERSION_STR));
        QCOMPARE(SEnvironment::rawWindowsNewLine(),
            SEnvironment::rawMacNewLine() + SEnvironment::rawUnixNewLine());

        QVERIFY(SEnvironment::rootFolder(true).isEmpty());
        const auto name = &SEnvironment::getFolderDisplayName;
        QCOMPARE(name(F::RootLocation), string("Root"));
        QCOMPARE(name(F::CommonDataLocation), name(F::GenericDataLocation));
        QVERIFY(!name(F::GenericDataLocation).isEmpty() && name(F::ColorFolder).isEmpty());
        for (const int unknown : {-1, 31, 32, 99, 103, 2147483647, -2147483647}) {
            const auto folder = static_cast<F>(unknown);
            for (const bool writable : {false, true})
                QCOMPARE(SEnvironment::getFolder(folder, writable) + name(folder), QString());
        }
    }

    void temporaryNames()
    {
        const QRegularExpression name(string("^(.*)/[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}$"));
        const auto folderOf = [&](const QString &path) { return name.match(path).captured(1); };
        const auto fileName = &SEnvironment::tempUniqueFileName;
        const QString fixed = string("C:/x %1");
        QCOMPARE(folderOf(fileName(fixed)), fixed);
        QVERIFY(fileName(fixed) != fileName(fixed));
        for (const QString &blank : {QString(), string(" \t")})
            QCOMPARE(folderOf(fileName(blank)), SEnvironment::tempFolder(true));

        const QTemporaryDir parent;
        const QString deep = parent.filePath(string("Größe/子"));
        const QString made = SEnvironment::tempUniqueFolder(deep);
        QVERIFY(folderOf(made) == deep && QDir(made).exists());
        // Below a file no folder can be made.
        for (const QString &bad : {QCoreApplication::applicationFilePath(), QString(3, QChar())})
            QVERIFY(SEnvironment::tempUniqueFolder(bad).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestSEnvironment)
#include "tst_senvironment.moc"
