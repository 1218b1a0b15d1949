// Reporting a step beside a bare emission of the signal that announces it and beside Qt's promise,
// and what pools cost that are ten and a hundred times as wide.

#include "harness.h"

#include <tavex/SProgressPool>

#include <QPromise>

#include <ctime>
#include <limits>
#include <memory>
#include <numeric>
#include <vector>

using namespace Quorvex;

namespace {

class Listener : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void listen(int value) { m_sum += value; } // NOLINT(readability-make-member-function-const)

private:
    qint64 m_sum = 0;
};

void steps(const Bench::Topic &topic)
{
    std::vector<int> values(100);
    std::iota(values.begin(), values.end(), 1);
    Listener listener;
    SProgress reporter;
    SProgress bare;
    for (SProgress *const sender : {&reporter, &bare}) {
        QObject::connect(sender, SIGNAL(reportProgress(qint32)), &listener, SLOT(listen(int)),
            Qt::DirectConnection);
    }
    // QPromise ignores values that are not higher, so the count goes on.
    QPromise<void> promise;
    promise.start();
    promise.setProgressRange(0, std::numeric_limits<int>::max());
    int last = 0;

    topic.compare(
        "report a step", values,
        [&](int value) {
            reporter.setProgress(value);
            return value;
        },
        Bench::Yardstick{"emission of the signal",
            [&](int value) {
                Q_EMIT bare.reportProgress(value);
                return value;
            }},
        Bench::Peer{"QPromise::setProgressValue", [&](int value) {
                        promise.setProgressValue(++last);
                        return value;
                    }});
    promise.finish();
}

/// The processor time of the process in seconds, which other processes do not lengthen.
double now()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

/// The time for one step, while all children go from 0 to 100.
double stepTime(SProgressPool &pool)
{
    pool.setProgress(0);
    const double start = now();
    for (int i = 0; i < pool.count(); ++i) {
        SProgress *const child = pool.at(i);
        for (int value = 1; value <= 100; ++value)
            child->setProgress(value);
    }
    const double time = now() - start;
    if (pool.progress() != 100)
        Bench::Topic::fail(QStringLiteral("progress: the pool has not followed"));
    return time / (100.0 * pool.count());
}

/// The mean time to abort one of \a pools.
double abortTime(const std::vector<std::unique_ptr<SProgressPool>> &pools)
{
    for (const auto &pool : pools) {
        for (int i = 0; i < pool->count(); ++i)
            pool->at(i)->reset();
    }
    const double start = now();
    for (const auto &pool : pools)
        pool->abort();
    return (now() - start) / double(pools.size());
}

void progress(const Bench::Topic &topic)
{
    steps(topic);

    SProgressPool hundred(100);
    SProgressPool thousand(1000);
    SProgressPool tenThousand(10'000);
    const Bench::Yardstick scale{
        "a step in a pool of 100", [&hundred] { return stepTime(hundred); }};
    topic.compareTimes(
        "step in a pool of 1000", [&thousand] { return stepTime(thousand); }, scale);
    topic.compareTimes(
        "step in a pool of 10000", [&tenThousand] { return stepTime(tenThousand); }, scale);

    // As many children on both sides, so that a cache holds as many of them.
    std::vector<std::unique_ptr<SProgressPool>> wide(1);
    wide.front() = std::make_unique<SProgressPool>(100'000);
    std::vector<std::unique_ptr<SProgressPool>> narrow(10);
    for (auto &pool : narrow)
        pool = std::make_unique<SProgressPool>(10'000);
    topic.compareTimes(
        "abort 100000", [&wide] { return abortTime(wide); },
        Bench::Yardstick{"abort 10000", [&narrow] { return abortTime(narrow); }});
}

const Bench::Registration registration("progress", &progress);

} // namespace

#include "bench_progress.moc"
