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
    explicit Search(ProgressLock *start)
        : found{start}
        , m_seen{start}
    {
    }
    enum Outcome { More, Through, Met };
    /// Follows the links of one more lock. It has met \a other if that has found the same.
    Outcome next(const Search &other)
    {
        const QHash<ProgressLock *, int> &links = found[m_next++]->m_links;
        for (auto it = links.keyBegin(); it != links.keyEnd(); ++it) {
            if (other.m_seen.contains(*it))
                return Met;
            if (!m_seen.contains(*it)) {
                m_seen.insert(*it);
                found.push_back(*it);
            }
        }
        return m_next < found.size() ? More : Through;
    }
    std::vector<ProgressLock *> found;

private:
    QSet<ProgressLock *> m_seen;
    std::size_t m_next = 0;
};

bool ProgressLock::take(bool wait)
{
    for (;;) {
        std::shared_ptr<Group> shared;
        Group *group = m_group;
        if (group != &m_own) {
            const std::lock_guard gate(m_gate);
            shared = m_shared;
            group = m_group;
        }
        if (wait)
            group->mutex.lock();
        else if (!group->mutex.try_lock())
            return false;
        if (m_group == group) {
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
    m_group.load()->mutex.unlock();
}

void ProgressLock::hold()
{
    m_group.load()->mutex.lock();
    ++m_depth;
}

void ProgressLock::link(ProgressLock *a, ProgressLock *b)
{
    if (a == b)
        return;
    if (a->groupSize() < b->groupSize())
        std::swap(a, b);
    if (a->m_group.load() != b->m_group.load()) {
        if (!a->m_shared)
            move({a}, std::make_shared<Group>());
        Search moving(b);
        const Search none(a);
        while (moving.next(none) == Search::More) { }
        move(moving.found, a->m_shared);
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
    Search part(a);
    Search rest(b);
    Search::Outcome outcome = part.next(rest);
    for (; outcome == Search::More; outcome = part.next(rest))
        std::swap(part, rest);
    if (outcome == Search::Met)
        return;
    move(part.found, part.found.size() > 1 ? std::make_shared<Group>() : nullptr);
    if (rest.found.front()->groupSize() == 1)
        move({rest.found.front()}, nullptr);
}

/// Moves \a locks of one group, of which the thread has one at least, to another, which is new or
/// which it has as well; null: the one lock's own.
void ProgressLock::move(const std::vector<ProgressLock *> &locks, const std::shared_ptr<Group> &to)
{
    const std::shared_ptr<Group> from = locks.front()->m_shared;
    Group *const before = locks.front()->m_group;
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
        lock->m_group = after;
    }
    before->size -= locks.size();
    after->size += locks.size();
    for (int i = 0; i < held; ++i)
        before->mutex.unlock();
}

} // namespace Quorvex::Interfaces
