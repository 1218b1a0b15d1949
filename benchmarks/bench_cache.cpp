// Values put and got by key, beside files written and read by the bare system calls, and beside two
// databases. All is in the page cache, and what counts is processor time: waiting for the disk
// would hide the rest. Nobody synchronises with the disk.

#include "harness.h"

#include <tavex/SNvCache>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <ctime>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include <fcntl.h>
#include <lmdb.h>
#include <sqlite3.h>
#include <unistd.h>

namespace {

using Quorvex::SNvCache;

void require(bool done, const char *what)
{
    if (!done)
        Bench::Topic::fail(QStringLiteral("cache: %1 failed").arg(QString::fromUtf8(what)));
}

double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// The stores have the same members; keys are numbers from 0 to a limit.
class Ours
{
public:
    Ours(const QString &folder, int limit, qsizetype)
        : m_cache(QString(), folder)
    {
        for (int i = 0; i < limit; ++i)
            m_keys.append(QStringLiteral("key %1").arg(i));
    }
    bool put(int i, const QByteArray &data) { return m_cache.insert(m_keys.at(i), data); }
    [[nodiscard]] QByteArray get(int i) const { return m_cache.value(m_keys.at(i)); }

private:
    SNvCache m_cache;
    QStringList m_keys;
};

/// Knows its paths, and into what it reads, beforehand.
class Files
{
public:
    Files(const QString &folder, int limit, qsizetype size)
        : m_new((folder + QStringLiteral("/new")).toStdString())
        , m_data(size, '\0')
    {
        for (int i = 0; i < limit; ++i)
            m_paths.push_back(
                QStringLiteral("%1/%2").arg(folder).arg(i, 64, 16, QLatin1Char('0')).toStdString());
    }
    [[nodiscard]] bool put(int i, const QByteArray &data) const
    {
        const int file = open(m_new.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        return file >= 0 && write(file, data.constData(), std::size_t(data.size())) == data.size()
            && close(file) == 0 && std::rename(m_new.c_str(), path(i)) == 0;
    }
    QByteArray get(int i)
    {
        const int file = open(path(i), O_RDONLY | O_CLOEXEC);
        const ssize_t size = read(file, m_data.data(), std::size_t(m_data.size()));
        close(file);
        return QByteArray::fromRawData(m_data.constData(), qMax(size, ssize_t{0}));
    }

private:
    [[nodiscard]] const char *path(int i) const { return m_paths.at(std::size_t(i)).c_str(); }

    std::string m_new;
    std::vector<std::string> m_paths;
    QByteArray m_data;
};

class Sqlite
{
public:
    Sqlite(const QString &folder, int, qsizetype)
    {
        require(sqlite3_open(QFile::encodeName(folder + QStringLiteral("/sqlite")), &m_base) == 0
                && sqlite3_exec(m_base,
                       "pragma journal_mode=wal; pragma synchronous=off;"
                       "create table t(key integer primary key, value blob)",
                       nullptr, nullptr, nullptr)
                    == 0,
            "SQLite");
        sqlite3_prepare_v2(m_base, "insert into t values(?, ?)", -1, &m_put, nullptr);
        sqlite3_prepare_v2(m_base, "select value from t where key = ?", -1, &m_get, nullptr);
    }
    Q_DISABLE_COPY_MOVE(Sqlite)
    ~Sqlite()
    {
        sqlite3_finalize(m_put);
        sqlite3_finalize(m_get);
        sqlite3_close(m_base);
    }
    bool put(int i, const QByteArray &data)
    {
        sqlite3_bind_int(m_put, 1, i);
        sqlite3_bind_blob(m_put, 2, data.constData(), int(data.size()), SQLITE_STATIC);
        const bool done = sqlite3_step(m_put) == SQLITE_DONE;
        return sqlite3_reset(m_put) == 0 && done;
    }
    QByteArray get(int i)
    {
        sqlite3_bind_int(m_get, 1, i);
        QByteArray data;
        if (sqlite3_step(m_get) == SQLITE_ROW)
            data = {static_cast<const char *>(sqlite3_column_blob(m_get, 0)),
                sqlite3_column_bytes(m_get, 0)};
        sqlite3_reset(m_get);
        return data;
    }

private:
    sqlite3 *m_base = nullptr;
    sqlite3_stmt *m_put = nullptr;
    sqlite3_stmt *m_get = nullptr;
};

class Lmdb
{
public:
    Lmdb(const QString &folder, int, qsizetype)
    {
        const QByteArray path = QFile::encodeName(folder + QStringLiteral("/lmdb"));
        MDB_txn *action = nullptr;
        require(mdb_env_create(&m_base) == 0 && mdb_env_set_mapsize(m_base, 1 << 30) == 0
                && mdb_env_open(m_base, path.constData(), MDB_NOSYNC | MDB_NOSUBDIR, 0666) == 0
                && mdb_txn_begin(m_base, nullptr, 0, &action) == 0
                && mdb_dbi_open(action, nullptr, MDB_INTEGERKEY, &m_table) == 0
                && mdb_txn_commit(action) == 0,
            "LMDB");
    }
    Q_DISABLE_COPY_MOVE(Lmdb)
    ~Lmdb() { mdb_env_close(m_base); }
    bool put(int i, const QByteArray &data)
    {
        MDB_txn *action = nullptr;
        MDB_val key{sizeof i, &i};
        MDB_val value{std::size_t(data.size()), const_cast<char *>(data.constData())};
        return mdb_txn_begin(m_base, nullptr, 0, &action) == 0
            && mdb_put(action, m_table, &key, &value, 0) == 0 && mdb_txn_commit(action) == 0;
    }
    QByteArray get(int i)
    {
        MDB_txn *action = nullptr;
        MDB_val key{sizeof i, &i};
        MDB_val value{};
        QByteArray data;
        if (mdb_txn_begin(m_base, nullptr, MDB_RDONLY, &action) == 0
            && mdb_get(action, m_table, &key, &value) == 0)
            data = {static_cast<const char *>(value.mv_data), qsizetype(value.mv_size)};
        mdb_txn_abort(action);
        return data;
    }

private:
    MDB_env *m_base = nullptr;
    MDB_dbi m_table = 0;
};

/// A store in use: every key is new. One that is full is deleted and made afresh. That is often
/// with large values only: for minutes after many files were deleted, the file system is slower at
/// making some.
template <typename Store>
class Series
{
public:
    Series(const QString &folder, int limit, const QByteArray &data)
        : m_folder(folder)
        , m_limit(limit)
        , m_data(data)
    {
        renew();
    }

    /// Puts so many keys and returns the time for one.
    double put(int count)
    {
        if (m_next + count > m_limit)
            renew();
        bool done = true;
        const double start = processorSeconds();
        for (const int end = m_next + count; m_next < end; ++m_next)
            done = m_store->put(m_next, m_data) && done;
        const double seconds = processorSeconds() - start;
        require(done, "a put");
        return seconds / count;
    }

    QByteArray get(int i) { return m_store->get(i); }

private:
    void renew()
    {
        m_store.reset();
        require(QDir(m_folder).removeRecursively() && QDir().mkpath(m_folder), "a new folder");
        m_store = std::make_unique<Store>(m_folder, m_limit, m_data.size());
        m_next = 0;
    }

    QString m_folder;
    int m_limit;
    QByteArray m_data;
    std::unique_ptr<Store> m_store;
    int m_next = 0;
};

template <typename Store>
auto putter(Series<Store> &series, int count)
{
    return [&series, count] { return series.put(count); };
}

template <typename Store>
auto getter(Series<Store> &series)
{
    return [&series](int i) { return series.get(i); };
}

/// \a count values are put in a round, and as many rounds fill the stores.
void values(const Bench::Topic &topic, const QString &root, const std::string &sizeName,
    qsizetype size, int count, int rounds)
{
    const QString folder = root + QLatin1Char('/') + QString::fromStdString(sizeName);
    const QByteArray data(size, 'v');
    const int limit = count * rounds;
    Series<Ours> ours(folder + QStringLiteral("/ours"), limit, data);
    Series<Files> files(folder + QStringLiteral("/files"), limit, data);
    Series<Sqlite> sqlite(folder + QStringLiteral("/sqlite"), limit, data);
    Series<Lmdb> lmdb(folder + QStringLiteral("/lmdb"), limit, data);
    topic.compareTimes(("put " + sizeName).c_str(), putter(ours, count),
        Bench::Peer{"open, write, rename", putter(files, count)},
        Bench::Peer{"SQLite", putter(sqlite, count)}, Bench::Peer{"LMDB", putter(lmdb, count)});

    std::vector<int> keys(static_cast<std::size_t>(count));
    std::iota(keys.begin(), keys.end(), 0);
    topic.compare(("get " + sizeName).c_str(), keys, getter(ours),
        Bench::Peer{"open, read, close", getter(files)}, Bench::Peer{"SQLite", getter(sqlite)},
        Bench::Peer{"LMDB", getter(lmdb)});
}

/// Keys are put into a cache of \a count and got from all over it, beside one that has ten at
/// first.
void manyKeys(const Bench::Topic &topic, const QString &root, int count)
{
    constexpr int Few = 10;
    constexpr int Steps = 20;
    const int added = Steps * topic.effort().repetitions;
    const QByteArray data(100, 'v');
    Series<Ours> few(root + QStringLiteral("/few"), Few + added, data);
    Series<Ours> many(root + QStringLiteral("/many"), count + added, data);
    few.put(Few);
    many.put(count);
    const auto get = [](Series<Ours> &series, int keys) {
        return [&series, keys] {
            const double start = processorSeconds();
            for (int i = 0; i < 10 * Steps; ++i)
                require(!series.get(int(i * qint64{7919} % keys)).isEmpty(), "a get");
            return (processorSeconds() - start) / (10 * Steps);
        };
    };
    const std::string name = ", " + std::to_string(count) + " keys";
    topic.compareTimes(("put" + name).c_str(), putter(many, Steps),
        Bench::Yardstick{"(from 10 keys)", putter(few, Steps)});
    topic.compareTimes(
        ("get" + name).c_str(), get(many, count), Bench::Yardstick{"(10 keys)", get(few, Few)});
}

void cache(const Bench::Topic &topic)
{
    // Beside the program, since folders for temporary files often are in memory.
    const QTemporaryDir folder(
        QCoreApplication::applicationDirPath() + QStringLiteral("/cache-XXXXXX"));
    const int rounds = topic.effort().repetitions;
    const bool isQuick = rounds < 10;
    const int some = isQuick ? 20 : 200;
    values(topic, folder.path(), "100 B", 100, some, rounds);
    values(topic, folder.path(), "4 KiB", 4 << 10, some, rounds);
    values(topic, folder.path(), "64 KiB", 64 << 10, some / 4, rounds);
    values(topic, folder.path(), "1 MiB", 1 << 20, isQuick ? 5 : 20, 1);
    values(topic, folder.path(), "16 MiB", 16 << 20, isQuick ? 1 : 2, 1);
    manyKeys(topic, folder.path(), isQuick ? 1000 : 100000);
}

const Bench::Registration registration("cache", &cache);

} // namespace
