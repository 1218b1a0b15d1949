#pragma once

#include <tavex/progress/iprogress.h>

namespace Quorvex {

/// A reporter that announces its changes. A signal comes after the peers have followed, on the
/// thread that made the change and without the reporter's own lock.
// The meta-object knows the second base class by its name as it is written here.
class TAVEX_EXPORT SProgress : public QObject, public Quorvex::Interfaces::IProgress
{
    Q_OBJECT
    Q_INTERFACES(Quorvex::Interfaces::IProgress)
    /// reset() clears \c aborted without a signal of its own; \c progress is 0 then.
    Q_PROPERTY(int progress READ progress WRITE setProgress NOTIFY reportProgress)
    Q_PROPERTY(bool aborted READ isAborted NOTIFY aborting)

public:
    /// At 0, not aborted and without peers.
    explicit SProgress(QObject *parent = nullptr);
    ~SProgress() override;

public Q_SLOTS:
    /// As IProgress says; emits reportProgress() if the progress has changed.
    void setProgress(int value) override;
    /// As IProgress says; emits aborting() the first time.
    void abort() override;
    /// As IProgress says.
    void reset() override;

Q_SIGNALS:
    /// The progress is now \a value. Setting what is already set does not emit.
    void reportProgress(qint32 value);
    /// The first abort after the construction or the last reset().
    void aborting();
};

} // namespace Quorvex
