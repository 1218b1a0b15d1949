#include <tavex/SDir>
#include <tavex/SFileHelper>

#include <QBuffer>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

using namespace Quorvex;

/// Gives and takes its bytes in the portions listed: 0 is nothing and -1 an error.
struct Device : QBuffer
{
    Device(const QList<qint64> &portions, const QByteArray &content = {})
        : m_portions(portions)
    {
        setData(content);
        open(ReadWrite | Unbuffered);
    }
    bool fails(qint64 &n)
    {
        n = m_portions.isEmpty() ? n : qMin(n, m_portions.takeFirst());
        return n < 0;
    }
    qint64 readData(char *d, qint64 n) override { return fails(n) ? n : QBuffer::readData(d, n); }
    qint64 writeData(const char *d, qint64 n) override
    {
        return fails(n) ? n : QBuffer::writeData(d, n);
    }
    QList<qint64> m_portions;
};

class TestFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void devices()
    {
        using Portions = QList<qint64>;
        const auto copy = [](const Portions &reads, const Portions &writes, quint64 size) {
            Device source(reads, "abcdefg");
            Device target(writes);
            const bool ok = SFileHelper::copyDevice(&target, &source, size);
            return target.data() + (ok ? '+' : '-');
        };
        QCOMPARE(copy({3, 0, 0}, {1, 1}, 5), "abcdefg+");
        QCOMPARE(copy({3, -1}, {}, 5) + copy({}, {2, -1}, 5), "abc-ab-");
        QCOMPARE(copy({5}, {1, 0}, 5), "afg+");
        QCOMPARE(copy({}, {}, 0) + copy({}, {}, ~0ULL), "--");
        const auto read = [](const Portions &reads, qint64 size) {
            Device source(reads, "abcdefg");
            return SFileHelper::readAllBuffer(&source, size, 1);
        };
        QCOMPARE(read({3}, (1LL << 32) + 5), "abcde");
        QCOMPARE(read({3, 0}, 5) + read({3, -1}, 5) + read({}, -1) + read({}, 1LL << 31), "");
        Device target({2, 1, 2, 2, 0, 2, -1});
        for (const int count : {5, 2, -1})
            QCOMPARE(SFileHelper::writeAllBuffer(&target, "abcde", 5, 0), count);
        char byte = 0;
        QCOMPARE(SFileHelper::readAllBuffer(&target, &byte, 1, 1), -1);
    }

    // What fits Qt's own buffer is refused only when that is emptied.
    void fullDisk()
    {
        QFile nowhere(path("none/file"));
        QFile full(QStringLiteral("/dev/full"));
        full.open(QIODevice::WriteOnly);
        QFile target(path("копия 副本 🗎"));
        for (const int size : {0, 5, 100'000}) {
            Device source({}, QByteArray(size, 'x'));
            QVERIFY(SFileHelper::copyDevice(&target, &source, 70'000) && target.size() == size);
            QCOMPARE(SFileHelper::copyDevice(&full, &target, 1000), size == 0 && full.isOpen());
            QVERIFY(!SFileHelper::copyDevice(&nowhere, &target, 1000) && !target.isOpen());
        }
    }

    void names()
    {
        QVERIFY(SDir::pathCompare(u"C:\\A\\..\\B\\"_qs, u"c:/b"_qs, Qt::CaseInsensitive));
        QVERIFY(!SDir::pathCompare(u"//s/a"_qs, u"/s/a"_qs, Qt::CaseInsensitive));
        const QString text = u"0123456789abcdefghijklmnopqrst"_qs;
        QCOMPARE(SDir::pathShortener(text, 20), u"0123456789...klmnopqrst"_qs);
        QCOMPARE(SDir::pathShortener(text, -9), u"01234...pqrst"_qs);
        QVERIFY(SDir::pathShortener(text, 21) == text && SDir::pathShortener(text, -1) == text);
        for (int i = 0; i < 101; ++i) {
            QFile file(SFileHelper::uniqueEnumeratedName(path("%1 отчёт.tar.gz")));
            QVERIFY(file.exists() == (i >= 99) && file.open(QIODevice::WriteOnly));
            QCOMPARE(QDir().mkdir(SDir::uniqueEnumeratedPath(path("Отчёт - x/ "))), i < 100);
        }
        QVERIFY(QFile::exists(path("%1 отчёт - 99.tar.gz")) && QFile::exists(path("Отчёт - 99")));
    }

    // The child ends as programs do, and deletes what is its own.
    void deletesAtExit()
    {
        const QString deep = path("x/kept/") + QString(127, QChar(0x5D0)) + QLatin1Char('x');
        QVERIFY(QDir().mkpath(deep) && QDir().mkpath(path("x/gone/below")));
        QVERIFY(SDir(path("x/kept")).link(path("x/link")));
        SFileHelper::deleteOnExit(
            {path("x/gone"), path("x/late"), path("x/link/"), path("x/gone")});
#ifdef Q_OS_UNIX
        QVERIFY(SDir(deep).link(path("x/child")));
        if (fork() == 0) {
            SFileHelper::deleteOnExit(path("x/child"));
            std::exit(0);
        }
        QTRY_VERIFY(!QFile::exists(path("x/child")));
#endif
        QVERIFY(QFile::exists(path("x/gone")) && QDir().mkdir(path("x/late")));
        SFileHelper::deleteNow();
        QStringList left = SDir::search(path("x"), {}, QDirIterator::Subdirectories);
        left.sort();
        QCOMPARE(left, QStringList({path("x/kept"), deep, path("x/late")}));
    }

private:
    QString path(const char *name) const
    {
        return m_folder.filePath(QString::fromUtf8(name));
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(TestFiles)
#include "tst_files.moc"
