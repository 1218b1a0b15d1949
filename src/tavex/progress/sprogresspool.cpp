#include <tavex/progress/sprogresspool.h>

#include <utility>
#include <vector>

namespace Quorvex {

/// Keeps the pool's sum, and leaves the pool under the lock, so that other threads can use the pool
/// meanwhile.
class SProgressPool::Child : public SProgress
{
public:
    Q_DISABLE_COPY_MOVE(Child)

    Child(SProgressPool *pool, qsizetype index)
        : SProgress(pool)
        , m_pool(pool)
        , m_index(index)
    {
        useLockOf(*pool);
        setSum(&pool->m_sum);
    }

    ~Child() override
    {
        const Locker locker(*this);
        unlinkAll();
        if (m_pool) {
            m_pool->m_children[m_index].clear();
            m_pool->m_sum -= progress();
            leave();
        }
    }

    void leave()
    {
        m_pool = nullptr;
        setSum(nullptr);
    }

    using IProgress::exchangeAborted;

private:
    SProgressPool *m_pool;
    qsizetype m_index;
};

SProgressPool::SProgressPool(int count, QObject *parent)
    : QObject(parent)
{
    for (int i = 0; i < count; ++i) {
        auto *const child = new Child(this, i);
        connect(child, SIGNAL(aborting()), this, SLOT(abort()), Qt::DirectConnection);
        connect(child, SIGNAL(reportProgress(qint32)), this, SLOT(onProgressChanged()),
            Qt::DirectConnection);
        m_children.append(child);
    }
}

SProgressPool::SProgressPool(QObject *parent)
    : SProgressPool(1, parent)
{
}

SProgressPool::~SProgressPool()
{
    const Locker locker(*this);
    unlinkAll();
    // QObject deletes the children when the pool is no more.
    for (const QPointer<SProgress> &child : std::as_const(m_children)) {
        if (child)
            static_cast<Child *>(child.data())->leave();
    }
}

SProgress *SProgressPool::at(int index) const
{
    const Locker locker(*this);
    return m_children.value(index);
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
    return static_cast<int>(m_children.size());
}

bool SProgressPool::isEmpty() const
{
    return m_children.isEmpty();
}

void SProgressPool::abort()
{
    const Locker locker(*this);
    if (m_isStopping) {
        ++m_postponed;
        return;
    }
    // A child's signal calls this again. If the next child were aborted only then, and so on, the
    // calls would nest as deep as the pool is wide, and end in the order in which the signals are
    // emitted here.
    if (!std::exchange(m_isAnswering, false)) {
        std::vector<qsizetype> stopped;
        m_isStopping = true;
        for (qsizetype i = 0; i < m_children.size(); ++i) {
            auto *const child = static_cast<Child *>(m_children.at(i).data());
            if (child && !child->exchangeAborted())
                stopped.push_back(i);
        }
        m_isStopping = false;
        for (int i = std::exchange(m_postponed, 0); i > 0; --i)
            finishAbort();
        for (auto i = stopped.crbegin(); i != stopped.crend(); ++i) {
            if (SProgress *const child = m_children.at(*i)) {
                m_isAnswering = true;
                Q_EMIT child->aborting();
                m_isAnswering = false;
            }
        }
    }
    finishAbort();
}

void SProgressPool::finishAbort()
{
    exchangeAborted();
    Q_EMIT aborting();
}

void SProgressPool::setProgress(int value)
{
    const Locker locker(*this);
    const int before = progress();
    ++m_followers;
    for (qsizetype i = 0; i < m_children.size(); ++i) {
        if (SProgress *const child = m_children.at(i))
            child->setProgress(value);
    }
    // Passing single steps back would set the children that are done to what the pool has so far.
    if (--m_followers == 0 && progress() != before)
        passOn(progress());
}

void SProgressPool::onProgressChanged()
{
    const Locker locker(*this);
    if (m_children.isEmpty())
        return;
    const int mean = static_cast<int>(m_sum / m_children.size());
    if (mean == progress())
        return;
    exchangeProgress(mean, m_followers == 0);
    Q_EMIT reportProgress(progress());
}

} // namespace Quorvex
