#include <tavex/SProgressDefaulter>
#include <tavex/SProgressPool>

#include <QMetaMethod>
#include <QTest>
#include <QThread>

#include <barrier>
#include <memory>
#include <numeric>
#include <thread>
#include <vector>

using namespace Quorvex;

namespace {

/// The signals of several reporters in the order in which they come.
class Log : public QStringList
{
public:
    template <typename Reporter>
    void listen(Reporter &reporter, const QString &name)
    {
        QObject::connect(&reporter, &Reporter::reportProgress,
            [this, name](qint32 value) { append(name + QString::number(value)); });
        QObject::connect(&reporter, &Reporter::aborting, [this, name] { append(name); });
    }
    [[nodiscard]] QString take() { return std::exchange(*this, Log()).join(u' '); }
};

/// Passes on what it is told, but stays at 0.
class Stubborn : public IProgress
{
public:
    void setProgress(int value) override
    {
        told.append(value);
        passOn(value);
    }
    QList<int> told;
};

/// Runs all of \a functions at once.
template <typename... Functions>
void together(Functions... functions)
{
    std::barrier start(sizeof...(functions));
    const auto run = [&start](auto function) {
        start.arrive_and_wait();
        function();
    };
    const std::jthread threads[] = {std::jthread(run, functions)...};
}

} // namespace

class TestProgress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObjects_data()
    {
        QTest::addColumn<const QMetaObject *>("meta");
        QTest::addColumn<QByteArray>("methods");
        QTest::newRow("reporter") << &SProgress::staticMetaObject
                                  << QByteArray("reportProgress(value) aborting() "
                                                "setProgress(value) abort()");
        QTest::newRow("pool") << &SProgressPool::staticMetaObject
                              << QByteArray("reportProgress(value) aborting() abort() "
                                            "setProgress(value) onProgressChanged()");
    }
    void metaObjects()
    {
        QFETCH(const QMetaObject *, meta);
        QByteArrayList methods;
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i)
            methods << meta->method(i).name() + '(' + meta->method(i).parameterNames().join() + ')';
        QTEST(methods.join(' '), "methods");
        QCOMPARE(meta->indexOfSignal("reportProgress(qint32)"), meta->methodOffset());

        SProgress reporter;
        SProgressPool pool;
        QObject *const object = &reporter;
        QCOMPARE(qobject_cast<IProgress *>(object), &reporter);
        QCOMPARE(object->qt_metacast("Quorvex::Interfaces::IProgress"),
            static_cast<IProgress *>(&reporter));
        QCOMPARE(pool.qt_metacast("IProgress"), static_cast<IProgress *>(&pool));
        QCOMPARE(qobject_cast<IProgress *>(static_cast<QObject *>(&pool)), &pool);
        QCOMPARE(pool.at(0)->metaObject(), &SProgress::staticMetaObject);
    }

    void reports()
    {
        Log log;
        SProgress a;
        log.listen(a, QStringLiteral("a"));
        for (const int value : {-5, 250, 101, 40})
            a.setProgress(value);
        a.abort();
        a.abort();
        QVERIFY(a.isAborted());
        {
            const SProgressDefaulter defaulter(&a);
            const SProgressDefaulter none;
            QVERIFY(!a.isAborted());
            a.abort();
        }
        QCOMPARE(log.take(), QStringLiteral("a100 a40 a a0 a a100"));
    }

    void follows()
    {
        Log log;
        SProgress a;
        SProgress b;
        Stubborn stubborn;
        log.listen(a, QStringLiteral("a"));
        log.listen(b, QStringLiteral("b"));
        QVERIFY(!IProgress::link(&a, &a) && !IProgress::link(nullptr, &a));
        {
            SProgress c;
            log.listen(c, QStringLiteral("c"));
            IProgress::link(&a, &b);
            IProgress::link(&b, &c, IProgress::ProgressPeers);
            a.setProgress(250);
            b.abort();
            QCOMPARE(log.take(), QStringLiteral("c100 b100 a100 a b"));
            QVERIFY(!c.isAborted());
            IProgress::link(&c, &a); // a ring
            c.setProgress(50);
            QCOMPARE(log.take().split(u' ').size(), 3);
            QCOMPARE(a.progress() + b.progress(), 100);
        }
        QCOMPARE(a.progressPeers(), QSet<IProgress *>{&b});
        // A slot goes back to a while a is passing its change on.
        const auto back = connect(&b, &SProgress::reportProgress, [&a](int value) {
            if (value == 10)
                a.setProgress(20);
        });
        a.setProgress(10);
        QCOMPARE(log.take(), QStringLiteral("b10 b20 a20 a20"));
        disconnect(back);

        IProgress::link(&stubborn, &b);
        a.setProgress(300);
        QCOMPARE(stubborn.told.value(0), 300);
        QCOMPARE(a.progress() + b.progress(), 200);
        IProgress::unlink(&b, &a, IProgress::ProgressPeers);
        a.setProgress(1);
        QCOMPARE(b.progress(), 100);
        QCOMPARE(a.abortPeers(), QSet<IProgress *>{&b});
    }

    void pools()
    {
        Log log;
        SProgressPool pool(4);
        log.listen(pool, QStringLiteral("p"));
        pool.at(0)->setProgress(100);
        pool.first()->setProgress(100);
        pool.at(1)->setProgress(50);
        pool.last()->setProgress(1); // still 37
        delete pool.at(1);
        delete pool.at(2);
        pool.last()->setProgress(101);
        pool.setProgress(-1);
        QCOMPARE(log.take(), QStringLiteral("p25 p37 p50 p25 p0"));
        QVERIFY(!pool.at(1) && !pool.at(4) && !pool.at(-1));
        QCOMPARE(pool.count(), 4);

        SProgressPool empty(0);
        empty.setProgress(50);
        QVERIFY(empty.isEmpty() && !empty.last() && empty.progress() == 0);
        IProgress::link(&empty, pool.at(0), IProgress::ProgressPeers); // It never follows.
        pool.setProgress(100);
        QCOMPARE(pool.progress(), 50);
    }

    void linkedPools()
    {
        SProgressPool outer(2);
        SProgressPool inner(3);
        SProgressPool beside(7);
        SProgressPool single(2);
        IProgress::link(&inner, outer.at(0));
        IProgress::link(&inner, &beside);
        IProgress::link(&single, single.at(0));
        inner.at(2)->setProgress(100);
        QCOMPARE(inner.progress() + outer.at(0)->progress() + beside.progress(), 99);
        QCOMPARE(outer.progress(), 16);
        outer.setProgress(80);
        QCOMPARE(beside.progress() + inner.at(1)->progress() + outer.progress(), 240);
        single.at(0)->setProgress(60);
        QCOMPARE(single.progress(), 60);

        outer.at(1)->abort();
        for (const IProgress *const progress :
            {static_cast<IProgress *>(inner.at(2)), static_cast<IProgress *>(beside.at(6))})
            QVERIFY(progress->isAborted());
        single.abort();
        QVERIFY(single.at(1)->isAborted());
    }

    void aborts()
    {
        Log log;
        SProgressPool pool(3);
        bool isAllAborted = true;
        for (int i = 0; i < 3; ++i) {
            log.listen(*pool.at(i), QString::number(i));
            connect(&pool, &SProgressPool::aborting,
                [child = pool.at(i), &isAllAborted] { isAllAborted &= child->isAborted(); });
        }
        log.listen(pool, QStringLiteral("p"));
        pool.abort();
        QCOMPARE(log.take(), QStringLiteral("p 2 p 1 p 0 p"));
        pool.abort();
        QCOMPARE(log.take(), QStringLiteral("p"));
        pool.reset();
        QVERIFY(!pool.isAborted() && pool.at(0)->isAborted());
        for (int i = 0; i < 3; ++i)
            pool.at(i)->reset();
        IProgress::link(pool.at(0), pool.at(2));
        pool.at(1)->abort();
        QCOMPARE(log.count(QStringLiteral("p")), 3);
        QVERIFY(isAllAborted);
    }

    void abortsWidePool()
    {
        constexpr int Count = 100'000;
        int signalCount = 0;
        const std::unique_ptr<QThread> thread(QThread::create([&signalCount] {
            SProgressPool pool(Count);
            connect(&pool, &SProgressPool::aborting, [&signalCount] { ++signalCount; });
            pool.at(Count / 2)->abort();
            pool.abort();
        }));
        thread->setStackSize(256 * 1024);
        thread->start();
        thread->wait();
        QCOMPARE(signalCount, Count + 1);
    }

    void stepsOnManyThreads()
    {
        constexpr int Threads = 8;
        SProgressPool pool(Threads);
        QList<int> reports;
        connect(
            &pool, &SProgressPool::reportProgress, &pool,
            [&reports](int value) { reports.append(value); }, Qt::DirectConnection);
        const auto step = [&pool](int child, int to) {
            for (int value = 1; value <= to; ++value)
                pool.at(child)->setProgress(value);
        };
        {
            std::vector<std::jthread> threads;
            for (int i = 0; i < Threads; ++i)
                threads.emplace_back(step, i, 100);
        }
        QList<int> all(100);
        std::iota(all.begin(), all.end(), 1);
        QCOMPARE(reports, all);

        together([&] { step(0, 60); }, [&] { delete pool.at(1); }, [&] { pool.setProgress(80); },
            [&] { pool.abort(); });
        pool.at(0)->setProgress(1);
        QCOMPARE(pool.progress(), (1 + 6 * 80) / Threads);
    }

    void linksOnManyThreads()
    {
        for (int round = 0; round < 200; ++round) {
            auto a = std::make_unique<SProgress>();
            auto b = std::make_unique<SProgress>();
            SProgress c;
            SProgressPool p(2);
            SProgressPool q(2);
            together(
                [&] {
                    IProgress::link(a.get(), b.get());
                    IProgress::link(p.at(0), q.at(1));
                },
                [&] {
                    IProgress::link(&c, a.get());
                    IProgress::link(q.at(0), p.at(1));
                },
                [&] {
                    b->setProgress(5);
                    q.setProgress(6);
                });
            together(
                [&] {
                    a->setProgress(10);
                    p.setProgress(20);
                },
                [&] {
                    b->setProgress(11);
                    q.setProgress(21);
                });
            QCOMPARE(a->progress(), b->progress());
            QCOMPARE(p.progress(), q.progress());
            together(
                [&] {
                    a.reset();
                    p.abort();
                },
                [&] {
                    b.reset();
                    q.at(1)->abort();
                },
                [&] {
                    c.setProgress(30);
                    c.abort();
                });
            QVERIFY(c.progressPeers().isEmpty() && p.isAborted() && q.at(0)->isAborted());
        }
    }
};

QTEST_APPLESS_MAIN(TestProgress)
#include "tst_progress.moc"
