#pragma once

#include <tavex/progress/sprogress.h>

namespace Quorvex {

using Interfaces::IProgress;

/// The progress of a task in equal parts: the mean of its children's, without its fraction. The
/// children are made with the pool and belong to it. One that is deleted earlier still counts, as
/// one at 0. Aborting any of them aborts the pool and all others.
///
/// The pool and its children share a lock. The pool's signals are emitted under it, so that they
/// come one at a time and in order, whichever threads change the children.
// The meta-object knows the second base class by its name as it is written here.
class TAVEX_EXPORT SProgressPool : public QObject, public IProgress
{
    Q_OBJECT
    Q_INTERFACES(Quorvex::Interfaces::IProgress)
    /// reset() clears \c aborted without a signal of its own.
    Q_PROPERTY(int progress READ progress WRITE setProgress NOTIFY reportProgress)
    Q_PROPERTY(bool aborted READ isAborted NOTIFY aborting)
    Q_PROPERTY(int count READ count CONSTANT)

public:
    /// A pool of \a count children, of none if that is below 1.
    explicit SProgressPool(int count, QObject *parent = nullptr);
    /// A pool of one child.
    explicit SProgressPool(QObject *parent = nullptr);
    ~SProgressPool() override;

    /// A child; null if there is no such one or it was deleted.
    /// @{
    [[nodiscard]] SProgress *at(int index) const;
    [[nodiscard]] SProgress *first() const;
    [[nodiscard]] SProgress *last() const;
    /// @}

    /// The number of children that it was made with, and whether that is 0.
    /// @{
    [[nodiscard]] int count() const;
    [[nodiscard]] bool isEmpty() const;
    /// @}

public Q_SLOTS:
    /// Aborts all children, then the pool. Emits aborting() for each child that was not aborted and
    /// once for the call itself, always after all are aborted.
    void abort() override;
    /// Sets the progress of all children, in order. That of the pool follows step by step, and so
    /// do its peers.
    void setProgress(int value) override;

private Q_SLOTS:
    void onProgressChanged();

public Q_SLOTS:
    /// Sets all children to 0 and clears the pool's own abort; the children stay aborted.
    void reset() override;

Q_SIGNALS:
    /// The progress of the pool is now \a value.
    void reportProgress(qint32 value);
    /// See abort().
    void aborting();
};

} // namespace Quorvex
