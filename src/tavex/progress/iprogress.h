#pragma once

#include <tavex/core/export.h>

#include <QObject>
#include <QSet>

#include <atomic>

namespace Quorvex::Interfaces {

/// What a task reports to: how far it is, from 0 to 100, and whether it is to stop. Reporters may
/// be linked as peers, which follow each other's progress, are aborted together, or both.
///
/// All functions may be called from any thread, progress() and isAborted() without waiting. Each
/// reporter has a recursive lock; linked ones share theirs, as a pool does with its children. While
/// one of them passes a change on, other threads wait to change any of them, and slots that are
/// connected directly to its peers run under the lock. Such slots may call all functions here, and
/// may delete peers other than those that are just passing the change on.
///
/// A class that overrides a virtual function calls unlinkAll() at the start of its destructor,
/// because peers on other threads call that function until then.
class TAVEX_EXPORT IProgress
{
public:
    Q_DISABLE_COPY_MOVE(IProgress)

    /// What peers share: progress, abort, or both.
    enum Peers { ProgressPeers = 1, AbortPeers = 2, AllPeers = ProgressPeers | AbortPeers };

    /// At 0, not aborted and without peers.
    IProgress();
    /// Unlinks all peers.
    virtual ~IProgress();

    /// Sets the progress to 0, then clears the abort.
    virtual void reset();

    /// Asks the task to stop, and then each abort peer that is not aborted.
    virtual void abort();

    /// Whether the task is asked to stop.
    [[nodiscard]] virtual bool isAborted() const;

    /// The progress, 0 to 100.
    [[nodiscard]] virtual int progress() const;

    /// Sets the progress to \a value, cut to 0 to 100, and passes \a value itself on to each
    /// progress peer whose progress differs. That also happens after an abort.
    virtual void setProgress(int value);

    /// Makes \a a and \a b peers of each other; that changes no progress. False, without effect, if
    /// one is null or they are the same. It waits until no other thread is changing one of their
    /// groups, so a slot that runs under the lock of one must not link it to the other while a slot
    /// of that one, on another thread, does the reverse.
    static bool link(IProgress *a, IProgress *b, Peers peers = AllPeers);

    /// Undoes link() for the given sets.
    static void unlink(IProgress *a, IProgress *b, Peers peers = AllPeers);

    /// The reporters that are linked to this one in that way.
    /// @{
    [[nodiscard]] QSet<IProgress *> progressPeers() const;
    [[nodiscard]] QSet<IProgress *> abortPeers() const;
    /// @}

protected:
    class Lock;
    struct Call;

    /// Holds the lock of a reporter.
    class TAVEX_EXPORT Locker
    {
    public:
        Q_DISABLE_COPY_MOVE(Locker)
        /// Waits for the lock of \a progress.
        explicit Locker(const IProgress &progress);
        ~Locker();

    private:
        friend IProgress;
        Lock *m_lock;
    };

    /// What setProgress() does; the progress before. With \a back false, peers that are passing a
    /// change on themselves are left out.
    int exchangeProgress(int value, bool back = true);
    /// What abort() does; whether it was aborted before.
    bool exchangeAborted();
    /// The second half of exchangeProgress().
    void passOn(int value, bool back = true);

    /// Undoes every link() of this reporter.
    void unlinkAll();

    /// Takes the lock of \a other in place of the own, which no other thread may know yet.
    void useLockOf(const IProgress &other);

    /// Adds every change of the progress to \a sum, under the lock; null: no longer.
    void setSum(qint64 *sum);

private:
    Lock *m_lock;
    QSet<IProgress *> m_progressPeers;
    QSet<IProgress *> m_abortPeers;
    std::atomic<int> m_progress = 0;
    std::atomic<int> m_isAborted = 0;
    qint64 *m_sum = nullptr;
};

} // namespace Quorvex::Interfaces

Q_DECLARE_INTERFACE(Quorvex::Interfaces::IProgress, "Quorvex.IProgress/1.1")
