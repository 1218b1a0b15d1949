#include <tavex/progress/iprogress_p.h>
#include <tavex/progress/sprogresspool.h>

namespace Quorvex {

SProgressPool::SProgressPool(int count, QObject *parent)
    : QObject(parent)
    , IProgress(std::make_shared<Private::Signalling<SProgressPool>>())
{
    d->family->pool = d.get();
    d->updateShared();
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the pool is the parent.
    for (int i = 0; i < count; ++i) {
        auto *const child = new SProgress(this);
        d->adopt(child->IProgress::d.get());
        connect(child, SIGNAL(aborting()), this, SLOT(abort()), Qt::DirectConnection);
        connect(child, SIGNAL(reportProgress(qint32)), this, SLOT(onProgressChanged()),
            Qt::DirectConnection);
    }
}

SProgressPool::SProgressPool(QObject *parent)
    : SProgressPool(1, parent)
{
}

SProgressPool::~SProgressPool()
{
    unlinkAll(); // QObject deletes the children when the pool is no more.
}

SProgress *SProgressPool::at(int index) const
{
    const std::scoped_lock lock(*d->family);
    const std::vector<Private *> &children = d->family->children;
    const Private *const child =
        index >= 0 && index < count() ? children[std::size_t(index)] : nullptr;
    return child ? static_cast<SProgress *>(child->q) : nullptr;
}

SProgress *SProgressPool::first() const
{
    return at(0);
}

SProgress *SProgressPool::last() const
{
    return at(count() - 1);
}

int SProgressPool::count() const
{
    return int(d->family->children.size());
}

bool SProgressPool::isEmpty() const
{
    return count() == 0;
}

void SProgressPool::abort()
{
    d->abortChildren();
}

void SProgressPool::setProgress(int value)
{
    d->setChildren(value);
}

void SProgressPool::onProgressChanged()
{
    d->followChildren();
}

void SProgressPool::reset()
{
    IProgress::reset();
}

} // namespace Quorvex
