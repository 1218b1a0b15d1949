#include <tavex/progress/ssignalresult.h>

#include <QCoreApplication>
#include <QEventLoop>

namespace Quorvex {

SSignalResult::SSignalResult(QObject *parent)
    : QObject(parent)
{
}

bool SSignalResult::succeeded() const
{
    return m_result == 0;
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
    int pending = -1;
    if (m_result.compare_exchange_strong(pending, result))
        Q_EMIT finished();
}

} // namespace Quorvex
