#pragma once

#include <QHash>

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace Quorvex::Interfaces {

/// A recursive lock that can be linked with others. Locks that links connect, over however many
/// others, are a group with one mutex: whoever takes one of them has them all. So threads may enter
/// a group at any end without waiting for each other. Groups become one with the first link between
/// them, and two again without the last; a thread goes on to have the locks that it has taken.
class ProgressLock
{
public:
    Q_DISABLE_COPY_MOVE(ProgressLock)
    ProgressLock() = default;
    ~ProgressLock() = default;

    // With the names of a standard lockable, for std::scoped_lock.
    void lock() { take(true); }
    [[nodiscard]] bool try_lock() { return take(false); }
    void unlock();

    // The thread has the locks that these are about.
    /// Takes it once more.
    void hold();
    /// How many locks its group has.
    [[nodiscard]] std::size_t groupSize() const { return m_group.load()->size; }
    /// Counts one more link between two, or one less.
    /// @{
    static void link(ProgressLock *a, ProgressLock *b);
    static void unlink(ProgressLock *a, ProgressLock *b);
    /// @}

private:
    struct Group
    {
        std::recursive_mutex mutex;
        std::size_t size = 0;
    };
    class Search;

    bool take(bool wait);
    static void move(const std::vector<ProgressLock *> &locks, const std::shared_ptr<Group> &to);

    Group m_own{{}, 1}; ///< Without links. It cannot go while a thread waits for it.
    std::atomic<Group *> m_group = &m_own;
    std::shared_ptr<Group> m_shared; ///< What keeps another group.
    std::mutex m_gate;               ///< Held for a moment to change or copy these two.
    int m_depth = 0;                 ///< How often it is taken.
    QHash<ProgressLock *, int> m_links;
};

} // namespace Quorvex::Interfaces
