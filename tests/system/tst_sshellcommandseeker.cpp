#include <tavex/SShellCommandSeeker>
#include <tavex/SSysInfo>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using Quorvex::SShellCommandSeeker;

class TestSShellCommandSeeker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void finds()
    {
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("Ünter/folder")));
        const QString place = folder.filePath(QStringLiteral("Ünter"));
        const QString program = place + QStringLiteral("/program.exe");
        const QString text = place + QStringLiteral("/text.txt");
        for (const QString &name : {program, text}) {
            QFile file(name);
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner));

        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(QDir::toNativeSeparators(place)));
        QCOMPARE(SShellCommandSeeker::find(QStringLiteral("program.exe")), program);
        QVERIFY(SShellCommandSeeker::exists(program));
        for (const char *none : {"", "text.txt", "folder", "other"})
            QVERIFY2(!SShellCommandSeeker::exists(QString::fromLatin1(none)), none);
        QCOMPARE(
            SShellCommandSeeker::exists(QStringLiteral("program")), Quorvex::SSysInfo::isWindows());
        qputenv("PATH", path);
    }
};

QTEST_APPLESS_MAIN(TestSShellCommandSeeker)
#include "tst_sshellcommandseeker.moc"
