#include <tavex/progress/sprogress.h>

namespace Quorvex {

SProgress::SProgress(QObject *parent)
    : QObject(parent)
{
}

SProgress::~SProgress()
{
    unlinkAll();
}

void SProgress::setProgress(int value)
{
    const int before = exchangeProgress(value);
    if (const int now = progress(); now != before)
        Q_EMIT reportProgress(now);
}

void SProgress::abort()
{
    if (!exchangeAborted())
        Q_EMIT aborting();
}

} // namespace Quorvex
