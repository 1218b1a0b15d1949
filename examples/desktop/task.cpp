#include "task.h"

#include <tavex/SCrc32>

#include <QFile>

using namespace Quorvex;

Task::Task(const QString &path, QObject *parent)
    : SProgress(parent)
    , m_file(path)
{
    setAutoDelete(false);
}

void Task::run()
{
    // A copy, because a QFileInfo may be used by one thread only.
    const QFileInfo info(m_file.filePath());
    QFile file(info.filePath());
    SCrc32 crc;
    qint64 done = 0;
    qint64 length = 0;
    // Opening a pipe would wait for somebody to write into it.
    const bool isFile = info.isFile() || !info.exists();
    const bool isOpen = isFile && file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    QByteArray chunk(256 * 1024, Qt::Uninitialized);
    while (isOpen && !isAborted() && (length = file.read(chunk.data(), chunk.size())) > 0) {
        crc.update(chunk, quint64(length));
        done += length;
        setProgress(int(100 * done / qMax(done, info.size())));
    }

    State state = State::Done;
    if (isAborted())
        state = State::Aborted;
    else if (!isOpen || length < 0)
        state = State::Failed;
    QMetaObject::invokeMethod(
        this,
        [this, state, crc = crc.value(), error = isFile ? file.errorString() : QString()] {
            end(state, crc, error);
        },
        Qt::QueuedConnection);
}

void Task::end(State state, uint crc, const QString &error)
{
    m_state = state;
    m_crc = crc;
    m_error = error;
    // Those who add up progress count this task as done, whatever came of it.
    setProgress(100);
    Q_EMIT ended();
}
