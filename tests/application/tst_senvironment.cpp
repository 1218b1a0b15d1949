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
            {u"HOME=/h", F::ConfigLocation, u"/h/.config"},
            {u"HOME=/h XDG_DATA_HOME=/x/../Ü//y/", F::GenericDataLocation, u"/x/../Ü//y/"},
            {u"XDG_DATA_HOME=/x/..", F::AppDataLocation, u"/x/../tst_senvironment"},
            {u"HOME=/h", F::DataLocation, u"/h/.local/share/tst_senvironment"},
            {u"XDG_CACHE_HOME=/c", F::CacheLocation, u"/c/tst_senvironment"},
            {u"XDG_CONFIG_HOME=/k", F::AppConfigLocation, u"/k/tst_senvironment"},
            {u"TMPDIR=/proc/", F::TempLocation, u"/proc"}, {u"HOME=/h", F::RootLocation, u"/"},
            {u"TMPDIR=.", F::TempLocation, u"/tmp"}, {u"TMPDIR=/none", F::TempLocation, u"/tmp"},
            {u"TMPDIR=/dev/null", F::TempLocation, u"/tmp"},
            {u"XDG_RUNTIME_DIR=/none/r", F::RuntimeLocation, u"/none/r"},
            {u"XDG_RUNTIME_DIR=/tmp", F::RuntimeLocation, u""},
            {u"XDG_DATA_HOME=/x", F::CommonDataLocation, u"/x"},
            {u"XDG_DATA_HOME=/x XDG_DATA_DIRS=/y", F::ColorFolder, u""}};
        for (const auto &[environment, folder, path] : rows) {
            setEnvironment(QString::fromUtf16(environment).split(u' '));
            for (const bool writable : {false, folder != F::RootLocation})
                COMPARE_ROW(environment, SEnvironment::getFolder(folder, writable),
                    QString::fromUtf16(path));
        }
    }

    void linuxNothingIsMade()
    {
        const QTemporaryDir home;
        setEnvironment(
            {"HOME="_s + home.path(), "XDG_DATA_DIRS="_s + home.path(), "TMPDIR="_s + home.path()});
        const QString profiles = home.filePath("color/icc"_s);
        QVERIFY(QDir().mkpath(profiles));
        for (const bool writable : {false, true}) {
            for (int value = -1; value <= 103; ++value)
                QVERIFY(!SEnvironment::getFolder(static_cast<F>(value), writable).contains(u'\\'));
            QCOMPARE(SEnvironment::colorFolder(writable), profiles);
            const QString runtime = SEnvironment::runtimeFolder(writable);
            QVERIFY(runtime.startsWith(home.filePath("runtime-"_s)));
        }
        const auto made = QDir(home.path()).entryList(QDir::Hidden | QDir::AllEntries);
        QCOMPARE(made.join(u' '), ". .. color"_s);
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
            variable("windir").toLower() + "/system32/spool/drivers/color"_s);
        for (const QString &writable :
            {SEnvironment::commonDataFolder(true), SEnvironment::tempFolder(true)})
            QVERIFY2(QFileInfo(writable).isWritable(), qPrintable(writable));
    }

    void ownAndUnknown()
    {
        qputenv("USERNAME", "Zoë"_s.toLocal8Bit());
        QCOMPARE(SEnvironment::userName(), "Zoë"_s);
        const QString full = SEnvironment::fullUserName();
        VERIFY_ALL(!full.isEmpty(), (SSysInfo::isWindows() || !full.contains(u',')));
        QCOMPARE(SEnvironment::qtRuntimeVersionString(), string(qVersion()));
        QCOMPARE(SEnvironment::qtCompiledVersionString(), string(QT_VERSION_STR));
        QCOMPARE(SEnvironment::rawWindowsNewLine(),
            SEnvironment::rawMacNewLine() + SEnvironment::rawUnixNewLine());

        QVERIFY(SEnvironment::rootFolder(true).isEmpty());
        const auto name = &SEnvironment::getFolderDisplayName;
        QCOMPARE(name(F::RootLocation), "Root"_s);
        QCOMPARE(name(F::CommonDataLocation), name(F::GenericDataLocation));
        VERIFY_ALL(!name(F::GenericDataLocation).isEmpty(), name(F::ColorFolder).isEmpty());
        for (const int unknown : {-1, 31, 32, 99, 103, 2147483647, -2147483647}) {
            const auto folder = static_cast<F>(unknown);
            for (const bool writable : {false, true})
                QCOMPARE(SEnvironment::getFolder(folder, writable) + name(folder), QString());
        }
    }

    void temporaryNames()
    {
        const QRegularExpression name("^(.*)/[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}$"_s);
        const auto folderOf = [&](const QString &path) { return name.match(path).captured(1); };
        const auto fileName = &SEnvironment::tempUniqueFileName;
        const QString fixed = "C:/x %1"_s;
        VERIFY_ALL(folderOf(fileName(fixed)) == fixed, fileName(fixed) != fileName(fixed));
        for (const QString &blank : {QString(), " \t"_s})
            QCOMPARE(folderOf(fileName(blank)), SEnvironment::tempFolder(true));

        const QTemporaryDir parent;
        const QString deep = parent.filePath("Größe/子"_s);
        const QString made = SEnvironment::tempUniqueFolder(deep);
        VERIFY_ALL(folderOf(made) == deep, QDir(made).exists());
        const int others = SSysInfo::isWindows() ? 0 : 0x77;
        QVERIFY(!(QFileInfo(made).permissions() & QFile::Permissions(others)));
        // Below a file no folder can be made.
        for (const QString &bad : {QCoreApplication::applicationFilePath(), QString(3, QChar())})
            QVERIFY(SEnvironment::tempUniqueFolder(bad).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestSEnvironment)
#include "tst_senvironment.moc"
