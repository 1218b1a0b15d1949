// The work of the inventory example on a folder whose checksums its cache knows, beside the same
// without the cache. All files are in the page cache; from a disk the difference is larger.

#include "harness.h"

#include <examples/inventory/inventory.h>

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

using namespace Quorvex;

namespace {

void inventory(const Bench::Topic &topic)
{
    constexpr int Chunk = 1 << 20;
    constexpr int ChunksPerFile = 16;
    const int mebibytes = topic.effort().repetitions < 10 ? 64 : 1024;
    const QTemporaryDir temporary;
    const QString folder = temporary.filePath(QStringLiteral("files"));
    bool isMade = QDir().mkpath(folder);
    for (int i = 0; i < mebibytes / ChunksPerFile; ++i) {
        QFile file(folder + QStringLiteral("/%1").arg(i));
        isMade = isMade && file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        for (int j = 0; j < ChunksPerFile; ++j)
            isMade = isMade && file.write(QByteArray(Chunk, char(i + j))) == Chunk;
    }

    SSafeNvCache cache(QStringLiteral("checksums"), temporary.path());
    const auto examine = [&](SSafeNvCache *known) {
        return [&folder, &isMade, known] {
            QElapsedTimer clock;
            clock.start();
            const QList<FoundFile> files = findFiles(folder);
            Examination examination(folder, files, known);
            qsizetype count = 0;
            while (const auto records = examination.take(std::chrono::seconds(1)))
                count += records->size();
            isMade = isMade && count == files.size();
            return double(clock.nsecsElapsed()) / 1e9;
        };
    };
    examine (&cache)();
    const QByteArray name = QByteArray::number(mebibytes) + " MiB, known";
    topic.compareTimes(
        name.constData(), examine(&cache), Bench::Peer{"without the cache", examine(nullptr)});
    if (!isMade)
        Bench::Topic::fail(QStringLiteral("inventory: the folder could not be made or read"));
}

const Bench::Registration registration("inventory", &inventory);

} // namespace
