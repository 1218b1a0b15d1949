#include "common.h"

#ifdef Q_OS_UNIX
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

static bool isChild = false;

/// The leak sanitizer cannot look for leaks in a child with namespaces.
extern "C" Q_DECL_EXPORT int __lsan_is_turned_off() // NOLINT(bugprone-reserved-identifier)
{
    return isChild;
}

/// What \a function returns in a child that then ends as programs do.
static int inChild(const auto &function)
{
    isChild = fork() == 0;
    if (isChild)
        std::exit(function());
    int status = -1;
    wait(&status);
    return WEXITSTATUS(status);
}
#endif

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
        QCOMPARE(copy({3, 0, 0}, {1, 1}, 5) + copy({5}, {1, 0}, 5), "abcdefg+afg+");
        QCOMPARE(copy({3, -1}, {}, 5) + copy({}, {2, -1}, 5), "abc-ab-");
        QCOMPARE(copy({}, {}, 0) + copy({}, {}, ~0ULL), "--");
        const auto read = [](const Portions &reads, qint64 size) {
            Device source(reads, "abcdefg");
            return SFileHelper::readAllBuffer(&source, size, 1);
        };
        QCOMPARE(read({3}, (1LL << 32) + 5), "abcde");
        QCOMPARE(read({3, 0}, 5) + read({3, -1}, 5) + read({}, -1) + read({}, 1LL << 31), "");
        char byte = 0;
        char bytes[5];
        const auto count = [&](const Portions &reads) {
            Device source(reads, "abcdefg");
            return SFileHelper::readAllBuffer(&source, bytes, 5, 0);
        };
        VERIFY_ALL(count({3, 0}) == 3, count({3, -1}) == -1, count({}) == 5, read({}, 1) == "a");
        Device target({2, 1, 9, 2, 0, 2, -1});
        for (const int taken : {5, 2, -1})
            QCOMPARE(SFileHelper::writeAllBuffer(&target, "abcde", 5, 0), taken);
        QCOMPARE(target.data(), "abcdeabab");
        for (const int waits : {2, -1}) {
            target.m_waits = waits;
            QCOMPARE(SFileHelper::writeAllBuffer(&target, "a", 1, 1), waits < 0 ? -1 : 1);
            QVERIFY(target.m_waits <= 0);
        }
        QCOMPARE(SFileHelper::readAllBuffer(&target, &byte, 1, 1), -1);
        for (const int size : {-1, 0, 1}) {
            const int expected = size > 0 ? -1 : 0;
            QCOMPARE(SFileHelper::readAllBuffer(nullptr, &byte, size, 0), expected);
            QCOMPARE(SFileHelper::readAllBuffer(&target, nullptr, size, 0), expected);
            QCOMPARE(SFileHelper::writeAllBuffer(&target, nullptr, size, 0), expected);
            QCOMPARE(SFileHelper::writeAllBuffer(nullptr, &byte, size, 0), -1);
        }
        QBuffer closed;
        Device source({}, "abc");
        VERIFY_ALL(SFileHelper::copyDevice(&closed, &source, 5), !closed.isOpen());
        QFile nowhere(path("none/file"));
        QFile nameless;
        QSaveFile save(path("saved")); // Its close() ends the process.
        for (QIODevice *refused : QList<QIODevice *>{nullptr, &nowhere, &nameless, &save}) {
            QString error;
            VERIFY_ALL(!SFileHelper::copyDevice(&closed, refused, 5, &error), !error.isEmpty());
            QVERIFY(!SFileHelper::copyDevice(refused, &closed, 5));
            QVERIFY(!SEnumHelper::writeTranslatorXML(refused, {}));
        }
        VERIFY_ALL(save.open(QFile::WriteOnly), SFileHelper::copyDevice(&save, &closed, 5));
        VERIFY_ALL(save.commit(), closed.data() == "abc", !closed.isOpen());
        QCOMPARE(SFileHelper::readAllBuffer(&closed, &byte, 1, 0), -1);
        QCOMPARE(SFileHelper::writeAllBuffer(&closed, &byte, 1, 0), -1);
    }

    void writeTranslatorXML()
    {
        QFile file(path("a.ts"));
        for (const char *document : {"longer than the next", "<TS>\xC3\xA4</TS>"}) {
            QVERIFY(SEnumHelper::writeTranslatorXML(file.fileName(), string(document)));
            QCOMPARE(contentOf(file.fileName()), document);
        }
        QVERIFY(SEnumHelper::writeTranslatorXML(&file, "x"_s));
        QVERIFY(!file.isOpen());
        QCOMPARE(contentOf(file.fileName()), "x");
        for (const QString &bad : {path("no/a.ts"), QString()})
            QVERIFY2(!SEnumHelper::writeTranslatorXML(bad, {}), qPrintable(bad));
    }

#ifdef Q_OS_UNIX
    // They claim to be at their end before anything is read.
    void streams()
    {
        int ends[2];
        VERIFY_ALL(pipe(ends) == 0, write(ends[1], "piped ", 6) == 6, close(ends[1]) == 0);
        QFile piped("/dev/fd/%1"_s.arg(ends[0]));
        QFile made("/proc/self/comm"_s);
        QFile unreadable("/proc/self/mem"_s);
        QProcess ended;
        ended.start("echo"_s, {"ended"_s});
        QVERIFY(ended.waitForFinished());
        QByteArray all;
        for (QIODevice *source : QList<QIODevice *>{&piped, &made, &ended, &unreadable}) {
            QBuffer target;
            all += SFileHelper::copyDevice(&target, source, 4) ? target.data() : "-";
        }
        QCOMPARE(all, "piped tst_files\nended\n-");
        VERIFY_ALL(made.open(QFile::ReadOnly), close(ends[0]) == 0);
        QCOMPARE(SFileHelper::readAllBuffer(&made, 10, 0), "tst_files\n");
    }
#endif

    // Small data fits the buffer of QFile: writing fails only when that is flushed.
    void fullDisk()
    {
        QFile full("/dev/full"_s);
        full.open(QIODevice::WriteOnly);
        QFile target(path("копия 副本 🗎"));
        for (const int size : {0, 5, 100'000}) {
            Device source({}, QByteArray(size, 'x'));
            VERIFY_ALL(SFileHelper::copyDevice(&target, &source, 70'000), target.size() == size);
            QString error;
            QCOMPARE(
                SFileHelper::copyDevice(&full, &target, 1000, &error), size == 0 && full.isOpen());
            // Each system has words of its own for it.
            QCOMPARE(error.isEmpty() || error == QFile().errorString(), size == 0 && full.isOpen());
        }
    }

    void names()
    {
        QVERIFY(SDir::pathCompare("C:\\A\\..\\B\\"_s, "c:/b"_s, Qt::CaseInsensitive));
        QVERIFY(!SDir::pathCompare("//s/a"_s, "/s/a"_s, Qt::CaseInsensitive));
        QCOMPARE(SDir::removeWrongChars("a?b*c:d;e"_s), "a_b_c_d_e"_s);
        QCOMPARE(SDir::uniqueEnumeratedPath("none - 1/x"_s), "none - 1/x"_s);
        VERIFY_ALL(SDir(m_folder.path()).isLocal(), !SDir(path("none")).isLocal());
        QCOMPARE(SDir(path("none")).path(), path("none"));
        const QString none(QChar::Null); // And Qt's log hears nothing.
        for (const QString &name : {QString(), none})
            QVERIFY(!STemporaryFile(name).open(QFile::WriteOnly));
        VERIFY_ALL(SFileHelper::deleteOnExit(none) == none,
            SDir::uniqueEnumeratedPath(none) == none,
            SFileHelper::uniqueEnumeratedName(none) == none);
        const QString text = "0123456789abcdefghijklmnopqrst"_s;
        QCOMPARE(SDir::pathShortener(text, 20), "0123456789...klmnopqrst"_s);
        QCOMPARE(SDir::pathShortener(text, -9), "01234...pqrst"_s);
        VERIFY_ALL(SDir::pathShortener(text, 21) == text, SDir::pathShortener(text, -1) == text);
        for (int i = 0; i < 101; ++i) {
            QFile file(SFileHelper::uniqueEnumeratedName(path("%1 отчёт.tar.gz")));
            VERIFY_ALL(file.exists() == (i >= 99), file.open(QIODevice::WriteOnly));
            QCOMPARE(QDir().mkdir(SDir::uniqueEnumeratedPath(path("Отчёт - x/ "))), i < 100);
        }
        VERIFY_ALL(QFile::exists(path("%1 отчёт - 99.tar.gz")), QFile::exists(path("Отчёт - 99")));
    }

    // Each object deletes its file when it ends, deleteNow() what was registered before.
    void deletesAtExit()
    {
        const QString deep = path("x/kept/") + QString(127, QChar(0x5D0)) + QLatin1Char('x');
        VERIFY_ALL(QDir().mkpath(deep), QDir().mkpath(path("x/gone/below")));
        QVERIFY(SSysInfo::isWindows() || QFile::link("/dev/full"_s, path("x/full")));
        STemporaryFile ended;
        {
            STemporaryFile full(path("x/full"));
            VERIFY_ALL(full.open(QFile::WriteOnly), full.write("x") == 1);
            STemporaryFile file(path("x/file"));
            STemporaryFile other;
            VERIFY_ALL(file.open(QFile::WriteOnly), other.open(QFile::WriteOnly));
            VERIFY_ALL(file.copy(path("x/copy")), file.copy(path("x/kept/.hidden")));
            QVERIFY(SSysInfo::isWindows() || !(other.permissions() & QFile::Permissions(0x77)));
            ended.setFileName(other.fileName());
        }
        QVERIFY(!ended.exists());
        QVERIFY(QDir::setCurrent(path("x/kept"))); // An empty path must not mean this folder.
        QVERIFY(SDir("."_s).link(path("x/link")));
        const QString bad = SSysInfo::isWindows() ? "a\" & \"b"_s : QString();
        QVERIFY(!SDir(bad).link(path("x/none")));
        QVERIFY(SDir(path("x/gone")).link(path("x/dangling")));
        QVERIFY(SDir(path("x/kept")).link(path("x/gone/below/link")));
        const QStringList names{path("x/gone"), path("x/late"), path("x/link//./"), path("x/gone"),
            path("x/dangling"), path("x/copy")};
        QCOMPARE(SFileHelper::deleteOnExit(names), names);
        for (const QString &name : SFileHelper::deleteOnExit(QStringList(names)))
            QVERIFY(names.contains(name)); // A temporary list stays to the end of the loop.
        QCOMPARE(SFileHelper::deleteOnExit(names.at(0)), names.at(0));
        for (const QString &name : {path("x/never"), QString()})
            QCOMPARE(SFileHelper::deleteFolderOnExit(name), name);
        for (const QString &name : {path("x/copy"), path("x/lost"), QString()})
            QCOMPARE(SFileHelper::deleteFileOnExit(name), name);
        QVERIFY(SSysInfo::isWindows() || QFile::exists(path("x/link/.hidden")));
        QVERIFY(SSysInfo::isWindows() || QFile::link(path("x/copy"), path("x/lost")));
        VERIFY_ALL(QFile::exists(path("x/gone")), QDir().mkdir(path("x/late")));
        SFileHelper::deleteNow();
        QVERIFY(
            QDir().mkdir(path("x/never"))); // The call above dropped it, since it did not exist.
        SFileHelper::deleteNow();
        QVERIFY(QDir::setCurrent(m_folder.path()));
        QStringList left = SDir::search(path("x"), {}, QDirIterator::Subdirectories);
        left.sort();
        QCOMPARE(left,
            QStringList(
                {path("x/kept"), path("x/kept/.hidden"), deep, path("x/late"), path("x/never")}));
    }

    // ".." behind a link is the link's folder on Windows, elsewhere the folder above its target.
    void parents()
    {
        const QString here = path(SSysInfo::isWindows() ? "up" : "up/a");
        const QString other = path(SSysInfo::isWindows() ? "up/a" : "up");
        for (const QString &folder : {here, other})
            VERIFY_ALL(
                QDir().mkpath(folder + "/gone/x"_s), QFile(folder + "/f"_s).open(QFile::WriteOnly));
        VERIFY_ALL(QDir().mkdir(path("up/a/b")), QDir::setCurrent(path("up")));
        QVERIFY(SDir(path("up/a/b")).link(path("up/l")));
        QVERIFY(SDir("l/../gone/x"_s).link("l/../link"_s));
        {
            const STemporaryFile unopened("l/../f"_s);
            STemporaryFile file;
            file.setFileName("l/../gone/x/g"_s);
            VERIFY_ALL(file.open(QFile::WriteOnly), QFile::exists(here + "/gone/x/g"_s));
            QVERIFY(SSysInfo::isWindows() || QFile::exists(here + "/link/g"_s));
            SFileHelper::deleteFolderOnExit("l/../gone/x/.."_s);
            SFileHelper::deleteFileOnExit("l/../link"_s);
            QVERIFY(QDir::setCurrent(m_folder.path()));
        }
        QVERIFY(!QFile::exists(here + "/gone/x/g"_s));
        SFileHelper::deleteNow();
        for (const char *name : {"/gone", "/f"})
            VERIFY_ALL(!QFile::exists(here + string(name)), QFile::exists(other + string(name)));
        QVERIFY(QFile::exists(other + "/gone/x"_s));
        QVERIFY(!QFileInfo(here + "/link"_s).isSymLink());
    }

#ifdef Q_OS_UNIX
    // With namespaces of their own, parent and child have the same process id, 1.
    void children()
    {
        const QString own = path("own");
        for (void (*const use)() : {+[] {}, +[] { SFileHelper::deleteNow(); },
                 +[] { SFileHelper::deleteFileOnExit("none"_s); }})
            VERIFY_ALL(inChild([&] {
                unshare(CLONE_NEWPID);
                return inChild([&] {
                    QFile(SFileHelper::deleteFileOnExit(own)).open(QFile::WriteOnly);
                    unshare(CLONE_NEWPID);
                    return inChild([&] { return use(), 0; }) == 0 && QFile::exists(own);
                });
            }),
                !QFile::exists(own));
    }
#endif

private:
    QString path(const char *name) const
    {
        return m_folder.filePath(QString::fromUtf8(name));
    }

    // Characters that a shell which makes links could misread.
    QTemporaryDir m_folder{QDir::temp().filePath("a & b größe-XXXXXX"_s)};
};

QTEST_GUILESS_MAIN(TestFiles)
#include "tst_files.moc"
