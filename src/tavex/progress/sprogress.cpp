#include <tavex/progress/iprogress_p.h>
#include <tavex/progress/sprogress.h>

namespace Quorvex {

SProgress::SProgress(QObject *parent)
    : QObject(parent)
    , IProgress(std::make_shared<Private::Signalling<SProgress>>())
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

void SProgress::reset()
{
    IProgress::reset();
}

} // namespace Quorvex
