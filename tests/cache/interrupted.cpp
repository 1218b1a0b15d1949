// Inserts values into a cache for interrupted.sh, which kills it or lets calls of the system fail:
// interrupted DIRECTORY COMMAND [STATUS]. With TAVEX_NAMED it has no files without a name. With the
// status of an earlier run it exits with 1 if that has left anything else than it should, and
// inserts the old values again. The command "open" ends before that.

#include "forms.h"
#include "refuse.h"

#include <QDir>

#include <cstdlib>
#include <string_view>

/// What a run that came to its end exits with, and a bit for each key that was inserted.
constexpr int Finished = 64;

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsSet("TAVEX_NAMED") && !refuseNameless())
        return 1;
    const int before = argc > 3 ? std::atoi(argv[3]) : 0;
    const QList<int> sizes{100, 40000, 100000, 20000};
    const QList<QByteArray> newValues = valuesOf(1, sizes);
    const QList<QByteArray> oldValues = valuesOf(50, sizes);
    Quorvex::SNvCache cache(QStringLiteral("cache"), QString::fromLocal8Bit(argv[1]));
    const QDir directory(cache.folder() + QStringLiteral("/cache"));
    bool good = directory.entryList({QStringLiteral("new-*")}).isEmpty();
    for (int i = 0; before && i < sizes.size(); ++i) {
        // A key that was inserted has its new value, one whose insertion failed the old one or
        // none; a killed process leaves either of the two.
        const QByteArray value = cache.value(QString::number(i));
        const bool isNew = value == newValues[i];
        const bool isOld = value == oldValues[i];
        if (before & Finished)
            good = good && (before >> i & 1 ? isNew : isOld || value.isEmpty());
        else
            good = good && (isNew || isOld);
    }
    if (!good || std::string_view(argv[2]) == "open")
        std::_Exit(!good);
    return Finished | insertAll(cache, before ? oldValues : newValues);
}
