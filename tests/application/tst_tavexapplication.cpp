#include <tavex/SLocale>
#include <tavex/TavexApplication>

#include <QDate>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Quorvex;

namespace {

const QLocale German(QLocale::German, QLocale::Germany);

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

/// What the program does when startsAgain() starts it: it adds its arguments and its folder to the
/// file that the second argument names and, the first time, starts itself once more.
int actAsChild(const QStringList &arguments)
{
    QFile log(arguments.at(2));
    if (!log.open(QIODevice::Append))
        return 1;
    const bool isFirst = log.size() == 0;
    log.write((arguments.mid(3).join(QLatin1Char('|')) + QLatin1Char('@') + QDir::currentPath()
        + QLatin1Char('\n'))
                  .toUtf8());
    log.close();
    if (!isFirst)
        return 0;
    if (arguments.at(1) == QLatin1String("--restart")) {
        TavexApplication::restart();
        return 0;
    }
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [] { TavexApplication::reboot(7); });
    timer.start(0);
    return QCoreApplication::exec();
}

} // namespace

class TestTavexApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void translationLoad()
    {
        QTranslator translator;
        const QString tavex = text("tavex");
        QVERIFY(!TavexApplication::translationLoad(&translator, QString(), German));
        QVERIFY(!TavexApplication::translationLoad(nullptr, tavex, German));
        QVERIFY(!TavexApplication::qtTranslationLoad(nullptr, tavex, German));
        QVERIFY(!TavexApplication::translationLoad(&translator, text("missing"), German));
    }

    // The earlier folder wins, down to the compiled-in catalogue.
    void searchOrder()
    {
        const QString program = TavexApplication::applicationFolder();
        const QString beside = program + text("/tavex_de.qm");
        const QString below = program + text("/translations/tavex_de.qm");
        QVERIFY(QDir().mkpath(program + text("/translations")));
        const auto cleanUp = qScopeGuard([&] {
            for (const QString &file : {beside, below}) {
                QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
                QFile::remove(file);
            }
        });
        QTranslator translator;
        const auto loaded = [&] {
            return TavexApplication::qtTranslationLoad(&translator, text("tavex"), German)
                ? translator.filePath()
                : QString();
        };
        QCOMPARE(loaded(), text(":/translations/tavex_de.qm"));
        QVERIFY(QFile::copy(text(":/translations/tavex_sv.qm"), below));
        QCOMPARE(loaded(), below);
        QVERIFY(QFile::copy(text(":/translations/tavex_sv.qm"), beside));
        QCOMPARE(loaded(), beside);
    }

    void initLoadsWhatIsRegistered()
    {
        TavexApplication::translationRegister(text("tavex"));
        TavexApplication::translationRegister(text("missing"));
        TavexApplication::init(German);
        QCOMPARE(QLocale(), German);
        const auto added = TavexApplication::translations();
        QCOMPARE(added.size(), 3); // Qt's own, then the registered ones, loaded or not.
        QCOMPARE(added.at(1)->filePath(), text(":/translations/tavex_de.qm"));
        QVERIFY(added.at(2)->isEmpty());

        TavexApplication::init(QLocale(QLocale::Polish));
        QCOMPARE(TavexApplication::translations().mid(0, 3), added);
        QCOMPARE(TavexApplication::translations().size(), 6);
    }

    void translationList()
    {
        QList<QLocale::Language> expected;
        for (const char *name : {"bg", "cs", "de", "en", "es", "fr", "it", "nl", "pl", "pt", "ru",
                 "sv", "tlh", "tr", "zh"})
            expected.append(SLocale(text(name)).locale().language());
        auto found = TavexApplication::translationList(text("tavex"));
        std::ranges::sort(found);
        std::ranges::sort(expected);
        QCOMPARE(found, expected);
        QVERIFY(TavexApplication::translationList(text("missing")).isEmpty());
    }

    void identityAndDataFolders()
    {
        const QTemporaryDir base;
        const auto guard = qScopeGuard([] { TavexApplication::infoRegister({}, {}, {}, {}, {}); });
        TavexApplication::infoRegister(
            text("App"), text("Dravelle"), text("1"), text("b"), text("c"));
        const QString folder = base.path() + text("/Dravelle/App");
        QCOMPARE(
            TavexApplication::createApplicationSubfolders(base.path() + QLatin1Char('/')), folder);
        QVERIFY(QFileInfo(folder).isDir());
        QCOMPARE(TavexApplication::createApplicationSubfolders(text("/proc/no")),
            text("/proc/no/Dravelle/App"));
        QCOMPARE(TavexApplication::applicationBuild() + TavexApplication::applicationCommit(),
            text("bc"));
        QVERIFY(TavexApplication::userApplicationDataFolder().endsWith(text("/Dravelle/App")));
    }

    void copyright()
    {
        const QString year = QString::number(QDate::currentDate().year());
        QCoreApplication::setOrganizationName(QString());
        QCOMPARE(TavexApplication::copyrightString(), text("Copyright %1.").arg(year));
        QCoreApplication::setOrganizationName(text("Dravelle Inc."));
        QCOMPARE(TavexApplication::copyrightString(2030),
            text("Copyright 2030-%1 Dravelle Inc.").arg(year));
    }

    void flags()
    {
        const auto code = [](const char *locale) {
            return TavexApplication::flagIconName(SLocale(text(locale)));
        };
        QCOMPARE(code("de_AT"), text(":/flags/svg/at.svg"));
        QCOMPARE(code("fil_PH"), text(":/flags/svg/ph.svg"));
        QCOMPARE(code("tlh"), text(":/flags/svg/tlh.svg"));
        QCOMPARE(code("C"), text(":/flags/svg/.svg"));
    }

    void startsAgain_data()
    {
        QTest::addColumn<int>("exitCode");
        QTest::newRow("--restart") << 0;
        QTest::newRow("--reboot") << 7;
    }
    void startsAgain()
    {
        QFETCH(int, exitCode);
        const QTemporaryDir folder;
        const QString logName = folder.filePath(text("log"));
        QProcess process;
        process.setWorkingDirectory(folder.path());
        process.start(QCoreApplication::applicationFilePath(),
            {text(QTest::currentDataTag()), logName, text("a b"), QString(), text("\"c\"")});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), exitCode);
        QFile log(logName);
        QVERIFY(log.open(QIODevice::ReadOnly));
        QByteArrayList lines;
        QTRY_VERIFY(log.seek(0) && (lines = log.readAll().split('\n')).size() == 3);
        QCOMPARE(lines.at(0),
            "a b||\"c\"@" + QFile::encodeName(QFileInfo(folder.path()).canonicalFilePath()));
        QCOMPARE(
            lines.at(1), "a b||\"c\"@" + QFile::encodeName(TavexApplication::applicationFolder()));
    }
};

int main(int argc, char *argv[])
{
    TavexApplication::reboot(1); // Nothing to reboot yet.
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1).startsWith(QLatin1String("--re")))
        return actAsChild(arguments);
    TestTavexApplication test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_tavexapplication.moc"
