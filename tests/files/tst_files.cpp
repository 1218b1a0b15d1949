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
        QVERIFY(count({3, 0}) == 3 && count({3, -1}) == -1 && count({}) == 5 && read({}, 1) == "a");
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
        QVERIFY(SFileHelper::copyDevice(&closed, &source, 5) && !closed.isOpen());
        QFile nowhere(path("none/file"));
        QFile nameless;
        QSaveFile save(path("saved")); // Its close() ends the process.
        for (QIODevice *refused : QList<QIODevice *>{nullptr, &nowhere, &nameless, &save}) {
            QString error;
            QVERIFY(!SFileHelper::copyDevice(&closed, refused, 5, &error) && !error.isEmpty());
            QVERIFY(!SFileHelper::copyDevice(refused, &closed, 5));
            QVERIFY(!SEnumHelper::writeTranslatorXML(refused, {}));
        }
        QVERIFY(save.open(QFile::WriteOnly) && SFileHelper::copyDevice(&save, &closed, 5));
        QVERIFY(save.commit() && closed.data() == "abc" && !closed.isOpen());
        QCOMPARE(SFileHelper::readAllBuffer(&closed, &byte, 1, 0), -1);
        QCOMPARE(SFileHelper::writeAllBuffer(&closed, &byte, 1, 0), -1);
    }

#ifdef Q_OS_UNIX
    // They say from the start that they are at their end.
    void streams()
    {
        int ends[2];
        QVERIFY(pipe(ends) == 0 && write(ends[1], "piped ", 6) == 6 && close(ends[1]) == 0);
        QFile piped(string("/dev/fd/%1").arg(ends[0]));
        QFile made(string("/proc/self/comm"));
        QFile unreadable(string("/proc/self/mem"));
        QProcess ended;
        ended.start(string("echo"), {string("ended")});
        QVERIFY(ended.waitForFinished());
        QByteArray all;
        for (QIODevice *source : QList<QIODevice *>{&piped, &made, &ended, &unreadable}) {
            QBuffer target;
            all += SFileHelper::copyDevice(&target, source, 4) ? target.data() : "-";
        }
        QCOMPARE(all, "piped tst_files\nended\n-");
        QVERIFY(made.open(QFile::ReadOnly) && close(ends[0]) == 0);
        QCOMPARE(SFileHelper::readAllBuffer(&made, 10, 0), "tst_files\n");
    }
#endif

    // What fits Qt's own buffer is refused only when that is emptied.
    void fullDisk()
    {
        QFile full(QStringLiteral("/dev/full"));
        full.open(QIODevice::WriteOnly);
        QFile target(path("копия 副本 🗎"));
        for (const int size : {0, 5, 100'000}) {
            Device source({}, QByteArray(size, 'x'));
            QVERIFY(SFileHelper::copyDevice(&target, &source, 70'000) && target.size() == size);
            QString error;
            QCOMPARE(
                SFileHelper::copyDevice(&full, &target, 1000, &error), size == 0 && full.isOpen());
            QVERIFY(size == 0 || !full.isOpen() || error == qt_error_string(ENOSPC));
        }
    }

    void names()
    {
        QVERIFY(SDir::pathCompare(u"C:\\A\\..\\B\\"_qs, u"c:/b"_qs, Qt::CaseInsensitive));
        QVERIFY(!SDir::pathCompare(u"//s/a"_qs, u"/s/a"_qs, Qt::CaseInsensitive));
        QCOMPARE(SDir::removeWrongChars(u"a?b*c:d;e"_qs), u"a_b_c_d_e"_qs);
        QCOMPARE(SDir::uniqueEnumeratedPath(u"none - 1/x"_qs), u"none - 1/x"_qs);
        QVERIFY(SDir(m_folder.path()).isLocal() && !SDir(path("none")).isLocal());
        QCOMPARE(SDir(path("none")).path(), path("none"));
        const QString none(QChar::Null); // And Qt's log hears nothing.
        for (const QString &name : {QString(), none})
            QVERIFY(!STemporaryFile(name).open(QFile::WriteOnly));
        QVERIFY(SFileHelper::deleteOnExit(none) == none && SDir::uniqueEnumeratedPath(none) == none
            && SFileHelper::uniqueEnumeratedName(none) == none);
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
        QVERIFY(SSysInfo::isWindows() || QFile::link(string("/dev/full"), path("x/full")));
        STemporaryFile ended;
        {
            STemporaryFile full(path("x/full"));
            QVERIFY(full.open(QFile::WriteOnly) && full.write("x") == 1);
            STemporaryFile file(path("x/file"));
            STemporaryFile other;
            QVERIFY(file.open(QFile::WriteOnly) && other.open(QFile::WriteOnly));
            QVERIFY(file.copy(path("x/copy")) && file.copy(path("x/kept/.hidden")));
            QVERIFY(SSysInfo::isWindows() || !(other.permissions() & QFile::Permissions(0x77)));
            ended.setFileName(other.fileName());
        }
        QVERIFY(!ended.exists());
        QVERIFY(QDir::setCurrent(path("x/kept"))); // What an empty path is not to stand for.
        QVERIFY(SDir(string(".")).link(path("x/link")) && !SDir({}).link(path("x/none")));
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
        QVERIFY(QFile::exists(path("x/gone")) && QDir().mkdir(path("x/late")));
        SFileHelper::deleteNow();
        QVERIFY(QDir().mkdir(path("x/never"))); // It was not there when it could be deleted.
        SFileHelper::deleteNow();
        QVERIFY(QDir::setCurrent(m_folder.path()));
        QStringList left = SDir::search(path("x"), {}, QDirIterator::Subdirectories);
        left.sort();
        QCOMPARE(left,
            QStringList(
                {path("x/kept"), path("x/kept/.hidden"), deep, path("x/late"), path("x/never")}));
    }

    // What ".." means: to Windows what the text says, elsewhere the folder above the link's target.
    void parents()
    {
        const QString here = path(SSysInfo::isWindows() ? "up" : "up/a");
        const QString other = path(SSysInfo::isWindows() ? "up/a" : "up");
        for (const QString &folder : {here, other})
            QVERIFY(QDir().mkpath(folder + string("/gone/x"))
                && QFile(folder + string("/f")).open(QFile::WriteOnly));
        QVERIFY(QDir().mkdir(path("up/a/b")) && QDir::setCurrent(path("up")));
        QVERIFY(SDir(path("up/a/b")).link(path("up/l")));
        QVERIFY(SDir(string("l/../gone/x")).link(string("l/../link")));
        {
            const STemporaryFile unopened(string("l/../f"));
            STemporaryFile file;
            file.setFileName(string("l/../gone/x/g"));
            QVERIFY(file.open(QFile::WriteOnly) && QFile::exists(here + string("/gone/x/g")));
            QVERIFY(SSysInfo::isWindows() || QFile::exists(here + string("/link/g")));
            SFileHelper::deleteFolderOnExit(string("l/../gone/x/.."));
            SFileHelper::deleteFileOnExit(string("l/../link"));
            QVERIFY(QDir::setCurrent(m_folder.path()));
        }
        QVERIFY(!QFile::exists(here + string("/gone/x/g")));
        SFileHelper::deleteNow();
        for (const char *name : {"/gone", "/f"})
            QVERIFY(!QFile::exists(here + string(name)) && QFile::exists(other + string(name)));
        QVERIFY(QFile::exists(other + string("/gone/x")));
        QVERIFY(!QFileInfo(here + string("/link")).isSymLink());
    }

#ifdef Q_OS_UNIX
    // Parent and child both have the number 1 where namespaces are allowed.
    void children()
    {
        const QString own = path("own");
        for (void (*const use)() : {+[] {}, +[] { SFileHelper::deleteNow(); },
                 +[] { SFileHelper::deleteFileOnExit(string("none")); }})
            QVERIFY(inChild([&] {
                unshare(CLONE_NEWPID);
                return inChild([&] {
                    QFile(SFileHelper::deleteFileOnExit(own)).open(QFile::WriteOnly);
                    unshare(CLONE_NEWPID);
                    return inChild([&] { return use(), 0; }) == 0 && QFile::exists(own);
                });
            }) && !QFile::exists(own));
    }
#endif

private:
    QString path(const char *name) const
    {
        return m_folder.filePath(QString::fromUtf8(name));
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(TestFiles)
#include "tst_files.moc"
