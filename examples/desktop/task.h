#pragma once

#include <tavex/SProgress>

#include <QFileInfo>
#include <QRunnable>

/// Finds the checksum of a file. Everything but run() belongs to the thread that made the task.
class Task : public Quorvex::SProgress, public QRunnable
{
    Q_OBJECT

public:
    enum class State { Waiting, Done, Aborted, Failed };

    explicit Task(const QString &path, QObject *parent);

    /// Reads the file, on the thread of a pool; soon over if the task is aborted.
    void run() override;

    [[nodiscard]] const QFileInfo &file() const { return m_file; }
    /// Waiting until ended() is emitted.
    [[nodiscard]] State state() const { return m_state; }
    /// What the task has found, if it is done.
    [[nodiscard]] uint crc() const { return m_crc; }
    /// Why it failed, in the words of the system.
    [[nodiscard]] QString error() const { return m_error; }

Q_SIGNALS:
    /// The state, and what belongs to it, is known; run() needs the task no longer.
    void ended();

private:
    void end(State state, uint crc, const QString &error);

    const QFileInfo m_file;
    State m_state = State::Waiting;
    uint m_crc = 0;
    QString m_error;
};
