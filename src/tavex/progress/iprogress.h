#pragma once

#include <tavex/core/export.h>

#include <QObject>
#include <QSet>

#include <atomic>

namespace Quorvex::Interfaces {

/// What a task reports to: how far it is, from 0 to 100, and whether it is to stop. Reporters may
/// be linked as peers; peers follow each other's progress, are aborted together, or both.
///
/// All functions may be called from any thread, progress() and isAborted() without waiting. Each
/// reporter has a recursive lock. Linked ones share theirs, as a pool does with its parts: while
/// one of them passes a change on, other threads wait to change any of them, and slots that its
/// peers call directly run under the lock. They may call back, and may unlink or delete peers that
/// are not passing the change on.
///
/// A class that overrides a virtual function calls unlinkAll() at the start of its destructor,
/// because peers on other threads call that function until then.
class TAVEX_EXPORT IProgress
{
public:
    Q_DISABLE_COPY_MOVE(IProgress)

    enum Peers { ProgressPeers = 1, AbortPeers = 2, AllPeers = ProgressPeers | AbortPeers };

    /// At 0, not aborted and without peers.
    IProgress();
    /// Unlinks all peers.
    virtual ~IProgress();

    /// Sets the progress to 0, then clears the abort.
    virtual void reset();

    /// Asks the task to stop, and then each abort peer that is not aborted.
    virtual void abort();

    [[nodiscard]] virtual bool isAborted() const;

    [[nodiscard]] virtual int progress() const;

    /// Sets the progress to \a value, cut to 0 to 100, and passes \a value itself on to each
    /// progress peer whose progress differs. That also happens after an abort.
    virtual void setProgress(int value);

    /// Makes \a a and \a b peers of each other; no progress changes by that. False, without effect,
    /// if one is null or they are the same.
    /// Two threads must not each link the same groups from slots that run under the lock of one of
    /// them: they would wait for each other.
    static bool link(IProgress *a, IProgress *b, Peers peers = AllPeers);

    /// Undoes link() for the given sets.
    static void unlink(IProgress *a, IProgress *b, Peers peers = AllPeers);

    [[nodiscard]] QSet<IProgress *> progressPeers() const;
    [[nodiscard]] QSet<IProgress *> abortPeers() const;

protected:
    class Lock;
    struct Call;

    /// Holds the lock of a reporter.
    class TAVEX_EXPORT Locker
    {
    public:
        Q_DISABLE_COPY_MOVE(Locker)
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

    void unlinkAll();

    /// Lets both have one lock from now on.
    static void shareLock(const IProgress &a, const IProgress &b);

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
