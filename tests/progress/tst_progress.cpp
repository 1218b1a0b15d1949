#include "common.h"

#include <functional>
#include <map>
#include <optional>
#include <random>
#include <set>

namespace {

/// The signals of several reporters, in the order in which they come: "name value" of a progress
/// and "name" of an abort.
struct Log : QStringList
{
    template <typename Reporter>
    void listen(Reporter *reporter, const QString &name)
    {
        QObject::connect(reporter, &Reporter::reportProgress,
            [this, name](int value) { append(QStringLiteral("%1 %2").arg(name).arg(value)); });
        QObject::connect(reporter, &Reporter::aborting, [this, name] { append(name); });
    }
    [[nodiscard]] QString take() { return std::exchange<QStringList>(*this, {}).join(u", "); }
};

/// Random reporters and pools, some with a deleted child, and random links between them.
struct Graph
{
    using Values = std::map<const QObject *, int>;

    Graph()
    {
        for (int i = below(5); i > 0; --i)
            new SProgress(&owner);
        for (int i = 1 + below(4); i > 0; --i) {
            auto *const pool = new SProgressPool(below(16) ? 1 + below(3) : 0, &owner);
            if (below(8) == 0)
                delete pool->at(below(3));
            isStuck |= pool->children().size() < qMax(1, pool->count());
        }
        reporters = owner.findChildren<QObject *>();
        for (int i = below(9); i > 0; --i) {
            const auto [a, b] = std::pair(any(), any());
            auto *const peer = qobject_cast<IProgress *>(b);
            if (!qobject_cast<IProgress *>(a)->progressPeers().contains(peer)
                && IProgress::link(qobject_cast<IProgress *>(a), peer))
                links.insert(links.end(), {{a, b}, {b, a}});
        }
    }
    static int below(int end) { return int(random() % unsigned(end)); }
    [[nodiscard]] QObject *any() const { return reporters[below(int(reporters.size()))]; }
    [[nodiscard]] Values read() const
    {
        Values result;
        for (const QObject *const reporter : reporters)
            result[reporter] = qobject_cast<const IProgress *>(reporter)->progress();
        return result;
    }

    /// What plain calls from peer to peer give, in some order of the peers; nothing if endless.
    Values plain(const Values &before, const QObject *at, int value)
    {
        std::shuffle(links.begin(), links.end(), random);
        values = before;
        calls = 5000;
        set(at, value);
        return calls > 0 ? values : Values();
    }
    void set(const QObject *at, int value)
    {
        for (const QObject *const child : at->children())
            set(child, value);
        if (!qobject_cast<const SProgressPool *>(at))
            change(at, qBound(0, value, 100), value);
    }
    void change(const QObject *at, int now, int passed)
    {
        const int before = std::exchange(values[at], now);
        for (const auto &[from, to] : links) {
            if (from == at && values[to] != values[at] && --calls > 0)
                set(to, passed);
        }
        const auto *const pool = qobject_cast<SProgressPool *>(at->parent());
        if (values[at] == before || !pool)
            return;
        int sum = 0;
        for (const QObject *const child : pool->children())
            sum += values[child];
        if (const int mean = sum / pool->count(); mean != values[pool])
            change(pool, mean, mean);
    }

    inline static std::mt19937 random{20}; // NOLINT(bugprone-random-generator-seed)
    QObject owner;
    QList<QObject *> reporters;
    std::vector<std::pair<const QObject *, const QObject *>> links; ///< Each in both directions.
    bool isStuck = false; ///< Whether a pool cannot be at 100.
    Values values;
    int calls = 0; ///< How many are left.
};

/// What is wrong with a change of a random graph; null if nothing.
const char *faultOfChange(Graph &graph)
{
    const Graph::Values before = graph.read();
    QObject *const at = graph.any();
    const int value = Graph::below(110);
    std::set<Graph::Values> results;
    const auto isPlain = [&](int orders) {
        while (results.size() < 2 && !results.contains({}) && orders-- > 0)
            results.insert(graph.plain(before, at, value));
        return results.size() == 1 && !results.contains({});
    };
    isPlain(8);
    qobject_cast<IProgress *>(at)->setProgress(value);
    const Graph::Values after = graph.read();
    // That they all give the same may take more of them to refute.
    if (isPlain(0) && !results.contains(after) && isPlain(3000))
        return "not what plain calls give in any order";
    for (const auto &[a, b] : graph.links) {
        if (!isPlain(0) && !graph.isStuck && after.at(a) != after.at(b)
            && before.at(a) == before.at(b))
            return "peers that were equal are not";
    }
    return nullptr;
}

/// Calls \a function on a thread with a stack of that size.
template <typename Function>
void onStack(uint size, Function function)
{
    const std::unique_ptr<QThread> thread(QThread::create(function));
    thread->setStackSize(size);
    thread->start();
    thread->wait();
}

} // namespace

class TestProgress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObjects()
    {
        SProgressPool pool;
        QByteArray names;
        for (const QMetaObject *meta : {pool.first()->metaObject(), pool.metaObject()}) {
            for (int i = meta->methodOffset(); i < meta->methodCount(); ++i)
                names += meta->method(i).name() + meta->method(i).parameterNames().join() + ' ';
        }
        QCOMPARE(names,
            "reportProgressvalue aborting setProgressvalue abort reset "
            "reportProgressvalue aborting abort setProgressvalue onProgressChanged reset ");
        for (QObject *const object : {static_cast<QObject *>(&pool), pool.children().constFirst()})
            QCOMPARE(qobject_cast<IProgress *>(object), dynamic_cast<IProgress *>(object));
        QVERIFY(pool.first()->qt_metacast("Quorvex::Interfaces::IProgress"));
        QCOMPARE(pool.qt_metacast("IProgress"), static_cast<IProgress *>(&pool));
    }

    void follows()
    {
        SProgress a;
        SProgress b;
        SProgress c;
        Log log;
        log.listen(&a, string("a"));
        log.listen(&b, string("b"));
        log.listen(&c, string("c"));
        for (const int value : {-5, 250, 101, 40})
            a.setProgress(value);
        a.abort();
        a.abort();
        QCOMPARE(log.take(), "a 100, a 40, a");
        [&a](const SProgressDefaulter &) { a.abort(); }(SProgressDefaulter(&a));
        QCOMPARE(log.take(), "a 0, a, a 100");

        QVERIFY(!IProgress::link(&a, &a));
        QVERIFY(!IProgress::link(nullptr, &a));
        QVERIFY(IProgress::link(&a, &b));
        IProgress::link(&b, &c, IProgress::ProgressPeers);
        a.setProgress(250);
        QMetaObject::invokeMethod(&a, "reset");
        b.abort();
        QCOMPARE(log.take(), "c 100, b 100, c 0, b 0, a 0, a, b");
        IProgress::link(&c, &a); // a ring
        c.setProgress(50);
        QCOMPARE(log.take().count(u','), 2);
        IProgress::unlink(&c, &a);
        IProgress::unlink(&c, &b);

        // A slot goes back to a while a is passing its change on.
        connect(&b, &SProgress::reportProgress,
            [&a](int value) { value == 10 ? a.setProgress(20) : void(); });
        a.setProgress(10);
        QCOMPARE(log.take(), "b 10, b 20, a 20, a 20");
        IProgress::unlink(&b, &a, IProgress::ProgressPeers);
        a.setProgress(1);
        QCOMPARE(b.progress(), 20);
        QVERIFY(a.abortPeers().contains(&b));
        IProgress::unlink(&b, &a);
        QVERIFY(a.abortPeers().isEmpty());
    }

    void pools()
    {
        SProgressPool pool(3);
        SProgressPool inner(2);
        SProgressPool beside(2);
        Log log;
        log.listen(&pool, string("pool"));
        for (int i = 0; i < 3; ++i)
            log.listen(pool.at(i), string("child %1").arg(i));
        pool.abort();
        pool.abort();
        QCOMPARE(log.take(), "pool, child 2, pool, child 1, pool, child 0, pool, pool");
        for (int i = 0; i < 3; ++i)
            pool.at(i)->reset();
        IProgress::link(pool.at(0), pool.at(2), IProgress::AbortPeers);
        IProgress::link(pool.at(0), &inner, IProgress::AbortPeers);
        IProgress::link(&inner, &beside);
        IProgress::link(&beside, beside.at(0));
        pool.at(1)->abort();
        QCOMPARE(log.take(), "pool, child 2, pool, child 0, pool, child 1");
        QVERIFY(inner.at(1)->isAborted());
        QVERIFY(beside.at(1)->isAborted());

        pool.at(0)->setProgress(100);
        QCOMPARE(log.take(), "pool 33, child 0 100");
        pool.at(1)->setProgress(50);
        delete pool.at(1);
        pool.at(2)->setProgress(101);
        QCOMPARE(log.take(), "pool 50, child 1 50, pool 66, child 2 100");
        pool.setProperty("progress", -1);
        QCOMPARE(log.take(), "pool 33, child 0 0, pool 0, child 2 0");
        for (const int none : {1, 3, -1})
            QCOMPARE(pool.at(none), nullptr);
        QCOMPARE(pool.count(), 3);
        QVERIFY(SProgressPool(0).isEmpty());
        QCOMPARE(SProgressPool(0).last(), nullptr);
    }

    void graphs()
    {
        int count = qEnvironmentVariable("TAVEX_TEST_GRAPHS", string("500")).toInt();
        const char *fault = nullptr;
        // As deep as plain calls are, under the sanitizers.
        onStack(1U << 26, [&] {
            for (; count > 0 && !fault; --count) {
                Graph graph;
                for (int change = 0; change < 2 && !fault; ++change)
                    fault = faultOfChange(graph);
            }
        });
        QVERIFY2(!fault, fault);
    }

    void longAndWide()
    {
        int count = 0;
        onStack(256 * 1024, [&count] {
            SProgressPool wide(100'000);
            connect(&wide, &SProgressPool::aborting, [&count] { ++count; });
            wide.abort();
            std::vector<SProgressPool> pools(10'000);
            std::vector<SProgress> chain(40'000);
            IProgress *last = nullptr;
            for (SProgress &reporter : chain)
                IProgress::link(std::exchange(last, &reporter), &reporter);
            for (SProgressPool &pool : pools)
                IProgress::link(std::exchange(last, &pool), pool.first());
            chain.front().setProgress(60);
            count += last->progress();
            last->setProgress(7);
            last->abort();
            count += chain.front().progress() + (chain.front().isAborted() ? 1000 : 0);
        });
        QCOMPARE(count, 100'001 + 60 + 7 + 1000);
    }

    void deletesInSlots_data()
    {
        QTest::addColumn<std::function<void(SProgressPool *, SProgress *)>>("call");
        const auto row = [](const char *tag,
                             std::function<void(SProgressPool *, SProgress *)> call) {
            QTest::newRow(tag) << std::move(call);
        };
        row("progress of the pool", [](auto *pool, auto *) { pool->setProgress(50); });
        row("progress of a child", [](auto *pool, auto *) { pool->at(1)->setProgress(90); });
        row("abort of the pool", [](auto *pool, auto *) { pool->abort(); });
        row("abort of a child", [](auto *pool, auto *) { pool->at(1)->abort(); });
        row("reset of the pool", [](auto *pool, auto *) { pool->reset(); });
        row("progress of a peer", [](auto *, auto *peer) { peer->setProgress(70); });
        row("abort of a peer", [](auto *, auto *peer) { peer->abort(); });
    }
    void deletesInSlots()
    {
        QFETCH(std::function<void(SProgressPool *, SProgress *)>, call);
        SProgress before;
        SProgress peer;
        SProgress after;
        const QPointer pool = new SProgressPool(3);
        pool->setProgress(5);
        for (IProgress *const other :
            {static_cast<IProgress *>(&before), static_cast<IProgress *>(pool.data()),
                static_cast<IProgress *>(pool->at(2)), static_cast<IProgress *>(&after)})
            IProgress::link(&peer, other);
        const auto deletePool = [own = pool.data()] { delete own; };
        connect(pool, &SProgressPool::reportProgress, deletePool);
        connect(pool, &SProgressPool::aborting, deletePool);
        call(pool, &peer);
        QVERIFY(!pool);
        QCOMPARE(peer.progressPeers(), (QSet<IProgress *>{&before, &after}));
        peer.setProgress(11);
        QCOMPARE(before.progress(), 11);
        QCOMPARE(after.progress(), 11);
    }

    void locks()
    {
        SProgress former;
        SProgress beside;
        SProgressPool p(2);
        SProgressPool q(2);
        QSemaphore inSlot;
        QSemaphore done;
        QSemaphore linked;
        std::atomic<int> inside = 0;
        int most = 0;
        IProgress::link(&former, p.first());
        IProgress::link(&former, &beside);
        IProgress::unlink(p.first(), &former);
        // A slot lets one go on that was linked. Then, with the locks of both groups, one links
        // them, and its callers go on.
        connect(&q, &SProgressPool::reportProgress, [&] { IProgress::link(p.first(), q.first()); });
        connect(&p, &SProgressPool::reportProgress, [&] {
            most = qMax(most, ++inside);
            if (q.progress() == 0) {
                inSlot.release();
                done.tryAcquire(1, 10'000);
                q.first()->setProgress(100);
                linked.release(2);
                QThread::msleep(100);
            }
            --inside;
        });
        together([&] { p.last()->setProgress(50); },
            [&] { inSlot.acquire(), former.setProgress(7), done.release(); },
            [&] { linked.acquire(), p.last()->setProgress(80); },
            [&] { linked.acquire(), q.first()->setProgress(90); });
        QCOMPARE(done.available(), 0);
        QCOMPARE(beside.progress(), 7);
        QCOMPARE(most, 1);
        QCOMPARE(p.progress(), (90 + 80) / 2);
    }

    void stepsOnManyThreads()
    {
        SProgressPool pool(8);
        int last = 0;
        connect(&pool, &SProgressPool::reportProgress,
            [&last](int value) { last = value == last + 1 ? value : -1000; });
        const auto step = [&pool](auto... children) {
            together([&pool, children] {
                for (int value = 1; value <= 100; ++value)
                    pool.at(children)->setProgress(value);
            }...);
        };
        step(0, 1, 2, 3, 4, 5, 6, 7);
        QCOMPARE(last, 100);
        together([&] { step(0); }, [&] { delete pool.at(1); }, [&] { pool.setProgress(80); },
            [&] { pool.abort(); });
        pool.at(0)->setProgress(1);
        QCOMPARE(pool.progress(), (1 + 6 * 80) / 8);
    }

    void linksOnManyThreads()
    {
        for (int round = 0; round < 200; ++round) {
            std::optional<SProgress> a(std::in_place);
            std::optional<SProgress> b(std::in_place);
            SProgress c;
            SProgressPool p(2);
            SProgressPool q(2);
            together([&] { IProgress::link(&*a, &*b), IProgress::link(p.at(0), q.at(1)); },
                [&] { IProgress::link(&c, &*a), IProgress::link(q.at(0), p.at(1)); },
                [&] { b->setProgress(5), q.setProgress(6); });
            together([&] { a->setProgress(10), p.setProgress(20); },
                [&] { b->setProgress(11), q.setProgress(21); });
            QCOMPARE(a->progress(), b->progress());
            QCOMPARE(p.progress(), q.progress());
            together([&] { a.reset(), p.abort(); }, [&] { b.reset(), q.at(1)->abort(); },
                [&] { c.setProgress(30), c.abort(); });
            QVERIFY(c.progressPeers().isEmpty());
            QVERIFY(p.isAborted());
            QVERIFY(q.at(0)->isAborted());
        }
    }

    void outcomes()
    {
        SSignalResult result;
        const QSignalSpy outcomes(&result, &SSignalResult::finished);
        QVERIFY(!result.waitResult(QDeadlineTimer(1)));
        QVERIFY(result.isPending());
        // What there is already does not end a wait without a deadline, nor does a second outcome.
        for (const char *const method : {"success", "finished"}) {
            QMetaObject::invokeMethod(&result, method, Qt::QueuedConnection);
            QVERIFY(result.waitResult());
            result.failed();
        }
        QCOMPARE(outcomes.size(), 2);
        QVERIFY(result.waitResult(QDeadlineTimer::Forever));
        SSignalResult other;
        together([&other] { other.failed(); }, [] {});
        QVERIFY(!other.isPending());
        QVERIFY(!other.succeeded());
    }

    void scopes()
    {
        struct Lockable : Interfaces::ILockable
        {
            void lock() override { ++count; }
            void unlock() override { --count; }
            int count = 0;
        } lockable;
        int elapsed = -1;
        {
            const SLocker locker(&lockable);
            const SLocker none(nullptr);
            const SChronograph chronograph(&elapsed);
            const SChronograph unwatched;
            QCOMPARE(lockable.count, 1);
            QCOMPARE(elapsed, 0);
            elapsed = -2;
        }
        QCOMPARE(lockable.count, 0);
        QVERIFY(elapsed != -2);
    }

    void threading()
    {
        using M = ConcurrenceMode;
        const int all = SSysInfo::cpuCount();
        QCOMPARE(SThreading::defaultConcurrence(), all);
        for (const int count : {all + 1, 0, 3, -3}) {
            SThreading::setDefaultConcurrence(count);
            QCOMPARE(SThreading::defaultConcurrence(), count > 0 ? count : all);
        }
        for (const auto &[mode, count] : {std::pair(M(0), 1), {M::Half, all / 2},
                 {M::MoreThanHalf, all * 3 / 4}, {M::AlmostFull, all - 1}, {M::Full, all}}) {
            SThreading::setDefaultConcurrence(mode);
            QCOMPARE(SThreading::defaultConcurrence(), qMax(1, count));
        }
        SThreading::setThreadsPerCore(3);
        QCOMPARE(SThreading::threadsPerCore(), 3);
    }
};

QTEST_GUILESS_MAIN(TestProgress)
#include "tst_progress.moc"
