// What the library adds to a program's start: the time from dlopen() of its file to the end of
// dlclose(), in a process in which Qt Core is loaded already and the library is not, with all
// symbols bound at once. That is: mapping the file, relocating it, registering types, converters
// and resources, and undoing all that. The first load in a process is what a program pays; it also
// touches code and data of Qt for the first time. Loading again shows the library's own work. The
// file is in the page cache, so no disk is measured. The peer is a module without any content that
// is linked to Qt Core too: what the loader takes in any case.

#include "harness.h"

#include <QProcess>

namespace {

/// The seconds that a fresh process finds for loading and unloading \a file: the median of \a
/// count.
double loadTime(const QString &file, int count)
{
    QProcess process;
    process.start(QStringLiteral(LOADTIME), {file, QString::number(count)});
    process.waitForFinished();
    bool ok = false;
    const double nanoseconds = process.readAllStandardOutput().trimmed().toDouble(&ok);
    if (!ok) {
        Bench::Topic::fail(QStringLiteral("load: %1 %2")
                               .arg(process.errorString(),
                                   QString::fromLocal8Bit(process.readAllStandardError())));
    }
    return nanoseconds / 1e9;
}

void compareLoads(const Bench::Topic &topic, const char *name, int count)
{
    topic.compareTimes(
        name, [=] { return loadTime(QStringLiteral(LIBRARY), count); },
        Bench::Peer{"empty module on Qt Core",
            [=] { return loadTime(QStringLiteral(EMPTY_MODULE), count); }});
}

void load(const Bench::Topic &topic)
{
    compareLoads(topic, "first load and unload", 1);
    compareLoads(topic, "load and unload again", 3 * topic.effort().repetitions);
}

const Bench::Registration registration("load", &load);

} // namespace
