#include <tavex/ISerializable>
#include <tavex/SNvCache>
#include <tavex/SSafeNvCache>

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

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

/// Calls back when it is read or written.
struct Value : Quorvex::Interfaces::ISerializable
{
    explicit Value(std::function<bool(QDataStream &)> function)
        : operation(std::move(function))
    {
    }
    bool read(QDataStream &stream) override { return operation(stream); }
    bool write(QDataStream &stream) override { return operation(stream); }
    std::function<bool(QDataStream &)> operation;
};

} // namespace

class TestSNvCache : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("cache"));

    [[nodiscard]] SNvCache open() const
    {
        return SNvCache(QStringLiteral("cache"), m_folder.path());
    }
    void put(const char *name, const QByteArray &data) const
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

private Q_SLOTS:
    void init() { QVERIFY(QDir(m_path).removeRecursively() && QDir().mkpath(m_path)); }

    void forms()
    {
        const QString device = QStringLiteral("device");
        const QString object = QStringLiteral("object");
        QByteArray large(100001, 'x');
        QBuffer buffer(&large);
        QBuffer copy;
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
        const QByteArray index = content(QStringLiteral("index"));
        QCOMPARE(index.size(), 24 + 3 * (4 + 4 + 32) + 2 * (3 + 6 + 6));
        QCOMPARE(
            index.left(24).toHex(), QByteArray("c0e6a09cc943403994b5ccaee60e32e80000000000000003"));

        // The index reads back empty, and everything is still there.
        SNvCache cache = open();
        QVERIFY(!cache.contains(Key) && cache.insert(Key, "w") && files().size() == 4);
        QVERIFY(cache.value(device, &copy) && copy.data() == large && !copy.isOpen());
        QVERIFY(cache.value(object, &reader) && number == 2 && cache.value(device) == large);
        QCOMPARE(cache.value(object).toHex(),
            QByteArray("4000000000000000")); // As that version of streams does.
        cache.clear();
        QVERIFY(cache.isEmpty() && cache.value(Key).isNull() && !cache.value(Key, &copy));
        QVERIFY(cache.remove(Key) && cache.remove(device) && files().size() == 2);
        QCOMPARE(SNvCache({}, m_folder.path()).name().remove(u'-').size(), 32);
    }

    void failures()
    {
        SNvCache cache = open();
        QFile missing(m_path + QStringLiteral("/missing"));
        Value refuses([](QDataStream &stream) { return (stream << 1).status() != 0; });
        const auto check = [&](auto *source) {
            QVERIFY(cache.insert(Key, "v") && !cache.insert(Key, source) && cache.contains(Key));
            QCOMPARE(files(), QStringList());
        };
        check(&missing);
        check(&refuses);
        put("file", {});
        SNvCache none(QStringLiteral("file"), m_path); // There is no directory.
        QVERIFY(none.isNull() && !none.insert(Key, "v") && !none.remove(Key));
        QVERIFY(none.value(Key).isNull() && !none.value(Key, &refuses));
    }

    void halfWritten()
    {
        for (const char *name : {"new-0", "new-99", "new-"})
            put(name, "old");
        put(KeyFile.toLatin1(), "old");
        SNvCache cache = open();
        QVERIFY(files().size() == 3 && content(QStringLiteral("new-0")) == "no file");

        // While it is written, the old value is there, and no other cache takes it for a leftover.
        Value nested([&](QDataStream &stream) {
            stream << 1;
            return open().value(Key) == "old" && cache.insert(QStringLiteral("b"), "in between")
                && cache.value(Key) == "old" && (stream << 2).status() == 0;
        });
        QVERIFY(cache.insert(Key, &nested) && cache.count() == 2);
        QCOMPARE(cache.value(Key).toHex(), QByteArray("0000000100000002"));
    }

    void foreignIndex()
    {
        const auto index = [](qint32 count, const QList<std::pair<QString, QByteArray>> &entries) {
            QByteArray bytes = QByteArray::fromHex("c0e6a09cc943403994b5ccaee60e32e8");
            QDataStream stream(&bytes, QIODevice::Append);
            stream.setVersion(QDataStream::Qt_5_6);
            stream << count;
            for (const auto &[key, digest] : entries)
                stream << key << digest;
            return bytes;
        };
        const auto countOf = [&](const QByteArray &bytes) {
            put("index", bytes);
            SNvCache cache = open();
            for (const QString &key : cache.keys())
                (void)cache.value(key);
            return cache.count();
        };
        const QString tooLong = QStringLiteral("b");
        put("2e2e", "v");
        put("index",
            index(4, {{Key, "old"}, {tooLong, QByteArray(200, '/')}, {{}, {}}, {Key, ".."}}));
        {
            SNvCache cache = open();
            QVERIFY(cache.count() == 2 && cache.value(Key) == "v" && cache.insert(Key, "w"));
            QVERIFY(!cache.insert(tooLong, "v") && content(QStringLiteral("2e2e")) == "w");
        }
        const QByteArray whole = index(2, {{Key, "1"}, {tooLong, "2"}});
        for (qsizetype i = 0; i < whole.size(); ++i)
            QCOMPARE(countOf(whole.left(i)), 0);
        for (qsizetype i = 0; i < 8 * whole.size(); ++i) {
            QByteArray damaged = whole;
            damaged[i / 8] = static_cast<char>(damaged[i / 8] ^ 1 << i % 8);
            QVERIFY(countOf(damaged) <= (i < 128 ? 0 : 2));
        }
        QCOMPARE(countOf(index(0x7fffffff, {{Key, "1"}})), 0);
    }

    void threads()
    {
        SSafeNvCache cache(QStringLiteral("cache"), m_folder.path());
        std::vector<std::jthread> threads;
        threads.reserve(8);
        for (int i = 0; i < 8; ++i) {
            threads.emplace_back([&cache, i] {
                for (int n = 0; n < 50; ++n) {
                    const QString key = QString::number(100 * i + n);
                    Value value([&](QDataStream &stream) {
                        return !cache.contains(key) && (stream << n).status() == 0;
                    });
                    if (cache.insert(key, &value) && cache.value(key).size() == 4 && n % 2)
                        cache.remove(key);
                }
            });
        }
        threads.clear();
        QCOMPARE(cache.keys().size(), 8 * 25);
    }
};

QTEST_APPLESS_MAIN(TestSNvCache)
#include "tst_snvcache.moc"
