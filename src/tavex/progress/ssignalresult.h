#pragma once

#include <tavex/core/export.h>

#include <QDeadlineTimer>
#include <QObject>

#include <memory>

namespace Quorvex {

/// The outcome of something that succeeds or fails later; the first one that is told stays. It may
/// be told from any thread.
class TAVEX_EXPORT SSignalResult : public QObject
{
    Q_OBJECT

public:
    /// Without an outcome.
    explicit SSignalResult(QObject *parent = nullptr);
    ~SSignalResult() override;

    /// Whether the outcome is a success; false also as long as there is none.
    [[nodiscard]] bool succeeded() const;
    /// Whether there is no outcome yet. If there is one, and not a success, it is a failure.
    [[nodiscard]] bool isPending() const;

    /// Runs an event loop until finished() is emitted, then returns succeeded(). It only hears of
    /// what comes after the call: with an outcome already told, it does not return. Without a
    /// QCoreApplication no loop runs, and it returns at once.
    bool waitResult();

    /// Runs an event loop until there is an outcome or \a deadline is over, and not at all if there
    /// is one already; then returns succeeded(). If the time was not enough, isPending() is true.
    /// Without a QCoreApplication it returns at once.
    [[nodiscard]] bool waitResult(QDeadlineTimer deadline) const;

public Q_SLOTS:
    /// Tells the outcome. The first call stays and emits finished(); further ones do nothing.
    /// @{
    void success();
    void failed();
    /// @}

Q_SIGNALS:
    /// There is an outcome.
    void finished();

private:
    class Private;

    void finish(int result);

    const std::unique_ptr<Private> d;
};

} // namespace Quorvex
