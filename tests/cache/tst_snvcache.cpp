#include "common.h"
#include "forms.h"

#include <csignal>

#ifdef Q_OS_LINUX
#include "refuse.h"

#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace {

const QString Key = QStringLiteral("key");
/// SHA-256 of the key, by another program.
const QString KeyFile =
    QStringLiteral("2c70e12b7a0646f92279f427c7b38e7334d8e5389cff167a1dc30e73f826b683");

/// Whether a value that is being read can be replaced.
const bool CanReplace = QOperatingSystemVersion::currentType() != QOperatingSystemVersion::Windows;

/// What an index begins with.
const QByteArray Magic = QByteArray::fromHex("c0e6a09cc943403994b5ccaee60e32e8");
/// Where files are that are not yet values.
const QByteArray NewFolder = "new-c0e6a09c-c943-4039-94b5-ccaee60e32e8";

} // namespace

class TestSNvCache : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(string("cache"));
    QString m_new = m_path + u'/' + QLatin1String(NewFolder);

    [[nodiscard]] SNvCache open() const { return SNvCache(string("cache"), m_folder.path()); }
    [[nodiscard]] QStringList all() const
    {
        return QDir(m_path).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }
    void put(const QByteArray &name, const QByteArray &data) const
    {
        QFile file(m_path + u'/' + QLatin1String(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(data) == data.size());
    }
    [[nodiscard]] QByteArray content(const QString &name) const
    {
        QFile file(m_path + u'/' + name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    [[nodiscard]] QStringList files() const { return QDir(m_path).entryList(QDir::Files); }

    template <typename Cache>
    void useForms()
    {
        const QString device = string("device");
        const QString object = string("object");
        QByteArray large(100001, 'x');
        QBuffer buffer(&large);
        QBuffer copy;
        float number = 0;
        Value writer([](QDataStream &stream) {
            return (stream << 2.0F).status() == 0 && stream.version() == QDataStream::Qt_5_6;
        });
        Value reader([&](QDataStream &stream) {
            return (stream >> number).status() == 0 && stream.version() == QDataStream::Qt_5_6;
        });
        {
            Cache cache(string("cache"), m_folder.path());
            QVERIFY(cache.isEmpty() && !cache.isNull() && cache.name() == string("cache"));
            QVERIFY(cache.insert(Key, QByteArray("a longer one")) && cache.insert(Key, "v"));
            QVERIFY(cache.insert(device, &buffer) && cache.insert(object, &writer));
            QVERIFY(!buffer.isOpen() && cache.count() == 3);
        }
        const QByteArray index = content(string("index"));
        QVERIFY(index.startsWith(Magic + QByteArray::fromHex("0000000000000003")));
        QCOMPARE(index.size(), 24 + 3 * (4 + 4 + 32) + 2 * (3 + 6 + 6));
        QCOMPARE(content(KeyFile), QByteArray("v"));

        // The index reads back empty, and everything is still there.
        Cache cache(string("cache"), m_folder.path());
        QVERIFY(!cache.contains(Key) && cache.insert(Key, "w") && files().size() == 4);
        QVERIFY(cache.value(device, &copy) && copy.data() == large && !copy.isOpen());
        QVERIFY(cache.value(object, &reader) && number == 2 && cache.value(device) == large);
        // As that version of streams does.
        QCOMPARE(cache.value(object).toHex(), QByteArray("4000000000000000"));
        QVERIFY(!cache.isEmpty() && cache.contains(Key) && cache.folder() == m_folder.path());
        const QString empty = string("empty");
        QVERIFY(cache.insert(empty, QByteArray()) && cache.find(empty) == QByteArray());
        cache.clear();
        QVERIFY(cache.isEmpty() && cache.value(Key).isNull() && !cache.value(Key, &copy));
        QVERIFY(!cache.find(empty) && cache.errorString().isEmpty());
        QVERIFY(cache.remove(Key) && cache.remove(device) && files().size() == 2);
        QCOMPARE(Cache({}, m_folder.path()).name().remove(u'-').size(), 32);
    }

    /// Of any number at a time nobody fails, and they leave nothing but values.
    void useWriters()
    {
        init();
        SNvCache cache = open();
        int depth = 0;
        const std::function<bool(QDataStream &)> dig = [&](QDataStream &stream) {
            Value deeper(dig);
            const QString key = QString::number(++depth % 500);
            return (stream << 1).status() == 0 && (depth == 1000 || cache.insert(key, &deeper));
        };
        Value deepest(dig);
        QVERIFY(cache.insert(Key, "old") && cache.insert(Key, &deepest));
        QCOMPARE(all().size(), 501);
        cache.clear();
        QCOMPARE(all(), QStringList());

        std::atomic<int> failures = 0;
        {
            std::jthread threads[100];
            for (int i = 0; i < 100; ++i) {
                threads[i] = std::jthread([&, i] {
                    SNvCache mine = open();
                    const QString own = QString::number(i);
                    const QString shared = CanReplace ? Key : own;
                    QByteArray value(10'000 + i, char(i));
                    QBuffer buffer(&value);
                    for (int round = 0; round < 5; ++round) {
                        const bool isDone = mine.insert(shared, value) && mine.insert(own, &buffer)
                            && mine.value(own) == value;
                        const QByteArray last = mine.value(shared);
                        const int writer = last.isEmpty() ? 0 : last.front();
                        failures += !isDone || last != QByteArray(10'000 + writer, char(writer));
                    }
                });
            }
        }
        QCOMPARE(failures, 0);
        QCOMPARE(all().size(), 100 + CanReplace + 1);
    }

private Q_SLOTS:
    void init() { QVERIFY(QDir(m_path).removeRecursively() && QDir().mkpath(m_path)); }

    void forms() { useForms<SNvCache>(); }
    void lockedForms() { useForms<SSafeNvCache>(); }
    void writers() { useWriters(); }

    void failures()
    {
        SNvCache cache = open();
        QFile missing(m_path + string("/missing"));
        QSaveFile saved(missing.fileName()); // Ends the process when it is closed.
        Value refuses([](QDataStream &stream) { return (stream << 1).status() != 0; });
        const auto check = [&](auto *source) {
            QVERIFY(cache.insert(Key, "v") && cache.errorString().isEmpty());
            QVERIFY(!cache.insert(Key, source) && cache.contains(Key));
            QVERIFY(!cache.errorString().isEmpty());
            QVERIFY(source ? files().isEmpty() : !cache.value(Key, source));
        };
        check(&missing);
        check(&saved);
        check(&refuses);
        check(static_cast<QIODevice *>(nullptr));
        check(static_cast<Quorvex::Interfaces::ISerializable *>(nullptr));
        // What is in the way of the file cannot be removed, but is no value any more.
        const QString path = m_path + u'/' + KeyFile;
        QVERIFY(cache.insert(Key, "v") && QFile::remove(path));
        QVERIFY(QDir().mkpath(path + string("/x")) && !cache.remove(Key) && cache.contains(Key));
        cache.clear();
        Value accepts([](QDataStream &) { return true; });
        QVERIFY(cache.isEmpty() && !cache.value(string("none"), &accepts));

        put("file", {});
        QVERIFY(SSafeNvCache(string("file"), m_path).isNull());
        SNvCache none(string("file"), m_path); // There was no directory when it was made.
        QVERIFY(QFile::remove(m_path + string("/file")) && QDir().mkpath(m_path + string("/file")));
        put(QByteArray("file/" + KeyFile.toLatin1()), "v");
        QVERIFY(none.isNull() && !none.insert(Key, "v") && !none.remove(Key));
        QVERIFY(!none.find(Key) && !none.errorString().isEmpty());
        QVERIFY(none.value(Key).isNull() && !none.value(Key, &accepts));
        QVERIFY(!none.value(Key, &missing) && !missing.exists() && none.folder() == m_path);
    }

    void halfWritten()
    {
        // What has another name than the folder is the application's.
        const QStringList own{string("new-"), string("new-0"), string("new-63")};
        for (const QString &name : own)
            put(name.toLatin1(), "own");
        QVERIFY(QDir().mkpath(m_new));
        put(NewFolder + "/left", "half");
#ifdef Q_OS_UNIX
        QVERIFY(QFile::link(string("nowhere"), m_new + string("/link")));
        QVERIFY(mkfifo(QFile::encodeName(m_new + string("/fifo")), 0666) == 0);
#endif
        put(KeyFile.toLatin1(), "old");
        SNvCache cache = open();
        QCOMPARE(all(), QStringList{KeyFile} + own);

        // While it is written, the old value is there, and no other cache takes it for a leftover.
        Value nested([&](QDataStream &stream) {
            stream << 1;
            return open().value(Key) == "old" && cache.insert(string("b"), "in between")
                && cache.value(Key) == "old" && (stream << 2).status() == 0;
        });
        QVERIFY(cache.insert(Key, &nested) && cache.count() == 2);
        QCOMPARE(cache.value(Key).toHex(), QByteArray("0000000100000002"));
    }

#ifdef Q_OS_LINUX
    void writersWithNames()
    {
        const auto use = [this](bool links) {
            if (refuseNameless(links))
                useWriters();
        };
        std::thread(use, false).join();
        std::thread(use, true).join();
    }

    // A limit on the size of files stands for a full disk, one on their number for none to write
    // to.
    void nothingFits()
    {
        SNvCache cache = open();
        QByteArray large(100'000, 'x');
        QBuffer buffer(&large);
        Value pieces = careless(large);
        // The system takes a part of it.
        Value rash([&](QDataStream &stream) { return stream.device()->write(large) != 0; });
        const auto row = [&](auto resource, rlim_t limit, const auto &source, bool stays) {
            QVERIFY(cache.insert(Key, "v"));
            rlimit old{};
            getrlimit(resource, &old);
            const rlimit low{limit, old.rlim_max};
            setrlimit(resource, &low);
            const bool isInserted = cache.insert(Key, source);
            setrlimit(resource, &old);
            QVERIFY(!isInserted && !buffer.isOpen() && files().size() == int(stays));
            QCOMPARE(
                cache.errorString(), qt_error_string(resource == RLIMIT_FSIZE ? EFBIG : EMFILE));
            QCOMPARE(cache.value(Key), QByteArray(stays ? "v" : ""));
        };
        std::signal(SIGXFSZ, SIG_IGN);
        for (const rlim_t size : {0U, 1U, 50'000U, 99'999U}) {
            row(RLIMIT_FSIZE, size, large, false);
            row(RLIMIT_FSIZE, size, &buffer, false);
            row(RLIMIT_FSIZE, size, &pieces, false);
            row(RLIMIT_FSIZE, size, &rash, false);
        }
        row(RLIMIT_NOFILE, 0, large, false);
        row(RLIMIT_NOFILE, 0, &buffer, false);
        row(RLIMIT_NOFILE, 0, &pieces, true);
    }

    void otherFiles()
    {
        const QString elsewhere = m_folder.filePath(string("elsewhere"));
        QVERIFY(QDir().mkpath(elsewhere));
        const auto insertsOver = [&](auto block) {
            SNvCache cache = open();
            QVERIFY(cache.insert(Key, "old") && block() && cache.insert(Key, "new"));
            QVERIFY(cache.value(Key) == "new" && cache.insert(Key, "newer"));
            QVERIFY(!all().contains(QLatin1String(NewFolder)));
        };
        // In place of the folder.
        insertsOver([&] { return put(NewFolder, "a file"), true; });
        insertsOver([&] { return QFile::link(string("nowhere"), m_new); });
        insertsOver([&] { return QFile::link(elsewhere, m_new); });
        QVERIFY(QDir(elsewhere).isEmpty());

        // In place of the value, and of the index.
        Value accepts([](QDataStream &) { return true; });
        const auto isNoValue = [&](auto make) {
            QBuffer target;
            for (const QString &file : {m_path + u'/' + KeyFile, m_path + string("/index")})
                QVERIFY((QFile::remove(file), make(QFile::encodeName(file)) == 0));
            SNvCache cache = open();
            QVERIFY(cache.isEmpty() && cache.value(Key).isEmpty() && !cache.value(Key, &accepts));
            QVERIFY(
                !cache.value(Key, &target) && cache.insert(Key, "v") && cache.value(Key) == "v");
        };
        isNoValue([](const QByteArray &file) { return mkfifo(file, 0666); });
        isNoValue([](const QByteArray &file) { return symlink("/dev/zero", file); });
    }

    void makesDirectories()
    {
        // Open to the user alone, and where the system sees them: ".." of a link is elsewhere.
        QVERIFY(QDir(m_path).mkpath(string("far/off")));
        QVERIFY(QFile::link(string("far/off"), m_path + string("/link")));
        SNvCache cache(string("a/b"), m_path + string("/link/.."));
        QVERIFY(cache.insert(Key, "v"));
        const auto mine = QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;
        for (const char *made : {"/far/a", "/far/a/b"})
            QCOMPARE(QFile::permissions(m_path + string(made)) & ~0xf000, mine);
        QCOMPARE(all(), QStringList({string("far"), string("link")}));
        // A directory may be behind a link, and be removed while it is used.
        QVERIFY(QFile::link(string("far"), m_path + string("/alias")));
        SNvCache alias(string("alias"), m_path);
        QVERIFY(alias.insert(Key, "v") && alias.insert(Key, "w") && alias.value(Key) == "w");
        QCOMPARE(QDir(m_path + string("/far")).entryList(QDir::Files), QStringList{KeyFile});
        QVERIFY(QDir(m_path + string("/far")).removeRecursively());
        QVERIFY(!alias.insert(Key, "v") && alias.value(Key).isNull() && alias.remove(Key));
        QVERIFY(SNvCache(string("x"), QString(m_path + QChar(0))).isNull());
        QVERIFY(QFile::link(string("nowhere"), m_path + string("/gone")));
        QVERIFY(SNvCache(string("gone"), m_path).isNull());
    }

    // They have no size, and seem to be at their end before they are read.
    void unsizedSources()
    {
        SNvCache cache = open();
        QFile system(string("/proc/self/stat"));
        QVERIFY(cache.insert(Key, &system) && cache.value(Key).contains("tst_snvcache"));
        int ends[2];
        QVERIFY(pipe(ends) == 0 && write(ends[1], "through", 7) == 7 && ::close(ends[1]) == 0);
        QFile reader;
        QVERIFY(reader.open(ends[0], QIODevice::ReadOnly, QFile::AutoCloseHandle));
        QVERIFY(cache.insert(Key, &reader) && cache.value(Key) == "through");
    }
#endif

    void foreignIndex()
    {
        const auto index = [](const QList<std::pair<QString, QByteArray>> &entries) {
            QByteArray bytes = Magic;
            QDataStream stream(&bytes, QIODevice::Append);
            stream << entries;
            return bytes;
        };
        const auto countOf = [&](const QByteArray &bytes) {
            put("index", bytes);
            SNvCache cache = open();
            for (const QString &key : cache.keys())
                (void)cache.value(key);
            return cache.count();
        };
        const QString tooLong = string("b");
        put("2e2e", "v");
        put("index", index({{Key, "old"}, {tooLong, QByteArray(200, '/')}, {{}, {}}, {Key, ".."}}));
        {
            SNvCache cache = open();
            QVERIFY(cache.count() == 2 && cache.value(Key) == "v" && cache.insert(Key, "w"));
            QVERIFY(!cache.insert(tooLong, "v") && content(string("2e2e")) == "w");
        }
        const QByteArray whole = index({{Key, "1"}, {tooLong, "2"}});
        for (qsizetype i = 0; i < whole.size(); ++i)
            QCOMPARE(countOf(whole.left(i)), 0);
        for (qsizetype i = 0; i < 8 * whole.size(); ++i) {
            QByteArray damaged = whole;
            damaged[i / 8] = static_cast<char>(damaged[i / 8] ^ 1 << i % 8);
            QVERIFY(countOf(damaged) <= (i < 128 ? 0 : 2));
        }
    }

    void threads()
    {
        SSafeNvCache cache(string("cache"), m_folder.path());
        const auto use = [&](int begin) {
            for (int n = begin; n < begin + 100; ++n) {
                const QString key = QString::number(n);
                Value value([&](QDataStream &stream) {
                    return !cache.contains(key) && (stream << n).status() == 0;
                });
                if (cache.insert(key, &value) && cache.find(key)->size() == 4
                    && cache.errorString().isEmpty() && n % 2)
                    cache.remove(key);
            }
        };
        together([&] { use(0); }, [&] { use(100); }, [&] { use(200); }, [&] { use(300); });
        QCOMPARE(cache.keys().size(), 4 * 50);
    }
};

QTEST_APPLESS_MAIN(TestSNvCache)
#include "tst_snvcache.moc"
