// A large file copied, beside cp and Qt's own copy, and a large tree searched, beside the bare
// iterator and find. All is in the page cache, and what counts is processor time, that of child
// processes included: waiting for the disk would hide the rest.

#include "harness.h"

#include <tavex/SDir>
#include <tavex/SFileHelper>

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <sys/resource.h>

namespace {

double processorSeconds()
{
    double sum = 0;
    for (const auto who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        getrusage(who, &usage);
        for (const timeval &time : {usage.ru_utime, usage.ru_stime})
            sum += static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    }
    return sum;
}

/// \a operation, which returns whether it did its work, as one that returns its time.
template <typename Operation>
auto timed(Operation operation)
{
    return [operation] {
        const double start = processorSeconds();
        if (!operation())
            Bench::Topic::fail(QStringLiteral("files: an operation failed"));
        return processorSeconds() - start;
    };
}

bool runProgram(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start(program, arguments);
    return process.waitForFinished(-1) && process.exitCode() == 0;
}

void copy(const Bench::Topic &topic, const QString &folder, int mebibytes)
{
    constexpr int Chunk = 1 << 20;
    const QString from = folder + QStringLiteral("/from");
    const QString to = folder + QStringLiteral("/to");
    QFile file(from);
    bool written = file.open(QIODevice::WriteOnly);
    for (int i = 0; i < mebibytes; ++i)
        written = written && file.write(QByteArray(Chunk, static_cast<char>(i))) == Chunk;
    file.close();
    if (!written)
        Bench::Topic::fail(from + QStringLiteral(": ") + file.errorString());

    // Removing the previous copy is not part of what is timed.
    const auto afresh = [&to](auto operation) {
        return [&to, operation = timed(operation)] {
            QFile::remove(to);
            return operation();
        };
    };
    const QByteArray name = "copy " + QByteArray::number(mebibytes) + " MiB";
    topic.compareTimes(name.constData(), afresh([&] {
        QFile source(from);
        QFile target(to);
        return Quorvex::SFileHelper::copyDevice(&target, &source, Chunk);
    }),
        Bench::Peer{"cp", afresh([&] {
                        return runProgram(QStringLiteral("cp"), {from, to});
                    })},
        Bench::Peer{"QFile::copy", afresh([&] { return QFile::copy(from, to); })});
}

void search(const Bench::Topic &topic, const QString &root, int thousands)
{
    bool made = true;
    for (int i = 0; i < thousands; ++i) {
        const QString folder = root + QStringLiteral("/folder %1").arg(i);
        made = made && QDir().mkpath(folder);
        for (int j = 1; j < 1000; ++j)
            made = made
                && QFile(folder + QStringLiteral("/file %1.txt").arg(j)).open(QIODevice::WriteOnly);
    }
    if (!made)
        Bench::Topic::fail(root + QStringLiteral(": the tree could not be made"));

    const int count = thousands * 1000;
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    const QByteArray name = "search " + QByteArray::number(count) + " entries";
    topic.compareTimes(name.constData(), timed([&] {
        return Quorvex::SDir::search(root, {}, QDirIterator::Subdirectories).size() == count;
    }),
        Bench::Peer{"bare QDirIterator", timed([&] {
                        int found = 0;
                        QDirIterator iterator(root, {}, all, QDirIterator::Subdirectories);
                        for (; iterator.hasNext(); iterator.next())
                            ++found;
                        return found == count;
                    })},
        Bench::Peer{"find", timed([&] { return runProgram(QStringLiteral("find"), {root}); })});
}

void files(const Bench::Topic &topic)
{
    const bool isQuick = topic.effort().repetitions < 10;
    const QTemporaryDir folder;
    copy(topic, folder.path(), isQuick ? 32 : 256);
    search(topic, folder.filePath(QStringLiteral("tree")), isQuick ? 10 : 100);
}

const Bench::Registration registration("files", &files);

} // namespace
