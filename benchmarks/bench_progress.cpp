// Reporting a step beside a bare emission of the signal that announces it and beside Qt's promise,
// and what pools cost that are ten and a hundred times as wide.

#include "harness.h"

#include <tavex/SProgressPool>

#include <QElapsedTimer>
#include <QPromise>

#include <limits>
#include <numeric>

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
    // It takes higher values only, so that one goes on from where it was.
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

double seconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e9;
}

/// The time for one step, while all children go from 0 to 100.
double stepTime(SProgressPool &pool)
{
    pool.setProgress(0);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < pool.count(); ++i) {
        SProgress *const child = pool.at(i);
        for (int value = 1; value <= 100; ++value)
            child->setProgress(value);
    }
    const double time = seconds(timer);
    if (pool.progress() != 100)
        Bench::Topic::fail(QStringLiteral("progress: the pool has not followed"));
    return time / (100.0 * pool.count());
}

double abortTime(SProgressPool &pool)
{
    for (int i = 0; i < pool.count(); ++i)
        pool.at(i)->reset();
    QElapsedTimer timer;
    timer.start();
    pool.abort();
    return seconds(timer);
}

void progress(const Bench::Topic &topic)
{
    steps(topic);

    SProgressPool hundred(100);
    SProgressPool thousand(1000);
    SProgressPool tenThousand(10'000);
    SProgressPool hundredThousand(100'000);
    const Bench::Yardstick scale{
        "a step in a pool of 100", [&hundred] { return stepTime(hundred); }};
    topic.compareTimes(
        "step in a pool of 1000", [&thousand] { return stepTime(thousand); }, scale);
    topic.compareTimes(
        "step in a pool of 10000", [&tenThousand] { return stepTime(tenThousand); }, scale);
    topic.compareTimes(
        "abort 100000", [&hundredThousand] { return abortTime(hundredThousand); },
        Bench::Yardstick{"abort 10000", [&tenThousand] { return abortTime(tenThousand); }});
}

const Bench::Registration registration("progress", &progress);

} // namespace

#include "bench_progress.moc"
