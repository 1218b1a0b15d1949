#pragma once

#include <tavex/ISerializable>
#include <tavex/SNvCache>

#include <QBuffer>
#include <QDataStream>

/// Writes in small pieces and does not look whether they arrive.
struct Careless : Quorvex::Interfaces::ISerializable
{
    explicit Careless(const QByteArray &bytes)
        : data(bytes)
    {
    }
    bool read(QDataStream &) override { return false; }
    bool write(QDataStream &stream) override
    {
        for (qsizetype i = 0; i < data.size(); i += 1000)
            stream.device()->write(data.mid(i, 1000));
        return true;
    }
    QByteArray data;
};

/// Inserts the value of the key number \a i in one of the three forms.
inline bool insert(Quorvex::SNvCache &cache, int i, const QByteArray &data)
{
    Careless object(data);
    QBuffer buffer(&object.data);
    const QString key = QString::number(i);
    return i < 2 ? cache.insert(key, data)
        : i == 2 ? cache.insert(key, &buffer)
                 : cache.insert(key, &object);
}
