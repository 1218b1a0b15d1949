// Inserts values into a cache for interrupted.sh, which kills it or lets calls of the system fail:
// interrupted DIRECTORY COMMAND [STATUS]. With TAVEX_NAMED it has no files without a name. With the
// status of an earlier run it exits with 1 if that has left anything else than it should, and
// inserts the old values again. The command "open" ends before that.

#include "forms.h"
#include "refuse.h"

#include <QDir>

#include <cstdlib>
#include <string_view>

namespace {

constexpr int Sizes[] = {100, 40000, 100000, 20000};
constexpr int KeyCount = 4;
/// What a run that came to its end exits with, and a bit for each key that was inserted.
constexpr int Finished = 64;

/// Each version has another size, so that a mixture of two is neither.
QByteArray valueOf(int i, int version)
{
    return {Sizes[i] * (3 - version) / 2, static_cast<char>('a' + 2 * i + version)};
}

/// A key that was inserted has its new value, one whose insertion failed the old one or none; a
/// killed process leaves either of the two.
bool check(const Quorvex::SNvCache &cache, int i, int status)
{
    const QByteArray value = cache.value(QString::number(i));
    const bool isOld = value == valueOf(i, 0);
    if (!(status & Finished))
        return isOld || value == valueOf(i, 1);
    return status >> i & 1 ? value == valueOf(i, 1) : isOld || value.isEmpty();
}

} // namespace

int main(int argc, char *argv[])
{
    const std::string_view command(argv[2]);
    if (qEnvironmentVariableIsSet("TAVEX_NAMED") && !refuseNamelessFiles())
        return 1;
    const int before = argc > 3 ? std::atoi(argv[3]) : 0;
    int status = Finished;
    Quorvex::SNvCache cache(QStringLiteral("cache"), QString::fromLocal8Bit(argv[1]));
    const QDir directory(cache.folder() + QStringLiteral("/cache"));
    bool good = directory.entryList({QStringLiteral("new-*")}).isEmpty();
    for (int i = 0; before && i < KeyCount; ++i)
        good = good && check(cache, i, before);
    if (!good || command == "open")
        std::_Exit(!good);
    for (int i = 0; i < KeyCount; ++i)
        status |= insert(cache, i, valueOf(i, before ? 0 : 1)) << i;
    return status;
}
