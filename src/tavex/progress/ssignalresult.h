#pragma once

#include <tavex/core/export.h>

#include <QObject>

#include <atomic>

namespace Quorvex {

/// The outcome of something that succeeds or fails later; the first one that is told stays. It may
/// be told from any thread.
class TAVEX_EXPORT SSignalResult : public QObject
{
    Q_OBJECT

public:
    /// Without an outcome.
    explicit SSignalResult(QObject *parent = nullptr);

    /// Whether the outcome is a success; false also as long as there is none.
    [[nodiscard]] bool succeeded() const;

    /// Runs an event loop until finished() is emitted, then returns succeeded(). It only hears of
    /// what comes after the call: with an outcome already told, it does not return. Without a
    /// QCoreApplication no loop runs, and it returns at once.
    bool waitResult();

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
    void finish(int result);

    std::atomic<int> m_result = -1; ///< Pending; 0: success, 1: failure.
};

} // namespace Quorvex
