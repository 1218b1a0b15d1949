#pragma once

#include <tavex/core/export.h>

#include <QObject>
#include <QSet>

#include <memory>

namespace Quorvex {

class SProgress;
class SProgressPool;

namespace Interfaces {

/// What a task reports to: how far it is, from 0 to 100, and whether it is to stop. Reporters may
/// be linked as peers, which follow each other's progress, are aborted together, or both.
///
/// All functions may be called from any thread, progress() and isAborted() without waiting. Each
/// reporter has a recursive lock, and so has a pool with its children; reporters that are linked,
/// in any number of steps, are locked together as long as they are. While a change is passed on,
/// other threads wait to change any of them, and slots that are connected directly to those that
/// follow run under the lock. Such slots may call all functions here and may delete any reporter.
///
/// A class that overrides a virtual function calls unlinkAll() at the start of its destructor,
/// because peers on other threads call that function until then. An override of setProgress() or
/// abort() that calls the function here returns before its own peers have followed when it is
/// called as a peer.
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
    /// progress peer whose progress differs. That also happens after an abort. If asking would go
    /// on without end, or if peers that could agree do not in the end, all that links reach from
    /// here is set to \a value: peers, children of pools, and the pools of children, if those have
    /// peers.
    virtual void setProgress(int value);

    /// Makes \a a and \a b peers of each other; that changes no progress. False, without effect, if
    /// one is null or they are the same. It waits until no other thread is changing one of their
    /// groups, so a slot that runs under the lock of one must not link it to the other while a slot
    /// of that one, on another thread, does the reverse.
    static bool link(IProgress *a, IProgress *b, Peers peers = AllPeers);

    /// Undoes link() for the given sets. It waits for changes of their group that are under way on
    /// other threads; later ones on either side do not concern the other.
    static void unlink(IProgress *a, IProgress *b, Peers peers = AllPeers);

    /// The reporters that are linked to this one in that way.
    /// @{
    [[nodiscard]] QSet<IProgress *> progressPeers() const;
    [[nodiscard]] QSet<IProgress *> abortPeers() const;
    /// @}

protected:
    /// Undoes every link() of this reporter.
    void unlinkAll();

private:
    class Private;
    friend SProgress;
    friend SProgressPool;

    explicit IProgress(std::shared_ptr<Private> state);

    const std::shared_ptr<Private> d;
};

} // namespace Interfaces
} // namespace Quorvex

Q_DECLARE_INTERFACE(Quorvex::Interfaces::IProgress, "Quorvex.IProgress/1.1")
