#include "checks.h"

#include <tavex/system/platform_p.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QScopeGuard>

#include <windows.h>

/// Puts a copy of this program where the shell is looked for first: not every shell that may run
/// this test makes junctions.
class TestLinkDirectory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandLine()
    {
        const QDir folder(QCoreApplication::applicationDirPath());
        const QString shell = folder.filePath(QStringLiteral("cmd.exe"));
        const QString log = folder.filePath(QStringLiteral("commandline"));
        const auto remove = [&] { QFile::remove(shell), QFile::remove(log); };
        remove();
        const auto cleanUp = qScopeGuard(remove);
        QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), shell));

        const QString link = QStringLiteral("C:/a & b/Größe");
        using Quorvex::Platform::linkDirectory;
        QVERIFY(linkDirectory(link, QStringLiteral("x/y")));
        QVERIFY(!linkDirectory(link, QStringLiteral("fail")));
        VERIFY_ALL(!linkDirectory(link, {}), !linkDirectory(link, QStringLiteral("a\" & \"b")));
        QFile file(log);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString start = QStringLiteral("cmd /c mklink /j \"C:\\a & b\\Größe\" ");
        QCOMPARE(QString::fromUtf8(file.readAll()),
            start + QStringLiteral("\"x\\y\"\n") + start + QStringLiteral("\"fail\"\n"));
    }
};

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (QFileInfo(application.applicationFilePath()).baseName() == QLatin1String("cmd")) {
        const QString line = QString::fromWCharArray(GetCommandLineW()).simplified();
        QFile log(QCoreApplication::applicationDirPath() + QStringLiteral("/commandline"));
        log.open(QIODevice::Append);
        log.write(line.toUtf8() + '\n');
        return line.contains(QLatin1String("fail")) ? 1 : 0;
    }
    TestLinkDirectory test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_linkdirectory_win.moc"
