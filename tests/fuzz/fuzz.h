#pragma once

#include "../laws.h"

#include <QByteArray>
#include <QString>

#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uchar *data, std::size_t size);

/// A finding, unless \a holds.
inline void check(bool holds, int line = __builtin_LINE())
{
    if (holds)
        return;
    std::fprintf(stderr, "A check fails in line %d\n", line);
    std::abort();
}

/// The bytes of one run, from which values are taken one after another. When they are used up,
/// values are 0 and empty.
class Input
{
public:
    Input(const uchar *data, std::size_t size)
        : m_rest(reinterpret_cast<const char *>(data), qsizetype(size))
    {
    }

    QByteArray bytes(qsizetype size)
    {
        QByteArray taken = m_rest.left(size);
        m_rest.remove(0, size);
        return taken;
    }

    template <typename T>
    T number()
    {
        T value{};
        const QByteArray taken = bytes(sizeof(T));
        std::memcpy(&value, taken.constData(), std::size_t(taken.size()));
        return value;
    }

    /// A length, and so many bytes of UTF-8; from 128 on of UTF-16, which may be broken.
    QString text()
    {
        const auto size = number<uchar>();
        if (size < 128)
            return QString::fromUtf8(bytes(size));
        QString text(size % 128, QChar());
        for (QChar &c : text)
            c = QChar(number<ushort>());
        return text;
    }

    /// Any that there is.
    QLocale locale() { return everyLocale().at(number<ushort>() % everyLocale().size()); }

private:
    QByteArray m_rest;
};
