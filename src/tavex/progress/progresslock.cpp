#include <tavex/progress/progresslock_p.h>

#include <QSet>
#include <QThread>

#include <algorithm>
#include <array>
#include <thread>

namespace Quorvex::Interfaces {

bool IProgress::Lock::Group::take(bool wait)
{
    if (wait)
        mutex.lock();
    else if (!mutex.try_lock())
        return false;
    owner.store(QThread::currentThreadId(), std::memory_order_relaxed);
    return true;
}

void IProgress::Lock::Group::leave()
{
    owner.store(nullptr, std::memory_order_relaxed);
    mutex.unlock();
}

bool IProgress::Lock::take(bool wait)
{
    Qt::HANDLE const self = QThread::currentThreadId();
    if (m_owner.load(std::memory_order_relaxed) == self) {
        ++m_depth;
        return true;
    }
    for (;;) {
        Group *group = m_group.load(std::memory_order_acquire);
        std::shared_ptr<Group> shared;
        if (group != &m_own) {
            const std::lock_guard gate(m_gate);
            shared = m_shared;
            group = m_group.load(std::memory_order_relaxed);
        }
        const bool wasTaken = group->owner.load(std::memory_order_relaxed) == self;
        if (!wasTaken && !group->take(wait))
            return false;
        // The lock may have changed groups while this waited for the one.
        if (m_group.load(std::memory_order_relaxed) == group) {
            ++group->held;
            break;
        }
        if (!wasTaken)
            group->leave();
    }
    m_owner.store(self, std::memory_order_relaxed);
    m_depth = 1;
    return true;
}

void IProgress::Lock::unlock()
{
    if (--m_depth > 0)
        return;
    m_owner.store(nullptr, std::memory_order_relaxed);
    Group *const group = m_group.load(std::memory_order_relaxed);
    if (--group->held > 0)
        return;
    const std::shared_ptr<Group> shared = m_shared; // The next to have it may dissolve the group.
    group->leave();
}

void IProgress::Lock::link(Lock *a, Lock *b)
{
    if (a == b)
        return;
    Group *const groupA = a->m_group.load(std::memory_order_relaxed);
    Group *const groupB = b->m_group.load(std::memory_order_relaxed);
    if (groupA != groupB) {
        const bool isALarger = groupA->size >= groupB->size;
        Lock *const staying = isALarger ? a : b;
        std::vector<Lock *> moving{isALarger ? b : a};
        QSet<Lock *> seen{moving.front()};
        for (std::size_t i = 0; i < moving.size(); ++i) {
            for (auto it = moving[i]->m_links.keyBegin(); it != moving[i]->m_links.keyEnd(); ++it) {
                if (const auto size = seen.size(); seen.insert(*it), seen.size() != size)
                    moving.push_back(*it);
            }
        }
        if (!staying->m_shared)
            move({staying}, std::make_shared<Group>());
        move(moving, staying->m_shared);
    }
    ++a->m_links[b];
    ++b->m_links[a];
}

void IProgress::Lock::unlink(Lock *a, Lock *b)
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
    struct Search
    {
        explicit Search(Lock *end)
            : part{end}
            , seen{end}
        {
        }
        std::vector<Lock *> part;
        QSet<Lock *> seen;
        std::size_t next = 0;
    };
    const bool isAFirst = a->m_links.size() <= b->m_links.size();
    std::array<Search, 2> searches{Search(isAFirst ? a : b), Search(isAFirst ? b : a)};
    for (std::size_t turn = 0;; turn = 1 - turn) {
        Search &search = searches.at(turn);
        const Search &other = searches.at(1 - turn);
        const QHash<Lock *, int> &links = search.part[search.next++]->m_links;
        for (auto it = links.keyBegin(); it != links.keyEnd(); ++it) {
            if (other.seen.contains(*it))
                return;
            if (const auto size = search.seen.size();
                search.seen.insert(*it), search.seen.size() != size)
                search.part.push_back(*it);
        }
        if (search.next < search.part.size())
            continue;
        Lock *const rest = other.part.front();
        const std::shared_ptr<Group> before = rest->m_shared;
        move(search.part, search.part.size() > 1 ? std::make_shared<Group>() : nullptr);
        if (before->size == 1)
            move({rest}, nullptr);
        return;
    }
}

/// Moves \a locks, which are of one group, to another; null: the one lock's own. The thread has
/// both, or no other can have the second yet.
void IProgress::Lock::move(const std::vector<Lock *> &locks, const std::shared_ptr<Group> &to)
{
    const std::shared_ptr<Group> keep = locks.front()->m_shared;
    Group *const from = locks.front()->m_group.load(std::memory_order_relaxed);
    Group *const target = to ? to.get() : &locks.front()->m_own;
    const auto held = static_cast<int>(std::count_if(
        locks.cbegin(), locks.cend(), [](const Lock *lock) { return lock->m_depth > 0; }));
    if (held > 0 && target->held == 0) {
        // A thread that comes late to a lock's own group has it for a moment only.
        while (!target->take(false))
            std::this_thread::yield();
    }
    for (Lock *const lock : locks) {
        const std::lock_guard gate(lock->m_gate);
        lock->m_shared = to;
        lock->m_group.store(target, std::memory_order_release);
    }
    target->size += locks.size();
    target->held += held;
    from->size -= locks.size();
    from->held -= held;
    if (held > 0 && from->held == 0)
        from->leave();
}

} // namespace Quorvex::Interfaces
