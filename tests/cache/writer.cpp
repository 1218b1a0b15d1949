// Inserts values into a cache for interrupted.sh and killed.sh, which kill it or let calls of the
// system fail: writer DIRECTORY COMMAND [STATUS]. With TAVEX_NAMED it has no files without a name.
// "open" and "change" exit with 1 if the run with the status given has left anything else than it
// should; "change" then inserts the new values, or the old ones again. "loop" makes one cache after
// the other and writes a version of all values into each, without an end; "whole" exits with 1
// unless what such writers have left are whole values.

#include "forms.h"
#include "refuse.h"

#include <QDir>

#include <cstdlib>
#include <string_view>

using Quorvex::SNvCache;

namespace {

/// What a run that came to its end exits with, and a bit for each key that was inserted.
constexpr int Finished = 64;
const QList<int> Sizes{100, 40000, 100000, 20000};

/// A key that was inserted has its new value, one whose insertion failed the old one or none; a
/// killed process leaves either of the two.
bool isRight(const QByteArray &value, int i, int status)
{
    const bool isNew = value == valuesOf(1, Sizes)[i];
    const bool isOld = value == valuesOf(50, Sizes)[i];
    if (status & Finished)
        return status >> i & 1 ? isNew : isOld || value.isEmpty();
    return isNew || isOld;
}

bool isWhole(const QByteArray &value, int i)
{
    return value == valuesOf(value.left(value.indexOf(' ')).toInt(), Sizes)[i];
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsSet("TAVEX_NAMED") && !refuseNameless())
        return 1;
    const std::string_view command = argv[2];
    const int status = argc > 3 ? std::atoi(argv[3]) : 0;
    const QString name = QStringLiteral("cache");
    const QString folder = QString::fromLocal8Bit(argv[1]);
    for (int version = status; command == "loop"; ++version) {
        SNvCache cache(name, folder);
        if (insertAll(cache, valuesOf(version, Sizes)) != 15)
            return 1;
    }
    SNvCache cache(name, folder);
    const QDir directory(cache.folder() + u'/' + name);
    bool isGood = directory.entryList({QStringLiteral("new-*")}).isEmpty();
    for (int i = 0; i < Sizes.size() && (status != 0 || command == "whole"); ++i) {
        const QByteArray value = cache.value(QString::number(i));
        isGood = isGood && (command == "whole" ? isWhole(value, i) : isRight(value, i, status));
    }
    if (command == "whole") {
        constexpr qint64 Entry = 4 + 2 + 4 + 32;
        const qint64 size = QFileInfo(directory, QStringLiteral("index")).size();
        isGood = isGood && size == 24 + Sizes.size() * Entry;
    }
    if (!isGood || command != "change")
        std::_Exit(!isGood);
    return Finished | insertAll(cache, valuesOf(status ? 50 : 1, Sizes));
}
