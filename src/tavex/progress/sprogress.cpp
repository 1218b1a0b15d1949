#include <tavex/progress/sprogress.h>

namespace Quorvex {

SProgress::SProgress(QObject *parent)
    : QObject(parent)
    , IProgress(announcer<SProgress>())
{
}

SProgress::~SProgress()
{
    unlinkAll();
}

void SProgress::setProgress(int value)
{
    IProgress::setProgress(value);
}

void SProgress::abort()
{
    IProgress::abort();
}

} // namespace Quorvex
