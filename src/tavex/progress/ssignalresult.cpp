#include <tavex/progress/ssignalresult.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <limits>

namespace Quorvex {

class Q_DECL_HIDDEN SSignalResult::Private
{
public:
    static constexpr int pending = -1;
    std::atomic<int> result = pending; ///< Else 0: success, 1: failure.
};

SSignalResult::SSignalResult(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

SSignalResult::~SSignalResult() = default;

bool SSignalResult::succeeded() const
{
    return d->result == 0;
}

bool SSignalResult::isPending() const
{
    return d->result == Private::pending;
}

bool SSignalResult::waitResult()
{
    if (!QCoreApplication::instance())
        return succeeded();
    QEventLoop loop;
    connect(this, SIGNAL(finished()), &loop, SLOT(quit()));
    loop.exec();
    return succeeded();
}

bool SSignalResult::waitResult(QDeadlineTimer deadline) const
{
    if (!QCoreApplication::instance())
        return succeeded();
    QEventLoop loop;
    QTimer timer;
    connect(this, &SSignalResult::finished, &loop, &QEventLoop::quit);
    connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    timer.setSingleShot(true);
    // finished() may be emitted by others, and a timer cannot run for as long as a deadline may.
    while (isPending() && !deadline.hasExpired()) {
        if (!deadline.isForever())
            timer.start(
                int(std::min<qint64>(deadline.remainingTime(), (std::numeric_limits<int>::max)())));
        loop.exec();
    }
    return succeeded();
}

void SSignalResult::success()
{
    finish(0);
}

void SSignalResult::failed()
{
    finish(1);
}

void SSignalResult::finish(int result)
{
    int pending = Private::pending;
    if (d->result.compare_exchange_strong(pending, result))
        Q_EMIT finished();
}

} // namespace Quorvex
