// Writes values into a cache for interrupted.sh, which kills it or lets calls of the system fail,
// and checks what came of it: interrupted DIRECTORY COMMAND [STATUS]. With the status of an earlier
// run it exits with 1 if that has left anything else than it should. Then the command: "open" ends
// here, "change" inserts values (after a check the old ones), "loop" does so for ever.

#include <tavex/ISerializable>
#include <tavex/SNvCache>

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QUuid>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

constexpr int KeyCount = 4;
/// What a run that came to its end exits with, and a bit for each key that was inserted.
constexpr int Finished = 64;

QString keyOf(int i)
{
    return QStringLiteral("key %1").arg(i);
}

/// Each version has another size, so that a mixture of two is neither.
QByteArray valueOf(int i, int version)
{
    constexpr int Sizes[KeyCount] = {100, 40000, 100000, 20000};
    return QByteArray(Sizes[i] * (3 - version) / 2, char('a' + 2 * i + version));
}

/// Writes in small pieces and does not look whether they arrive.
class Careless : public Quorvex::Interfaces::ISerializable
{
public:
    explicit Careless(const QByteArray &data)
        : m_data(data)
    {
    }
    bool read(QDataStream &) override { return false; }
    bool write(QDataStream &stream) override
    {
        for (qsizetype i = 0; i < m_data.size(); i += 1000)
            stream.device()->write(m_data.mid(i, 1000));
        return true;
    }

private:
    QByteArray m_data;
};

bool insert(Quorvex::SNvCache &cache, int i, int version)
{
    QByteArray data = valueOf(i, version);
    QBuffer buffer(&data);
    Careless object(data);
    return i == 2 ? cache.insert(keyOf(i), &buffer)
        : i == 3  ? cache.insert(keyOf(i), &object)
                  : cache.insert(keyOf(i), data);
}

/// True if the index that was written last is whole.
bool checkIndex(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return !file.exists();
    QDataStream stream(&file);
    QUuid magic;
    qint64 count = 0;
    stream >> magic >> count;
    for (QString key; count > 0 && stream.status() == QDataStream::Ok; --count) {
        QByteArray digest;
        stream >> key >> digest;
    }
    return stream.status() == QDataStream::Ok && stream.atEnd();
}

/// A key that was inserted has its new value, one whose insertion failed the old one or none; a
/// killed process leaves either of the two.
bool check(Quorvex::SNvCache &cache, int status)
{
    bool good = checkIndex(cache.folder() + QStringLiteral("/cache/index"));
    for (int i = 0; i < KeyCount; ++i) {
        const QByteArray value = cache.value(keyOf(i));
        const bool isOld = value == valueOf(i, 0);
        const bool isNew = value == valueOf(i, 1);
        if (status & Finished)
            good = good && (status >> i & 1 ? isNew : isOld || value.isEmpty());
        else
            good = good && (isOld || isNew);
    }
    const QDir directory(cache.folder() + QStringLiteral("/cache"));
    return good && directory.entryList({QStringLiteral("new-*")}).isEmpty();
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc < 3)
        return 2;
    const std::string_view command(argv[2]);
    int status = Finished;
    Quorvex::SNvCache cache(QStringLiteral("cache"), QString::fromLocal8Bit(argv[1]));
    const bool isCheck = argc > 3;
    if (isCheck && !check(cache, std::atoi(argv[3])))
        std::_Exit(1);
    if (command == "open")
        std::_Exit(0);
    const int version = isCheck ? 0 : 1;
    do {
        for (int i = 0; i < KeyCount; ++i)
            status |= insert(cache, i, version) << i;
    } while (command == "loop");
    return status;
}
