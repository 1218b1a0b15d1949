#pragma once

#include <tavex/progress/iprogress.h>
#include <tavex/progress/progresslock_p.h>

#include <array>

namespace Quorvex::Interfaces {

/// The state of a reporter. It outlives the reporter while a change is on its way through it.
class Q_DECL_HIDDEN IProgress::Private
{
public:
    Q_DISABLE_COPY_MOVE(Private)

    enum Kind : quint8 { Progress, Abort };

    /// The lock of a reporter, or of a pool and its children with what they share under it.
    struct Family : ProgressLock
    {
        /// Of the children, of which there is one at least. Any thread may ask.
        [[nodiscard]] int mean() const { return int(sum / qint64(children.size())); }

        Private *pool = nullptr;         ///< Null if there is none, or no longer.
        std::vector<Private *> children; ///< Null where one was deleted.
        std::size_t living = 0;          ///< How many were not.
        std::size_t running = 0;         ///< How many of those are not aborted.
        std::atomic<qint64> sum = 0;     ///< Of their progress.
    };

    /// Of a class with the signals of SProgress.
    template <typename Reporter>
    class Signalling;

    Private() = default;
    virtual ~Private() = default;

    [[nodiscard]] int progress() const { return int(m_state & ProgressBits); }
    [[nodiscard]] bool isAborted() const { return m_state & AbortedBit; }
    void setProgress(int value);
    void abort();
    void clearAbort();

    /// What a pool does. A child that it adopts is new.
    /// @{
    void adopt(Private *child);
    void setChildren(int value);
    void abortChildren();
    void followChildren();
    /// @}

    /// Changes links, under the locks.
    /// @{
    void link(Private *peer, Peers kinds);
    void unlink(Private *peer, Peers kinds);
    void updateShared();
    /// @}
    void unlinkAll();

    IProgress *q = nullptr; ///< Null when it is no more.
    std::shared_ptr<Family> family = std::make_shared<Family>();
    std::array<QSet<IProgress *>, 2> peers; ///< Of each kind.

private:
    class Change;

    // In one number, so that what is not shared changes at one go, without the lock.
    static constexpr quint32 ProgressBits = 0x7f;
    static constexpr quint32 AbortedBit = 0x80;
    static constexpr quint32 SharedBit = 0x100; ///< It has peers or is of a pool.

    /// Emits the signal of a change.
    virtual void announce(Kind, int) const { }

    quint32 set(quint32 mask, quint32 bits, quint32 unless = 0);
    int store(int value);
    bool storeAbort();
    [[nodiscard]] bool isPool() const { return family->pool == this; }
    [[nodiscard]] Private *pool() const { return m_isChild ? family->pool : nullptr; }
    /// Whether it is a pool that does not get where others do.
    [[nodiscard]] bool isStuck() const
    {
        return isPool() && (family->living == 0 || family->living < family->children.size());
    }

    std::atomic<quint32> m_state = 0;
    bool m_isChild = false;
    std::size_t m_index = 0; ///< Among the children.
};

template <typename Reporter>
class Q_DECL_HIDDEN IProgress::Private::Signalling : public Private
{
    void announce(Kind kind, int progress) const override
    {
        if (kind == Abort)
            Q_EMIT static_cast<Reporter *>(q)->aborting();
        else
            Q_EMIT static_cast<Reporter *>(q)->reportProgress(progress);
    }
};

} // namespace Quorvex::Interfaces
