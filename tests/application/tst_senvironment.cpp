#include <tavex/SEnvironment>
#include <tavex/SSysInfo>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

using Quorvex::SEnvironment;
using Quorvex::SpecialFolder;
using Quorvex::SVersion;

/// The variables that folders depend on: all are unset, then those that are named are set.
class Environment
{
public:
    explicit Environment(const QStringList &assignments)
    {
        for (const char *name : Names) {
            m_saved.append(qgetenv(name));
            qunsetenv(name);
        }
        for (const QString &assignment : assignments) {
            const qsizetype sign = assignment.indexOf(QLatin1Char('='));
            qputenv(assignment.left(sign).toLatin1(), QFile::encodeName(assignment.mid(sign + 1)));
        }
    }
    Q_DISABLE_COPY_MOVE(Environment)
    ~Environment()
    {
        for (const char *name : Names) {
            const QByteArray saved = m_saved.takeFirst();
            saved.isNull() ? qunsetenv(name) : qputenv(name, saved);
        }
    }

private:
    static constexpr const char *Names[] = {"HOME", "TMPDIR", "XDG_CACHE_HOME", "XDG_CONFIG_DIRS",
        "XDG_CONFIG_HOME", "XDG_DATA_DIRS", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"};
    QByteArrayList m_saved;
};

class TestSEnvironment : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        if (QLatin1String(QTest::currentTestFunction()).startsWith(QLatin1String("linux"))
            && !Quorvex::SSysInfo::isLinux())
            QSKIP("Folders of Linux");
    }

    void linuxFolders_data()
    {
        QTest::addColumn<QStringList>("environment");
        QTest::addColumn<SpecialFolder>("folder");
        QTest::addColumn<QString>("readable");
        QTest::addColumn<QString>("writable");
        const auto row =
            [](const char *name, const char16_t *environment, SpecialFolder folder,
                const char16_t *readable, const char16_t *writable = nullptr) {
                QTest::newRow(name)
                    << QString::fromUtf16(environment).split(QLatin1Char(' '), Qt::SkipEmptyParts)
                    << folder << QString::fromUtf16(readable)
                    << QString::fromUtf16(writable ? writable : readable);
            };
        using F = SpecialFolder;
        row("home", u"HOME=/h/Zoë", F::HomeLocation, u"/h/Zoë");
        row("home with slash", u"HOME=/h/数据/", F::HomeLocation, u"/h/数据");
        row("no home", u"", F::HomeLocation, u"/");
        row("no home: data", u"", F::GenericDataLocation, u"/.local/share");
        row("no home: configuration", u"", F::ConfigLocation, u"/.config");
        row("no home: pictures", u"", F::PicturesLocation, u"/Pictures");
        row("data", u"HOME=/h XDG_DATA_HOME=/x/Ü//y/", F::GenericDataLocation, u"/x/Ü/y");
        row("application data", u"XDG_DATA_HOME=/x/", F::AppDataLocation, u"/x/tst_senvironment");
        row("local data", u"HOME=/h", F::DataLocation, u"/h/.local/share/tst_senvironment");
        row("cache", u"XDG_CACHE_HOME=/c/", F::CacheLocation, u"/c/tst_senvironment");
        row("configuration", u"XDG_CONFIG_HOME=/k/", F::AppConfigLocation, u"/k/tst_senvironment");
        row("temporary", u"TMPDIR=/proc/", F::TempLocation, u"/proc");
        row("root", u"HOME=/h", F::RootLocation, u"/", u"");
        row("common data", u"XDG_DATA_HOME=/x/", F::CommonDataLocation, u"/x");
        row("no colour profiles", u"XDG_DATA_HOME=/x XDG_DATA_DIRS=/y", F::ColorFolder, u"");
    }
    void linuxFolders()
    {
        QFETCH(QStringList, environment);
        QFETCH(SpecialFolder, folder);
        const Environment set(environment);
        QTEST(SEnvironment::getFolder(folder, false), "readable");
        QTEST(SEnvironment::getFolder(folder, true), "writable");
    }

    void linuxColourProfiles()
    {
        const QTemporaryDir data;
        QVERIFY(QDir(data.path()).mkpath(QStringLiteral("color/icc")));
        const Environment set({QStringLiteral("XDG_DATA_HOME=/none"),
            QStringLiteral("XDG_DATA_DIRS=") + data.path()});
        const QString expected = data.filePath(QStringLiteral("color/icc"));
        QCOMPARE(SEnvironment::colorFolder(false), expected);
        QCOMPARE(SEnvironment::colorFolder(true), expected);
    }

    void linuxNothingIsMade()
    {
        const QTemporaryDir home;
        const QTemporaryDir runtime; // Qt makes one if there is none.
        const Environment set({QStringLiteral("HOME=") + home.path(),
            QStringLiteral("XDG_RUNTIME_DIR=") + runtime.path()});
        QVERIFY(QFile::setPermissions(home.path(), QFile::ReadOwner | QFile::ExeOwner));
        for (int value = -1; value <= 103; ++value) {
            for (const bool writable : {false, true}) {
                const QString path =
                    SEnvironment::getFolder(static_cast<SpecialFolder>(value), writable);
                QVERIFY2(!path.contains(QLatin1Char('\\')), qPrintable(path));
                QVERIFY2(path == QLatin1String("/") || !path.endsWith(QLatin1Char('/')),
                    qPrintable(path));
            }
        }
        QVERIFY(QDir(home.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
        QCOMPARE(SEnvironment::runtimeFolder(true), runtime.path());
    }

    void shortcuts()
    {
        using E = SEnvironment;
        const Environment set({QStringLiteral("HOME=/h")});
        const std::pair<QString (*)(bool), int> table[] = {{&E::desktopFolder, 0},
            {&E::documentsFolder, 1}, {&E::fontsFolder, 2}, {&E::applicationsFolder, 3},
            {&E::musicFolder, 4}, {&E::moviesFolder, 5}, {&E::picturesFolder, 6},
            {&E::tempFolder, 7}, {&E::homeFolder, 8}, {&E::dataFolder, 9},
            {&E::appLocalDataLocation, 9}, {&E::cacheFolder, 10}, {&E::genericDataFolder, 11},
            {&E::configFolder, 13}, {&E::downloadFolder, 14}, {&E::genericCacheFolder, 15},
            {&E::genericConfigFolder, 16}, {&E::appDataLocation, 17}, {&E::appConfigLocation, 18}};
        for (const auto &[shortcut, value] : table) {
            const auto location = static_cast<QStandardPaths::StandardLocation>(value);
            QCOMPARE(shortcut(true), QStandardPaths::writableLocation(location));
            QCOMPARE(shortcut(false), QStandardPaths::standardLocations(location).value(0));
            QCOMPARE(E::getFolderDisplayName(static_cast<SpecialFolder>(value)),
                QStandardPaths::displayName(location));
        }
    }

    void ownFolders()
    {
        QCOMPARE(SEnvironment::rootFolder(false), QDir::rootPath());
        QVERIFY(SEnvironment::rootFolder(true).isEmpty());
        const auto name = &SEnvironment::getFolderDisplayName;
        QCOMPARE(name(SpecialFolder::RootLocation), QStringLiteral("Root"));
        QCOMPARE(name(SpecialFolder::CommonDataLocation), name(SpecialFolder::GenericDataLocation));
        QVERIFY(name(SpecialFolder::ColorFolder).isEmpty());
        constexpr int Max = (std::numeric_limits<int>::max)();
        for (const int unknown : {-1, 31, 32, 99, 103, Max, -Max}) {
            const auto folder = static_cast<SpecialFolder>(unknown);
            QVERIFY(SEnvironment::getFolder(folder, false).isEmpty());
            QVERIFY(SEnvironment::getFolder(folder, true).isEmpty());
            QVERIFY(name(folder).isEmpty());
        }
    }

    void linuxUser()
    {
        QVERIFY(SEnvironment::commonApplicationDataFolderLegacy().isEmpty());
        QVERIFY(SEnvironment::localApplicationDataFolderLegacy().isEmpty());
        qputenv("USERNAME", QStringLiteral("Zoë").toLocal8Bit());
        QCOMPARE(SEnvironment::userName(), QStringLiteral("Zoë"));
        QVERIFY(!SEnvironment::fullUserName().isEmpty());
        QVERIFY(!SEnvironment::fullUserName().contains(QLatin1Char(',')));
        qunsetenv("USERNAME");
        QVERIFY(SEnvironment::userName().isEmpty());
    }

    void newLines()
    {
        QCOMPARE(SEnvironment::newLine(true), QStringLiteral("\n"));
        QCOMPARE(SEnvironment::newLine(false), SEnvironment::rawUnixNewLine());
        QCOMPARE(SEnvironment::rawMacNewLine() + SEnvironment::rawUnixNewLine(),
            SEnvironment::rawWindowsNewLine());
    }

    void qtVersions()
    {
        const QString runtime = SEnvironment::qtRuntimeVersionString();
        QVERIFY(QString::fromLatin1(qVersion()).startsWith(runtime));
        QCOMPARE(runtime.count(QLatin1Char('.')), 2);
        QVERIFY(SEnvironment::qtCompiledVersion() >= SVersion(6, 2, 0));
        QVERIFY(SEnvironment::qtCompiledVersion() <= SEnvironment::qtRuntimeVersion());
        QCOMPARE(SEnvironment::qtCompiledVersionString(), QStringLiteral(QT_VERSION_STR));
    }

    void temporaryNames()
    {
        static const QRegularExpression name(
            QStringLiteral("^(.*)/[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}$"));
        const auto folderOf = [](const QString &path) { return name.match(path).captured(1); };
        const QString fixed = QStringLiteral("C:/x %1");
        QCOMPARE(folderOf(SEnvironment::tempUniqueFileName(fixed)), fixed);
        for (const QString &blank : {QString(), QStringLiteral(" \t")})
            QCOMPARE(
                folderOf(SEnvironment::tempUniqueFileName(blank)), SEnvironment::tempFolder(true));
        QVERIFY(SEnvironment::tempUniqueFileName(fixed) != SEnvironment::tempUniqueFileName(fixed));

        const QTemporaryDir parent;
        const QString deep = parent.filePath(QStringLiteral("Größe/子"));
        const QString made = SEnvironment::tempUniqueFolder(deep);
        QCOMPARE(folderOf(made), deep);
        QVERIFY(QDir(made).exists());
        QFile file(parent.filePath(QStringLiteral("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(SEnvironment::tempUniqueFolder(file.fileName()).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestSEnvironment)
#include "tst_senvironment.moc"
