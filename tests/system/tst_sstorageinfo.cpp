#include <tavex/SStorageInfo>
#include <tavex/SSysInfo>

#include <QDir>
#include <QFile>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using Quorvex::SStorageInfo;

class TestSStorageInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void asQtSays()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("Datei ß"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        const SStorageInfo info(path);
        const QStorageInfo expected(path);
        QVERIFY(info.isValid() && info.isLocal());
        QCOMPARE(info.path(), path);
        QCOMPARE(info.rootPath(), expected.rootPath());
        QCOMPARE(info.type().toLatin1(), expected.fileSystemType());
        QCOMPARE(info.name(), expected.displayName());
        QCOMPARE(info.totalBytes(), expected.bytesTotal());
        // Others write meanwhile.
        constexpr qint64 Tolerance = Q_INT64_C(1) << 30;
        QVERIFY(qAbs(info.freeBytes() - expected.bytesAvailable()) < Tolerance);
    }

    void noVolume()
    {
        const QTemporaryDir folder;
        const QString missing = folder.filePath(QStringLiteral("none/file"));
        for (SStorageInfo info : {SStorageInfo(), SStorageInfo(QString()), SStorageInfo(missing)}) {
            QVERIFY(!info.isValid() && !info.isLocal() && !info.eject());
            QVERIFY(info.rootPath().isEmpty() && info.name().isEmpty() && info.type().isEmpty());
            QCOMPARE(info.totalBytes() + info.freeBytes(), 0);
        }
    }

    void volumes()
    {
        const QList<SStorageInfo> all = SStorageInfo::volumes();
        const auto isRoot = [](const SStorageInfo &v) {
            return v.rootPath() == QStorageInfo::root().rootPath();
        };
        QCOMPARE(std::ranges::count_if(all, isRoot), 1);
        for (const SStorageInfo &volume : all) {
            QCOMPARE(volume.path(), volume.rootPath());
            QCOMPARE(SStorageInfo(volume.rootPath()).rootPath(), volume.rootPath());
        }
        // A fixed disk is not unmounted, whoever asks.
        SStorageInfo root(QDir::rootPath());
        QVERIFY(!root.eject());
        QVERIFY(SStorageInfo(QDir::rootPath()).isValid());
    }

    void linksAreFollowed()
    {
        if (!Quorvex::SSysInfo::isLinux())
            QSKIP("Needs /proc");
        const QTemporaryDir folder;
        const QString link = folder.filePath(QStringLiteral("link"));
        QVERIFY(QFile::link(QStringLiteral("/proc/self"), link));
        const SStorageInfo info(link + QStringLiteral("/status"));
        QCOMPARE(info.rootPath(), QStringLiteral("/proc"));
        QCOMPARE(info.type(), QStringLiteral("proc"));
        QCOMPARE(SStorageInfo(QStringLiteral("/proc/../proc/.")).type(), info.type());
    }
};

QTEST_GUILESS_MAIN(TestSStorageInfo)
#include "tst_sstorageinfo.moc"
