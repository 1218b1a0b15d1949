#pragma once

#include <tavex/progress/iprogress.h>

#include <QHash>

#include <memory>
#include <mutex>
#include <vector>

namespace Quorvex::Interfaces {

/// The recursive lock of a reporter; a pool's is that of its children too. Locks of linked
/// reporters, over however many links, are a group with one mutex: whoever takes one of them has
/// them all. So a change can pass through a group from any end without threads that wait for each
/// other, and what it passes through stays alive, because destructors take the lock to unlink.
///
/// Groups are what links connect at any time: they become one with the first link between them, and
/// two again without the last. A thread goes on to have what it has taken.
class IProgress::Lock
{
public:
    Q_DISABLE_COPY_MOVE(Lock)
    Lock() { m_own.size = 1; }
    ~Lock() = default;

    // With the names of a standard lockable, for std::scoped_lock.
    void lock() { take(true); }
    [[nodiscard]] bool try_lock() { return take(false); }
    void unlock();

    /// Counts one more link, or one less, between two locks that the thread has.
    /// @{
    static void link(Lock *a, Lock *b);
    static void unlink(Lock *a, Lock *b);
    /// @}

    // What a pool shares with its children, under the lock.
    IProgress *pool = nullptr;         ///< Null if there is none, or no longer.
    std::vector<IProgress *> children; ///< Null where one was deleted.
    std::size_t living = 0;            ///< How many were not.
    qint64 sum = 0;                    ///< Of their progress.

private:
    struct Group
    {
        bool take(bool wait);
        void leave();

        std::mutex mutex;
        std::atomic<Qt::HANDLE> owner = nullptr;
        int held = 0;         ///< How many of the locks the owner has taken.
        std::size_t size = 0; ///< How many locks there are.
    };

    bool take(bool wait);
    static void move(const std::vector<Lock *> &locks, const std::shared_ptr<Group> &to);

    std::atomic<Qt::HANDLE> m_owner = nullptr;
    int m_depth = 0; ///< How often the owner has taken it.
    Group m_own;     ///< For a lock without links: what can neither change nor go while it is read.
    std::mutex m_gate; ///< Held for a moment to change or copy the next two, within the group's.
    std::shared_ptr<Group> m_shared;
    std::atomic<Group *> m_group = &m_own;
    QHash<Lock *, int> m_links;
};

} // namespace Quorvex::Interfaces
