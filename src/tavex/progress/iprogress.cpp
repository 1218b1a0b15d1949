#include <tavex/progress/iprogress.h>

#include <QRecursiveMutex>

#include <algorithm>
#include <mutex>

// The thread sanitizer does not see what happens inside Qt.
#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#define TELL_TSAN(call) call
#else
#define TELL_TSAN(call)
#endif

namespace Quorvex::Interfaces {

/// A call of a peer's setProgress() that is running.
struct IProgress::Call
{
    const IProgress *from;
    const IProgress *to;
    int value;
    quint64 changes; ///< Lock::changes at its start.
    const Call *outer;
};

/// A recursive mutex that can be given up for another one.
///
/// A reporter calls its peers, and a pool its children, with the lock held: that keeps a group in
/// step, and its members alive during the call, since destructors take the lock to unlink. If each
/// had its own, two threads that enter a group at different members would wait for each other. So a
/// group has one lock. A pool's children are made with that of the pool; to link two reporters is
/// to take the locks of both and to let one point to the other for good. Locks thus form trees, of
/// which the roots are taken, and no call within a group leaves its tree.
///
/// A lock lives as long as a reporter or another lock refers to it. The way to the root can thus be
/// walked without holding anything; a lock that was given up meanwhile is noticed once it is taken.
class IProgress::Lock : public QRecursiveMutex
{
public:
    void lock()
    {
        TELL_TSAN(__tsan_mutex_pre_lock(this, __tsan_mutex_write_reentrant));
        QRecursiveMutex::lock();
        TELL_TSAN(__tsan_mutex_post_lock(this, __tsan_mutex_write_reentrant, 0));
        ++m_depth;
    }

    bool try_lock()
    {
        TELL_TSAN(constexpr unsigned flags = __tsan_mutex_write_reentrant | __tsan_mutex_try_lock);
        TELL_TSAN(__tsan_mutex_pre_lock(this, flags));
        const bool success = QRecursiveMutex::tryLock();
        TELL_TSAN(
            __tsan_mutex_post_lock(this, flags | (success ? 0 : __tsan_mutex_try_lock_failed), 0));
        if (success)
            ++m_depth;
        return success;
    }

    void unlock()
    {
        --m_depth;
        TELL_TSAN(__tsan_mutex_pre_unlock(this, 0));
        QRecursiveMutex::unlock();
        TELL_TSAN(__tsan_mutex_post_unlock(this, 0));
    }

    [[nodiscard]] Lock *root()
    {
        Lock *lock = this;
        while (Lock *const next = lock->m_next.load(std::memory_order_acquire))
            lock = next;
        return lock;
    }

    /// Takes the root and returns it.
    [[nodiscard]] Lock *acquire()
    {
        for (Lock *lock = root();; lock = lock->root()) {
            lock->lock();
            if (!lock->isGivenUp())
                return lock;
            lock->unlock();
        }
    }

    static void join(Lock *a, Lock *b)
    {
        for (;;) {
            a = a->root();
            b = b->root();
            if (a == b)
                return;
            // In whatever order: it waits for one only while it has not taken the other.
            const std::scoped_lock both(*a, *b);
            if (a->isGivenUp() || b->isGivenUp())
                continue;
            // One that this thread had before stays: the calls that took it still rely on it.
            const bool isBKept = b->m_depth > 1 || (a->m_depth == 1 && b->m_height > a->m_height);
            Lock *const kept = isBKept ? b : a;
            Lock *const given = isBKept ? a : b;
            kept->m_height = std::max(kept->m_height, given->m_height + 1);
            given->m_next.store(kept->retain(), std::memory_order_release);
            return;
        }
    }

    // What the group that has the lock is doing.
    quint64 changes = 0; ///< How often the progress of one of them has changed.
    const Call *calls = nullptr;

    [[nodiscard]] bool isPassingOn(const IProgress *progress) const
    {
        const Call *call = calls;
        while (call && call->from != progress)
            call = call->outer;
        return call;
    }

    /// Whether \a peer is being asked for \a value already, and nothing has changed since. A
    /// reporter that does not become what it is set to, such as an empty pool, would be asked
    /// without end.
    [[nodiscard]] bool isAsked(const IProgress *peer, int value) const
    {
        for (const Call *call = calls; call && call->changes == changes; call = call->outer) {
            if (call->to == peer && call->value == value)
                return true;
        }
        return false;
    }

    Lock *retain()
    {
        m_users.fetch_add(1, std::memory_order_relaxed);
        return this;
    }

    static void release(Lock *lock)
    {
        while (lock && lock->m_users.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            Lock *const next = lock->m_next.load(std::memory_order_relaxed);
            delete lock;
            lock = next;
        }
    }

private:
    [[nodiscard]] bool isGivenUp() const
    {
        return m_next.load(std::memory_order_relaxed) != nullptr;
    }

    std::atomic<int> m_users = 1;         ///< Reporters that have it, and locks that point to it.
    std::atomic<Lock *> m_next = nullptr; ///< Set once.
    int m_depth = 0;                      ///< How often the thread that has it has taken it.
    int m_height = 0;
};

IProgress::Locker::Locker(const IProgress &progress)
    : m_lock(progress.m_lock->acquire())
{
}

IProgress::Locker::~Locker()
{
    m_lock->unlock();
}

IProgress::IProgress()
    : m_lock(new Lock)
{
}

IProgress::~IProgress()
{
    unlinkAll();
    Lock::release(m_lock);
}

void IProgress::reset()
{
    setProgress(0);
    m_isAborted = 0;
}

void IProgress::abort()
{
    exchangeAborted();
}

bool IProgress::isAborted() const
{
    return m_isAborted.load(std::memory_order_acquire) != 0;
}

int IProgress::progress() const
{
    return m_progress.load(std::memory_order_acquire);
}

void IProgress::setProgress(int value)
{
    exchangeProgress(value);
}

int IProgress::exchangeProgress(int value, bool back)
{
    const Locker locker(*this);
    const int before = m_progress.load(std::memory_order_relaxed);
    const int now = std::clamp(value, 0, 100);
    if (now != before) {
        m_progress.store(now, std::memory_order_release);
        ++locker.m_lock->changes;
        if (m_sum)
            *m_sum += now - before;
    }
    if (!m_progressPeers.isEmpty())
        passOn(value, back);
    return before;
}

void IProgress::passOn(int value, bool back)
{
    const Locker locker(*this);
    Lock &group = *locker.m_lock;
    // The slots of one peer may unlink or delete another.
    const QSet<IProgress *> peers = m_progressPeers;
    for (IProgress *const peer : peers) {
        if (!m_progressPeers.contains(peer) || peer->progress() == progress()
            || group.isAsked(peer, value) || (!back && group.isPassingOn(peer)))
            continue;
        const Call call{this, peer, value, group.changes, group.calls};
        group.calls = &call;
        peer->setProgress(value);
        group.calls = call.outer;
    }
}

bool IProgress::exchangeAborted()
{
    const Locker locker(*this);
    const bool wasAborted = m_isAborted.exchange(1) != 0;
    if (m_abortPeers.isEmpty())
        return wasAborted;
    const QSet<IProgress *> peers = m_abortPeers;
    for (IProgress *const peer : peers) {
        if (m_abortPeers.contains(peer) && !peer->isAborted())
            peer->abort();
    }
    return wasAborted;
}

bool IProgress::link(IProgress *a, IProgress *b, Peers peers)
{
    if (!a || !b || a == b)
        return false;
    Lock::join(a->m_lock, b->m_lock);
    const Locker locker(*a);
    for (const auto &[from, to] : {std::pair(a, b), std::pair(b, a)}) {
        if (peers & ProgressPeers)
            from->m_progressPeers.insert(to);
        if (peers & AbortPeers)
            from->m_abortPeers.insert(to);
    }
    return true;
}

void IProgress::unlink(IProgress *a, IProgress *b, Peers peers)
{
    if (!a || !b)
        return;
    const Locker locker(*a);
    // Only reporters that share a lock are linked, so what b has changes under that of a.
    if ((peers & ProgressPeers) && a->m_progressPeers.remove(b))
        b->m_progressPeers.remove(a);
    if ((peers & AbortPeers) && a->m_abortPeers.remove(b))
        b->m_abortPeers.remove(a);
}

void IProgress::unlinkAll()
{
    const Locker locker(*this);
    for (IProgress *const peer : std::as_const(m_progressPeers))
        peer->m_progressPeers.remove(this);
    for (IProgress *const peer : std::as_const(m_abortPeers))
        peer->m_abortPeers.remove(this);
    m_progressPeers.clear();
    m_abortPeers.clear();
}

QSet<IProgress *> IProgress::progressPeers() const
{
    const Locker locker(*this);
    return m_progressPeers;
}

QSet<IProgress *> IProgress::abortPeers() const
{
    const Locker locker(*this);
    return m_abortPeers;
}

void IProgress::useLockOf(const IProgress &other)
{
    Lock::release(std::exchange(m_lock, other.m_lock->retain()));
}

void IProgress::setSum(qint64 *sum)
{
    m_sum = sum;
}

} // namespace Quorvex::Interfaces
