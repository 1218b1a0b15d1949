#pragma once

#include <tavex/ISerializable>
#include <tavex/SNvCache>

#include <QBuffer>
#include <QDataStream>

#include <functional>

/// Calls back when it is read or written.
struct Value : Quorvex::Interfaces::ISerializable
{
    explicit Value(std::function<bool(QDataStream &)> function)
        : operation(std::move(function))
    {
    }
    bool read(QDataStream &stream) override { return operation(stream); }
    bool write(QDataStream &stream) override { return operation(stream); }
    std::function<bool(QDataStream &)> operation;
};

/// Writes in small pieces and does not look whether they arrive.
inline Value careless(const QByteArray &data)
{
    return Value([data](QDataStream &stream) {
        for (qsizetype i = 0; i < data.size(); i += 1000)
            stream.device()->write(data.mid(i, 1000));
        return true;
    });
}

/// Of about these sizes, and of another one in each version: a mixture of two is neither.
inline QList<QByteArray> valuesOf(int version, const QList<int> &sizes)
{
    QList<QByteArray> values;
    for (const int size : sizes)
        values +=
            (QByteArray::number(version) + ' ').leftJustified(size + version % 64, char(version));
    return values;
}

/// Inserts the values of the keys 0 and so on, in all three forms. Returns a bit for each key for
/// which this succeeded.
inline int insertAll(Quorvex::SNvCache &cache, QList<QByteArray> values)
{
    int inserted = 0;
    for (int i = 0; i < values.size(); ++i) {
        Value object = careless(values[i]);
        QBuffer buffer(&values[i]);
        const QString key = QString::number(i);
        const bool done = i < 2 ? cache.insert(key, values[i])
            : i == 2            ? cache.insert(key, &buffer)
                                : cache.insert(key, &object);
        inserted |= done << i;
    }
    return inserted;
}
