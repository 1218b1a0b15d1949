#include <tavex/progress/progresslock_p.h>

#include <QSet>

#include <algorithm>
#include <numeric>
#include <thread>
#include <utility>

namespace Quorvex::Interfaces {

/// Finds the locks that links connect with one of them.
class ProgressLock::Search
{
public:
    explicit Search(ProgressLock *start) { add(start); }

    /// Follows the links of one more. Whether there are more to follow.
    bool next()
    {
        m_fresh = found.size();
        const QHash<ProgressLock *, int> &links = found[m_next++]->m_links;
        std::for_each(links.keyBegin(), links.keyEnd(), [this](ProgressLock *lock) { add(lock); });
        return m_next < found.size();
    }
    /// Whether the latest step has reached what \a other has found.
    [[nodiscard]] bool meets(const Search &other) const
    {
        return std::any_of(found.cbegin() + std::ptrdiff_t(m_fresh), found.cend(),
            [&other](ProgressLock *lock) { return other.m_seen.contains(lock); });
    }

    std::vector<ProgressLock *> found;

private:
    void add(ProgressLock *lock)
    {
        const qsizetype before = m_seen.size();
        m_seen.insert(lock);
        if (m_seen.size() > before)
            found.push_back(lock);
    }

    QSet<ProgressLock *> m_seen;
    std::size_t m_next = 0;
    std::size_t m_fresh = 0;
};

bool ProgressLock::take(bool wait)
{
    for (;;) {
        std::shared_ptr<Group> shared;
        Group *group = m_group.load(std::memory_order_acquire);
        if (group != &m_own) {
            const std::lock_guard gate(m_gate);
            shared = m_shared;
            group = m_group.load(std::memory_order_relaxed);
        }
        if (wait)
            group->mutex.lock();
        else if (!group->mutex.try_lock())
            return false;
        if (m_group.load(std::memory_order_relaxed) == group) {
            ++m_depth;
            return true;
        }
        group->mutex.unlock(); // It changed groups while this waited for the one.
    }
}

void ProgressLock::unlock()
{
    const std::shared_ptr<Group> shared = m_shared; // The next to have it may dissolve the group.
    --m_depth;
    m_group.load(std::memory_order_relaxed)->mutex.unlock();
}

void ProgressLock::hold()
{
    m_group.load(std::memory_order_relaxed)->mutex.lock();
    ++m_depth;
}

void ProgressLock::link(ProgressLock *a, ProgressLock *b)
{
    if (a == b)
        return;
    if (a->m_group.load(std::memory_order_relaxed) != b->m_group.load(std::memory_order_relaxed)) {
        const bool isALarger = a->groupSize() >= b->groupSize();
        ProgressLock *const staying = isALarger ? a : b;
        if (!staying->m_shared)
            move({staying}, std::make_shared<Group>());
        Search moving(isALarger ? b : a);
        while (moving.next()) { }
        move(moving.found, staying->m_shared);
    }
    ++a->m_links[b];
    ++b->m_links[a];
}

void ProgressLock::unlink(ProgressLock *a, ProgressLock *b)
{
    if (a == b)
        return;
    --b->m_links[a];
    if (--a->m_links[b] > 0)
        return;
    a->m_links.remove(b);
    b->m_links.remove(a);

    // From both ends in turn, so that it takes as long as the smaller part is large. The end with
    // fewer links first: a star should not be searched to find that it has lost a ray.
    if (a->m_links.size() > b->m_links.size())
        std::swap(a, b);
    Search fromA(a);
    Search fromB(b);
    Search *part = &fromA;
    Search *rest = &fromB;
    while (part->next()) {
        if (part->meets(*rest))
            return;
        std::swap(part, rest);
    }
    if (part->meets(*rest))
        return;
    move(part->found, part->found.size() > 1 ? std::make_shared<Group>() : nullptr);
    if (ProgressLock *const last = rest->found.front(); last->groupSize() == 1)
        move({last}, nullptr);
}

/// Moves \a locks of one group, of which the thread has one at least, to another, which is new or
/// which it has as well; null: the one lock's own.
void ProgressLock::move(const std::vector<ProgressLock *> &locks, const std::shared_ptr<Group> &to)
{
    const std::shared_ptr<Group> from = locks.front()->m_shared;
    Group *const before = from ? from.get() : &locks.front()->m_own;
    Group *const after = to ? to.get() : &locks.front()->m_own;
    const int held = std::accumulate(locks.cbegin(), locks.cend(), 0,
        [](int sum, const ProgressLock *lock) { return sum + lock->m_depth; });
    for (int i = 0; i < held; ++i) {
        // A thread that comes late to a lock's own group has it for a moment only.
        while (!after->mutex.try_lock())
            std::this_thread::yield();
    }
    for (ProgressLock *const lock : locks) {
        const std::lock_guard gate(lock->m_gate);
        lock->m_shared = to;
        lock->m_group.store(after, std::memory_order_release);
    }
    before->size -= locks.size();
    after->size += locks.size();
    for (int i = 0; i < held; ++i)
        before->mutex.unlock();
}

} // namespace Quorvex::Interfaces
