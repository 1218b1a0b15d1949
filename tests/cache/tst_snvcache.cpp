#include "common.h"
#include "forms.h"

#include <csignal>

#ifdef Q_OS_LINUX
#include "refuse.h"

#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace {

const QString Key = "key"_s;
/// SHA-256 of the key, as another program computes it.
const char *const KeyFile = "2c70e12b7a0646f92279f427c7b38e7334d8e5389cff167a1dc30e73f826b683";

/// Whether a value that is being read can be replaced.
const bool CanReplace = QOperatingSystemVersion::currentType() != QOperatingSystemVersion::Windows;

/// What an index begins with.
const QByteArray Magic = QByteArray::fromHex("c0e6a09cc943403994b5ccaee60e32e8");
/// The folder of files that are being written.
const char *const NewFolder = "new-c0e6a09c-c943-4039-94b5-ccaee60e32e8";

} // namespace

class TestSNvCache : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    Value m_accepts{[](QDataStream &) { return true; }};
    QString m_path = m_folder.filePath("cache"_s);
    QString m_new = at(NewFolder);

    [[nodiscard]] SNvCache open() const { return SNvCache("cache"_s, m_folder.path()); }
    [[nodiscard]] QStringList all() const
    {
        return QDir(m_path).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }
    [[nodiscard]] QString at(const char *name) const { return m_path + u'/' + string(name); }
    void put(const char *name, const QByteArray &data = {}) const
    {
        QVERIFY2(putFile(at(name), data), name);
    }
    [[nodiscard]] QStringList files() const { return QDir(m_path).entryList(QDir::Files); }

    template <typename Cache>
    void useForms()
    {
        const QString device = "device"_s;
        const QString object = "object"_s;
        QByteArray large(100001, 'x');
        QBuffer buffer(&large);
        QBuffer copy;
        float number = 0;
        const auto is5_6 = [](const QDataStream &stream) {
            return stream.status() == 0 && stream.version() == QDataStream::Qt_5_6;
        };
        Value writer([&](QDataStream &stream) { return is5_6(stream << 2.0F); });
        Value reader([&](QDataStream &stream) { return is5_6(stream >> number); });
        {
            Cache cache("cache"_s, m_folder.path());
            VERIFY_ALL(cache.isEmpty(), !cache.isNull(), cache.name() == "cache"_s);
            VERIFY_ALL(cache.insert(Key, QByteArray("a longer one")), cache.insert(Key, "v"));
            VERIFY_ALL(cache.insert(device, &buffer), cache.insert(object, &writer));
            VERIFY_ALL(!buffer.isOpen(), cache.count() == 3);
        }
        const QByteArray index = contentOf(at("index"));
        QVERIFY(index.startsWith(Magic + QByteArray::fromHex("0000000000000003")));
        QCOMPARE(index.size(), 24 + 3 * (4 + 4 + 32) + 2 * (3 + 6 + 6));
        QCOMPARE(contentOf(at(KeyFile)), "v");

        // The index reads back empty, and everything is still there.
        Cache cache("cache"_s, m_folder.path());
        VERIFY_ALL(!cache.contains(Key), cache.insert(Key, "w"), files().size() == 4);
        VERIFY_ALL(cache.value(device, &copy), copy.data() == large, !copy.isOpen());
        VERIFY_ALL(cache.value(object, &reader), number == 2, cache.value(device) == large);
        // That version of streams writes a float in eight bytes.
        QCOMPARE(cache.value(object).toHex(), QByteArray("4000000000000000"));
        VERIFY_ALL(!cache.isEmpty(), cache.contains(Key), cache.folder() == m_folder.path());
        VERIFY_ALL(cache.insert("empty"_s, QByteArray()), cache.find("empty"_s) == QByteArray());
        cache.clear();
        VERIFY_ALL(!cache.find("empty"_s), cache.errorString().isEmpty());
        VERIFY_ALL(cache.isEmpty(), cache.value(Key).isNull(), !cache.value(Key, &copy));
        VERIFY_ALL(cache.remove(Key), cache.remove(device), files().size() == 2);
        QCOMPARE(Cache({}, m_folder.path()).name().remove(u'-').size(), 32);
    }

    /// Many writers at a time all succeed and leave nothing but values.
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
        VERIFY_ALL(cache.insert(Key, "old"), cache.insert(Key, &deepest));
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
                        failures += !mine.insert(shared, value) || !mine.insert(own, &buffer)
                            || mine.value(own) != value;
                        const QByteArray last = mine.value(shared);
                        const int writer = last.isEmpty() ? 0 : last.front();
                        failures += last != QByteArray(10'000 + writer, char(writer));
                    }
                });
            }
        }
        QCOMPARE(failures, 0);
        QCOMPARE(all().size(), 100 + CanReplace + 1);
    }

private Q_SLOTS:
    void init() { VERIFY_ALL(QDir(m_path).removeRecursively(), QDir().mkpath(m_path)); }

    void forms() { useForms<SNvCache>(); }
    void lockedForms() { useForms<SSafeNvCache>(); }
    void writers() { useWriters(); }

    void failures()
    {
        SNvCache cache = open();
        QFile missing(at("missing"));
        QSaveFile saved(missing.fileName()); // Ends the process when it is closed.
        Value refuses([](QDataStream &stream) { return (stream << 1).status() != 0; });
        const auto check = [&](auto *source) {
            VERIFY_ALL(cache.insert(Key, "v"), cache.errorString().isEmpty());
            VERIFY_ALL(!cache.insert(Key, source), cache.contains(Key));
            QVERIFY(!cache.errorString().isEmpty());
            QVERIFY(source ? files().isEmpty() : !cache.value(Key, source));
        };
        check(&missing);
        check(&saved);
        check(&refuses);
        check(static_cast<QIODevice *>(nullptr));
        check(static_cast<Quorvex::Interfaces::ISerializable *>(nullptr));
        // A folder in place of the file cannot be removed, but counts as no value.
        VERIFY_ALL(cache.insert(Key, "v"), QFile::remove(at(KeyFile)));
        VERIFY_ALL(QDir(at(KeyFile)).mkpath("x"_s), !cache.remove(Key), cache.contains(Key));
        cache.clear();
        VERIFY_ALL(cache.isEmpty(), !cache.value("none"_s, &m_accepts));

        put("file");
        QVERIFY(SSafeNvCache("file"_s, m_path).isNull());
        SNvCache none("file"_s, m_path); // There was no directory when it was made.
        VERIFY_ALL(QFile::remove(at("file")), QDir().mkpath(at("file")));
        put(QByteArray("file/").append(KeyFile).constData(), "v");
        VERIFY_ALL(none.isNull(), !none.insert(Key, "v"), !none.remove(Key));
        VERIFY_ALL(!none.find(Key), !none.errorString().isEmpty());
        VERIFY_ALL(none.value(Key).isNull(), !none.value(Key, &m_accepts));
        VERIFY_ALL(!none.value(Key, &missing), !missing.exists(), none.folder() == m_path);
    }

    void halfWritten()
    {
        // Files whose names only resemble the folder's belong to the application.
        const QStringList own{"new-"_s, "new-0"_s, "new-63"_s};
        for (const QString &name : own)
            put(qPrintable(name), "own");
        QVERIFY(QDir().mkpath(m_new));
        QVERIFY(putFile(m_new + "/left"_s, "half"));
#ifdef Q_OS_UNIX
        QVERIFY(QFile::link("nowhere"_s, m_new + "/link"_s));
        QVERIFY(mkfifo(QFile::encodeName(m_new + "/fifo"_s), 0666) == 0);
#endif
        put(KeyFile, "old");
        SNvCache cache = open();
        QCOMPARE(all(), QStringList{string(KeyFile)} + own);

        // While it is written, the old value is there, and no other cache takes it for a leftover.
        Value nested([&](QDataStream &stream) {
            stream << 1;
            return open().value(Key) == "old" && cache.insert("b"_s, "in between")
                && cache.value(Key) == "old" && (stream << 2).status() == 0;
        });
        VERIFY_ALL(cache.insert(Key, &nested), cache.count() == 2);
        QCOMPARE(cache.value(Key).toHex(), QByteArray("0000000100000002"));
    }

#ifdef Q_OS_LINUX
    void writersWithNames()
    {
        for (const bool links : {false, true})
            std::thread([&] { refuseNameless(links) ? useWriters() : void(); }).join();
    }

    // A limit on the size of files imitates a full disk, one on open files a system without
    // handles.
    void nothingFits()
    {
        SNvCache cache = open();
        QByteArray large(100'000, 'x');
        QBuffer buffer(&large);
        Value pieces = careless(large);
        // One large write, of which the system takes a part.
        Value rash([&](QDataStream &stream) { return stream.device()->write(large) != 0; });
        const auto row = [&](auto resource, rlim_t limit, const auto &source, bool stays) {
            QVERIFY(cache.insert(Key, "v"));
            rlimit old{};
            getrlimit(resource, &old);
            const rlimit low{limit, old.rlim_max};
            setrlimit(resource, &low);
            const bool isInserted = cache.insert(Key, source);
            setrlimit(resource, &old);
            VERIFY_ALL(!isInserted, !buffer.isOpen(), files().size() == int(stays));
            QCOMPARE(
                cache.errorString(), qt_error_string(resource == RLIMIT_FSIZE ? EFBIG : EMFILE));
            QCOMPARE(cache.value(Key), QByteArray(stays ? "v" : ""));
        };
        std::signal(SIGXFSZ, SIG_IGN);
        const auto rows = [&](auto resource, rlim_t limit, bool piecesStay) {
            row(resource, limit, large, false);
            row(resource, limit, &buffer, false);
            row(resource, limit, &pieces, piecesStay);
        };
        for (const rlim_t size : {0U, 1U, 50'000U, 99'999U}) {
            rows(RLIMIT_FSIZE, size, false);
            row(RLIMIT_FSIZE, size, &rash, false);
        }
        rows(RLIMIT_NOFILE, 0, true);
    }

    void otherFiles()
    {
        const QString elsewhere = m_folder.filePath("elsewhere"_s);
        QVERIFY(QDir().mkpath(elsewhere));
        const auto insertsOver = [&](auto block) {
            SNvCache cache = open();
            VERIFY_ALL(cache.insert(Key, "old"), block(), cache.insert(Key, "new"));
            VERIFY_ALL(cache.value(Key) == "new", cache.insert(Key, "newer"));
            QVERIFY(!all().contains(QLatin1String(NewFolder)));
        };
        // In place of the folder.
        insertsOver([&] { return putFile(m_new); });
        insertsOver([&] { return QFile::link("nowhere"_s, m_new); });
        insertsOver([&] { return QFile::link(elsewhere, m_new); });
        QVERIFY(QDir(elsewhere).isEmpty());

        // In place of the value, and of the index.
        const auto isNoValue = [&](auto make) {
            QBuffer target;
            for (const QString &file : {at(KeyFile), at("index")})
                QVERIFY((QFile::remove(file), make(QFile::encodeName(file)) == 0));
            SNvCache cache = open();
            VERIFY_ALL(cache.isEmpty(), cache.value(Key).isEmpty(), !cache.value(Key, &m_accepts));
            VERIFY_ALL(!cache.value(Key, &target), cache.insert(Key, "v"), cache.value(Key) == "v");
        };
        isNoValue([](const QByteArray &file) { return mkfifo(file, 0666); });
        isNoValue([](const QByteArray &file) { return symlink("/dev/zero", file); });
    }

    void makesDirectories()
    {
        // Only the user may open them. The system, not the text, resolves ".." behind a link.
        QVERIFY(QDir(m_path).mkpath("far/off"_s));
        QVERIFY(QFile::link("far/off"_s, at("link")));
        SNvCache cache("a/b"_s, at("link/.."));
        QVERIFY(cache.insert(Key, "v"));
        const auto mine = QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;
        for (const char *made : {"far/a", "far/a/b"})
            QCOMPARE(QFile::permissions(at(made)) & ~0xf000, mine);
        QCOMPARE(all(), QStringList({"far"_s, "link"_s}));
        // A directory may be behind a link, and be removed while it is used.
        QVERIFY(QFile::link("far"_s, at("alias")));
        SNvCache alias("alias"_s, m_path);
        VERIFY_ALL(alias.insert(Key, "v"), alias.insert(Key, "w"), alias.value(Key) == "w");
        QCOMPARE(QDir(at("far")).entryList(QDir::Files), QStringList{string(KeyFile)});
        QVERIFY(QDir(at("far")).removeRecursively());
        VERIFY_ALL(!alias.insert(Key, "v"), alias.value(Key).isNull(), alias.remove(Key));
        QVERIFY(SNvCache("x"_s, QString(m_path + QChar(0))).isNull());
        QVERIFY(QFile::link("nowhere"_s, at("gone")));
        QVERIFY(SNvCache("gone"_s, m_path).isNull());
    }

    // It has no size, and seems to be at its end before it is read.
    void unsizedSource()
    {
        SNvCache cache = open();
        QFile system("/proc/self/stat"_s);
        QVERIFY(cache.insert(Key, &system));
        QVERIFY(cache.value(Key).contains("tst_snvcache"));
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
        const QString tooLong = "b"_s;
        put("2e2e", "v");
        put("index", index({{Key, "old"}, {tooLong, QByteArray(200, '/')}, {{}, {}}, {Key, ".."}}));
        {
            SNvCache cache = open();
            VERIFY_ALL(cache.count() == 2, cache.value(Key) == "v", cache.insert(Key, "w"));
            VERIFY_ALL(!cache.insert(tooLong, "v"), contentOf(at("2e2e")) == "w");
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
        SSafeNvCache cache("cache"_s, m_folder.path());
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
