#include <tavex/SFileHelper>
#include <tavex/STemporaryFile>

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <memory>

using Quorvex::SFileHelper;
using Quorvex::STemporaryFile;

/// Gives the alphabet, and takes bytes, in the portions listed; 0 is nothing and -1 an error.
class Device : public QIODevice
{
public:
    explicit Device(const QList<int> &reads, const QList<int> &writes = {})
        : m_reads(reads)
        , m_writes(writes)
    {
        open(ReadWrite | Unbuffered);
    }
    bool isSequential() const override { return true; }
    bool atEnd() const override { return m_reads.isEmpty(); }
    qint64 bytesToWrite() const override { return m_pending; }
    bool waitForBytesWritten(int) override { return --m_pending > 1; }
    qint64 readData(char *data, qint64 maxSize) override
    {
        const qint64 count = qMin(qint64(m_reads.takeFirst()), maxSize);
        for (qint64 i = 0; i < count; ++i)
            data[i] = m_next++;
        return count;
    }
    qint64 writeData(const char *data, qint64 maxSize) override
    {
        const qint64 count = m_writes.isEmpty() ? maxSize : m_writes.takeFirst();
        m_taken.append(data, qMax(count, qint64(0)));
        return count;
    }

    QByteArray m_taken;
    int m_pending = 0;

private:
    QList<int> m_reads;
    QList<int> m_writes;
    char m_next = 'a';
};

static bool touch(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write("abc") == 3;
}

class TestFileHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void copies_data()
    {
        QTest::addColumn<QList<int>>("reads");
        QTest::addColumn<QList<int>>("writes");
        QTest::addColumn<quint64>("bufferSize");
        QTest::addColumn<bool>("expected");
        QTest::addColumn<QByteArray>("taken");
        const auto row = [](const char *name, const QList<int> &reads, const QList<int> &writes,
                             quint64 size, bool expected, const char *taken) {
            QTest::newRow(name) << reads << writes << size << expected << QByteArray(taken);
        };
        row("short reads", {3, 0, 0, 9}, {}, 5, true, "abcdefgh");
        row("read error", {3, -1, 3}, {}, 5, false, "abc");
        row("short writes", {5, 2}, {1, 3}, 5, true, "abcdefg");
        row("write error", {5, 2}, {1, -1}, 5, false, "a");
        row("nothing taken", {5, 2}, {1, 0}, 5, true, "afg");
        row("no buffer", {3}, {}, 0, false, "");
        row("too large a buffer", {3}, {}, ~quint64(0), false, "");
        row("no buffer needed", {}, {}, 0, true, "");
    }
    void copies()
    {
        QFETCH(QList<int>, reads);
        QFETCH(QList<int>, writes);
        QFETCH(quint64, bufferSize);
        Device device(reads, writes);
        QTEST(SFileHelper::copyDevice(&device, &device, bufferSize), "expected");
        QTEST(device.m_taken, "taken");
        QVERIFY(device.isOpen());
        QVERIFY(!SFileHelper::copyDevice(nullptr, &device, 1));
        QVERIFY(!SFileHelper::copyDevice(&device, nullptr, 1));
    }

    void copiesFiles()
    {
        QBuffer source;
        QFile target(path("копия 副本 🗎"));
        for (const qsizetype size : {0, 100, 1'000'000}) {
            source.setData(QByteArray(size, 'x'));
            QVERIFY(SFileHelper::copyDevice(&target, &source, 70'000));
            QVERIFY(!target.isOpen() && !source.isOpen());
            QVERIFY(target.exists());
            QCOMPARE(target.size(), size);
            // What fits Qt's own buffer is refused only when that is emptied.
            QFile full(QStringLiteral("/dev/full"));
            if (size == 0 || !full.exists())
                continue;
            QVERIFY(!SFileHelper::copyDevice(&full, &source, 1000));
            QVERIFY(full.open(QIODevice::WriteOnly) && source.open(QIODevice::ReadOnly));
            QVERIFY(!SFileHelper::copyDevice(&full, &source, 1000));
            QVERIFY(full.isOpen() && source.isOpen());
            source.close();
            QFile nowhere(path("none/file"));
            QVERIFY(!SFileHelper::copyDevice(&nowhere, &source, 1000));
        }
    }

    void readsAll()
    {
        std::array<char, 26> data{};
        const auto read = [&](const QList<int> &reads, qint64 size, int timeout = 0) {
            Device device(reads);
            return SFileHelper::readAllBuffer(&device, data.data(), size, timeout);
        };
        QCOMPARE(read({3, 4, 9}, 9), 9);
        QCOMPARE(data[8], 'i');
        QCOMPARE(read({3, 4}, 9), 7);
        QCOMPARE(read({3, 0, 4}, 9), 3);
        QCOMPARE(read({3, -1}, 9), -1);
        QCOMPARE(read({3}, 9, 1), -1);
        QCOMPARE(SFileHelper::readAllBuffer(nullptr, data.data(), 0, 1), 0);
        QCOMPARE(SFileHelper::readAllBuffer(nullptr, data.data(), 1, 1), -1);

        const auto array = [](qint64 size) {
            Device device({3, 4});
            return SFileHelper::readAllBuffer(&device, size, 0);
        };
        QCOMPARE(array(5), QByteArray("abcde"));
        QCOMPARE(array((qint64(1) << 32) + 5), QByteArray("abcde"));
        for (const qint64 size : {qint64(8), qint64(0), qint64(-1), qint64(1) << 31})
            QVERIFY(array(size).isEmpty());
    }

    void writesAll()
    {
        const auto write = [](const QList<int> &writes, int pending = 0, int timeout = 0) {
            Device device({}, writes);
            device.m_pending = pending;
            return SFileHelper::writeAllBuffer(&device, "abcde", 5, timeout);
        };
        QCOMPARE(write({2, 1}, 3), 5);
        QCOMPARE(write({2, 0, 2}), 2);
        QCOMPARE(write({2, -1}), -1);
        QCOMPARE(write({}, 3, 1), -1);
        QCOMPARE(SFileHelper::writeAllBuffer(nullptr, "", 0, 0), -1);
    }

    void uniqueNames()
    {
        const QString name = path("%1 отчёт.tar.gz");
        const QString numbered = path("%1 отчёт - ") + QStringLiteral("%1.tar.gz");
        for (int number = 2; number < 100; ++number) {
            QVERIFY(touch(SFileHelper::uniqueEnumeratedName(name)));
            QCOMPARE(SFileHelper::uniqueEnumeratedName(name),
                path("%1 отчёт - ") + QString::number(number) + QStringLiteral(".tar.gz"));
        }
        QVERIFY(touch(SFileHelper::uniqueEnumeratedName(name)));
        QVERIFY(SFileHelper::uniqueEnumeratedName(name).endsWith(QStringLiteral(" - 99.tar.gz")));
        QVERIFY(QDir().mkdir(path("notes")));
        QCOMPARE(SFileHelper::uniqueEnumeratedName(path("notes")), path("notes - 2."));
    }

    void deletes()
    {
        SFileHelper::deleteOnExit(path("late"));
        QVERIFY(QDir().mkpath(path("kept/below")) && QDir().mkpath(path("gone/below")));
        for (const char *file : {"late", "file", "gone/below/file", "kept/below/file"})
            QVERIFY(touch(path(file)));
        QVERIFY(QFile::link(path("kept"), path("link.lnk")));
        SFileHelper::deleteOnExit({path("file"), path("gone"), path("file")});
        SFileHelper::deleteFolderOnExit(path("link.lnk") + QLatin1Char('/'));
        SFileHelper::deleteFileOnExit(path("kept")); // Fails until it is one.
        SFileHelper::deleteNow();
        const auto names = [this] {
            return QDir(m_folder->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries);
        };
        QCOMPARE(names(), QStringList({QStringLiteral("kept"), QStringLiteral("late")}));
        QVERIFY(QFile::exists(path("kept/below/file")));

        QVERIFY(QDir(path("kept")).removeRecursively() && touch(path("kept")));
        SFileHelper::deleteNow();
        QCOMPARE(names(), QStringList(QStringLiteral("late")));
    }

#ifdef Q_OS_UNIX
    // The child ends as programs do, and has a file of its own to delete.
    void childOfFork()
    {
        QVERIFY(touch(path("parent")) && touch(path("child")));
        SFileHelper::deleteFileOnExit(path("parent"));
        const pid_t child = fork();
        if (child == 0) {
            SFileHelper::deleteFileOnExit(path("child"));
            std::exit(0);
        }
        QCOMPARE(waitpid(child, nullptr, 0), child);
        QVERIFY(QFile::exists(path("parent")) && !QFile::exists(path("child")));
    }
#endif

    void temporaryFiles()
    {
        QObject owner;
        auto *file = new STemporaryFile(&owner);
        const QString name = file->fileName();
        QVERIFY(QFileInfo(name).path() == QDir::tempPath() && !file->exists());
        QVERIFY(file->open(QIODevice::WriteOnly) && file->exists());
        delete file;
        QVERIFY(!QFile::exists(name));
        STemporaryFile lost(path("file"), &owner);
        QVERIFY(lost.open(QIODevice::WriteOnly) && m_folder->remove());
    }

private:
    QString path(const char *name) const
    {
        return m_folder->filePath(QString::fromUtf8(name));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(TestFileHelper)
#include "tst_sfilehelper.moc"
