#include <tavex/ISerializable>
#include <tavex/SNvCache>
#include <tavex/SSafeNvCache>

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <functional>
#include <thread>
#include <utility>
#include <vector>

using Quorvex::SNvCache;
using Quorvex::SSafeNvCache;

namespace {

const QString Key = QStringLiteral("key");
/// SHA-256 of the key, by another program.
const QString KeyFile =
    QStringLiteral("2c70e12b7a0646f92279f427c7b38e7334d8e5389cff167a1dc30e73f826b683");
const QString Index = QStringLiteral("index");

/// Calls back when it is read or written.
class Value : public Quorvex::Interfaces::ISerializable
{
public:
    using Operation = std::function<bool(QDataStream &)>;

    explicit Value(Operation operation)
        : m_operation(std::move(operation))
    {
    }
    bool read(QDataStream &stream) override { return m_operation(stream); }
    bool write(QDataStream &stream) override { return m_operation(stream); }

private:
    Operation m_operation;
};

/// Gives 40,000 bytes and then fails.
class BrokenDevice : public QIODevice
{
public:
    [[nodiscard]] bool isSequential() const override { return true; }
    [[nodiscard]] bool atEnd() const override { return false; }

protected:
    qint64 readData(char *data, qint64 size) override
    {
        const qint64 count = qMin(size, std::exchange(m_left, -1));
        std::fill_n(data, qMax(count, qint64{0}), 'b');
        return count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    qint64 m_left = 40000;
};

} // namespace

class TestSNvCache : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    [[nodiscard]] QString path(const QString &name = {}) const
    {
        return m_folder.filePath(QLatin1String("cache/") + name);
    }
    [[nodiscard]] SNvCache open() const
    {
        return SNvCache(QStringLiteral("cache"), m_folder.path());
    }
    [[nodiscard]] QByteArray content(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    void put(const QString &name, const QByteArray &data) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(data) == data.size());
    }
    [[nodiscard]] QStringList files() const
    {
        return QDir(path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

private Q_SLOTS:
    void init() { QVERIFY(QDir(path()).removeRecursively() && QDir().mkpath(path())); }

    void forms()
    {
        const QString device = QStringLiteral("device");
        const QString object = QStringLiteral("object");
        QByteArray large(100001, 'x');
        QBuffer buffer(&large);
        float number = 0;
        Value writer([](QDataStream &stream) { return (stream << 2.0F).status() == 0; });
        Value reader([&](QDataStream &stream) { return (stream >> number).status() == 0; });
        {
            SNvCache cache = open();
            QVERIFY(cache.insert(Key, QByteArray("a longer one")) && cache.insert(Key, "v"));
            QVERIFY(cache.insert(device, &buffer) && cache.insert(object, &writer));
            QCOMPARE(cache.count(), 3);
        }
        QCOMPARE(content(KeyFile), QByteArray("v"));
        QCOMPARE(files().size(), 4);
        QCOMPARE(content(Index).size(), 24 + 3 * (4 + 4 + 32) + 2 * (3 + 6 + 6));
        QCOMPARE(content(Index).left(24).toHex(),
            QByteArray("c0e6a09cc943403994b5ccaee60e32e80000000000000003"));

        // The index reads back empty, and everything is still there.
        SNvCache cache = open();
        QVERIFY(cache.isEmpty() && !cache.contains(Key) && cache.insert(Key, "w"));
        QCOMPARE(cache.keys(), QStringList(Key));
        QBuffer copy;
        QVERIFY(cache.value(device, &copy) && copy.data() == large && !copy.isOpen());
        QCOMPARE(cache.value(device), large);
        QVERIFY(cache.value(object, &reader) && number == 2);
        // 40000000 as a real number of double precision, as of that version of the stream.
        QCOMPARE(cache.value(object).toHex(), QByteArray("4000000000000000"));
        cache.clear();
        QVERIFY(cache.isEmpty() && cache.value(Key).isNull() && !cache.value(Key, &copy));
        QVERIFY(cache.remove(Key) && cache.remove(device) && files().size() == 2);
        QCOMPARE(SNvCache({}, m_folder.path()).name().remove(u'-').size(), 32);
    }

    void failures()
    {
        SNvCache cache = open();
        BrokenDevice broken;
        QFile missing(path(QStringLiteral("missing")));
        Value refuses([](QDataStream &stream) { return (stream << 1).status() != 0; });
        const auto check = [&](auto *source) {
            QVERIFY(cache.insert(Key, "v") && !cache.insert(Key, source) && cache.contains(Key));
            QCOMPARE(files(), QStringList());
        };
        check(&broken);
        check(&missing);
        check(&refuses);
        QVERIFY(cache.insert(Key, "v") && !cache.value(Key, &broken));
        QVERIFY(!cache.insert(Key, static_cast<QIODevice *>(nullptr)));

        SNvCache null(KeyFile, path()); // A file is in the place of its directory.
        QVERIFY(null.isNull() && !null.insert(Key, "v") && !null.remove(Key));
        QVERIFY(null.value(Key).isNull() && !null.value(Key, &refuses));
    }

    void halfWritten()
    {
        // Only the names of new files are swept.
        const QStringList kept{KeyFile, QStringLiteral("new-"), QStringLiteral("new-99")};
        for (const QString &name : kept + QStringList(QStringLiteral("new-0")))
            put(name, "old");
        SNvCache cache = open();
        QCOMPARE(files(), kept);

        // While it is written, the old value is there, and no other cache takes it for a leftover.
        Value nested([&](QDataStream &stream) {
            stream << 1;
            SNvCache other = open();
            return other.value(Key) == "old" && cache.insert(QStringLiteral("b"), "in between")
                && cache.value(Key) == "old" && (stream << 2).status() == 0;
        });
        QVERIFY(cache.insert(Key, &nested));
        QCOMPARE(cache.value(Key).toHex(), QByteArray("0000000100000002"));
        QCOMPARE(cache.count(), 2);
    }

    void foreignIndex()
    {
        QByteArray index;
        QDataStream stream(&index, QIODevice::WriteOnly);
        stream.setVersion(QDataStream::Qt_5_6);
        const auto header = [&](qint32 count) {
            index.clear();
            stream.device()->seek(0);
            stream << QUuid(QStringLiteral("c0e6a09c-c943-4039-94b5-ccaee60e32e8")) << count;
        };
        // Its digest wins, whatever its length.
        header(4);
        stream << Key << QByteArray("replaced") << QStringLiteral("long") << QByteArray(200, '/')
               << QStringLiteral("none") << QByteArray() << Key << QByteArray("..");
        put(Index, index);
        put(QStringLiteral("2e2e"), "v");
        {
            SNvCache cache = open();
            QCOMPARE(cache.count(), 2);
            QCOMPARE(cache.value(Key), QByteArray("v"));
            QVERIFY(!cache.insert(QStringLiteral("long"), "v") && cache.insert(Key, "w"));
            QCOMPARE(content(QStringLiteral("2e2e")), QByteArray("w"));
        }

        header(2);
        stream << QStringLiteral("a") << QByteArray("1") << QStringLiteral("b") << QByteArray("2");
        const auto countOf = [&](const QByteArray &damaged) {
            put(Index, damaged);
            SNvCache cache = open();
            for (const QString &key : cache.keys())
                (void)cache.value(key);
            return cache.count();
        };
        for (qsizetype i = 0; i < index.size(); ++i)
            QCOMPARE(countOf(index.left(i)), 0);
        for (qsizetype i = 0; i < 8 * index.size(); ++i) {
            QByteArray damaged = index;
            damaged[i / 8] = char(damaged[i / 8] ^ 1 << i % 8);
            QVERIFY(countOf(damaged) <= (i < 8 * 16 ? 0 : 2));
        }
        header(0x7fffffff);
        QCOMPARE(countOf(index), 0);
    }

    void threads()
    {
        SSafeNvCache cache(QStringLiteral("cache"), m_folder.path());
        std::vector<std::thread> threads;
        for (int i = 0; i < 8; ++i) {
            threads.emplace_back([&cache, i] {
                for (int n = 0; n < 50; ++n) {
                    const QString key = QString::number(100 * i + n);
                    Value value([&](QDataStream &stream) {
                        return !cache.contains(key) && (stream << n).status() == 0;
                    });
                    if (!cache.insert(key, &value) || cache.value(key).size() != 4
                        || (n % 2 && !cache.remove(key)))
                        return;
                }
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(cache.keys().size(), 8 * 25);
    }
};

QTEST_APPLESS_MAIN(TestSNvCache)
#include "tst_snvcache.moc"
