#pragma once

#include "checks.h"

#include <tavex/Tavex>

#include <atomic>
#include <limits>
#include <memory>
#include <thread>

/// \file
/// What most tests use.

using namespace Quorvex;

template <typename T>
constexpr T Max = (std::numeric_limits<T>::max)();
template <typename T>
constexpr T Min = (std::numeric_limits<T>::lowest)();

inline QString string(const char *utf8)
{
    return QString::fromUtf8(utf8);
}
inline QString operator""_s(const char *utf8, std::size_t size)
{
    return QString::fromUtf8(utf8, qsizetype(size));
}

/// What is in a file; "no file" if there is none.
inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/// Writes a file and returns whether it could.
inline bool putFile(const QString &path, const QByteArray &content = {})
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// What is read back of a QVariant that holds \a value and was written to a stream.
template <typename T>
T savedAndRead(const T &value)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    QDataStream stream(&buffer);
    stream << QVariant::fromValue(value);
    buffer.seek(0);
    QVariant read;
    stream >> read;
    return read.value<T>();
}

/// Gives and takes its bytes in the portions listed: 0 is nothing and -1 an error. Passes on what
/// it took after so many waits.
struct Device : QBuffer
{
    Device(const QList<qint64> &portions, const QByteArray &content = {})
        : m_portions(portions)
    {
        setData(content);
        open(ReadWrite | Unbuffered);
    }
    bool fails(qint64 &n)
    {
        n = m_portions.isEmpty() ? n : qMin(n, m_portions.takeFirst());
        return n < 0;
    }
    qint64 readData(char *d, qint64 n) override { return fails(n) ? n : QBuffer::readData(d, n); }
    qint64 writeData(const char *d, qint64 n) override
    {
        return fails(n) ? n : QBuffer::writeData(d, n);
    }
    qint64 bytesToWrite() const override { return m_waits; }
    bool waitForBytesWritten(int) override { return --m_waits >= 0; }

    QList<qint64> m_portions;
    qint64 m_waits = 0;
};

/// Calls the functions at once, each on a thread of its own, and waits for them. (The threads do
/// not sleep until all are there: what GCC 12 for Windows has for that, std::barrier too, loses
/// wake-ups.)
template <typename... Functions>
void together(Functions... functions)
{
    std::atomic missing = sizeof...(functions);
    const std::jthread threads[] = {std::jthread([&missing, functions] {
        for (--missing; missing > 0;)
            std::this_thread::yield();
        functions();
    })...};
}
