#include <tavex/progress/progresslock_p.h>
#include <tavex/progress/sprogresspool.h>

namespace Quorvex {

/// Leaves the pool under the lock, so that other threads can use the pool meanwhile.
class SProgressPool::Child : public SProgress
{
public:
    Q_DISABLE_COPY_MOVE(Child)

    explicit Child(SProgressPool *pool)
        : SProgress(pool)
        , m_index(pool->lock()->children.size())
    {
        join(*pool);
    }

    ~Child() override
    {
        Lock &shared = *lock();
        const std::scoped_lock locker(shared);
        unlinkAll();
        shared.children[m_index] = nullptr;
        --shared.living;
        shared.sum -= progress();
    }

private:
    std::size_t m_index;
};

SProgressPool::SProgressPool(int count, QObject *parent)
    : QObject(parent)
    , IProgress(announcer<SProgressPool>())
{
    lock()->pool = this;
    for (int i = 0; i < count; ++i) {
        auto *const child = new Child(this);
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
    const std::scoped_lock locker(*lock());
    unlinkAll();
    lock()->pool = nullptr; // QObject deletes the children when the pool is no more.
}

SProgress *SProgressPool::at(int index) const
{
    const std::scoped_lock locker(*lock());
    return index >= 0 && index < count()
        ? static_cast<SProgress *>(lock()->children[static_cast<std::size_t>(index)])
        : nullptr;
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
    return static_cast<int>(lock()->children.size());
}

bool SProgressPool::isEmpty() const
{
    return count() == 0;
}

void SProgressPool::abort()
{
    if (!isAnswered())
        abortChildren();
}

void SProgressPool::setProgress(int value)
{
    setChildren(value);
}

void SProgressPool::onProgressChanged()
{
    if (!isAnswered())
        followChildren();
}

} // namespace Quorvex
