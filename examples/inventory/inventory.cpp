#include "inventory.h"

#include <tavex/ISerializable>
#include <tavex/SCrc32>
#include <tavex/SThreading>

#include <QDataStream>
#include <QDateTime>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <numeric>
#include <utility>

using namespace Quorvex;

namespace {

qint64 modificationTime(const QFileInfo &file)
{
    return file.lastModified().toMSecsSinceEpoch();
}

/// What the cache holds for a file.
class KnownChecksum : public Interfaces::ISerializable
{
public:
    explicit KnownChecksum(const FoundFile &file, uint checksum = 0)
        : size(file.size)
        , modified(file.modified)
        , crc(checksum)
    {
    }

    [[nodiscard]] bool read(QDataStream &stream) override
    {
        stream >> size >> modified >> crc;
        return stream.status() == QDataStream::Ok;
    }
    [[nodiscard]] bool write(QDataStream &stream) override
    {
        stream << size << modified << crc;
        return stream.status() == QDataStream::Ok;
    }

    qint64 size;
    qint64 modified;
    quint32 crc;
};

/// Opening a file takes about as long as reading so many bytes.
constexpr qint64 OpeningWeight = 16384;

qint64 weight(const FoundFile &file)
{
    return file.size + OpeningWeight;
}

} // namespace

QList<FoundFile> findFiles(const QString &folder)
{
    const qsizetype rootLength = folder.size() + (folder.endsWith(QLatin1Char('/')) ? 0 : 1);
    QList<FoundFile> files;
    QDirIterator entries(folder,
        QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot,
        QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const QFileInfo entry = entries.fileInfo();
        if (!entry.isDir() || !entry.isReadable() || !entry.isExecutable())
            files.append({path.mid(rootLength), entry.size(), modificationTime(entry)});
    }
    std::ranges::sort(files, {}, &FoundFile::path);
    return files;
}

Examination::Examination(const QString &folder, const QList<FoundFile> &files, SSafeNvCache *cache)
    : m_folder(folder)
    , m_files(files)
    , m_slices(slices(files))
    , m_cache(cache)
    , m_progress(m_slices.empty() ? 0 : m_slices.back().firstPart + m_slices.back().parts)
    , m_records(std::size_t(files.size()))
    , m_working(std::min(SThreading::defaultConcurrence(), int(m_slices.size())))
{
    m_bytesLeft = std::accumulate(files.begin(), files.end(), qint64(0),
        [](qint64 sum, const FoundFile &file) { return sum + file.size; });
    for (int i = 0, count = m_working; i < count; ++i)
        m_threads.emplace_back([this] { work(); });
}

Examination::~Examination()
{
    stop();
    m_threads.clear();
}

std::vector<Examination::Slice> Examination::slices(const QList<FoundFile> &files)
{
    constexpr int Most = 50;
    qint64 total = 0;
    for (const FoundFile &file : files)
        total += weight(file);
    const qint64 share = total / Most + 1;
    std::vector<Slice> slices;
    for (qsizetype i = 0; i < files.size(); ++i) {
        if (slices.empty() || slices.back().weight + weight(files.at(i)) > share)
            slices.push_back({.begin = i});
        slices.back().end = i + 1;
        slices.back().weight += weight(files.at(i));
    }
    int parts = 0;
    for (Slice &slice : slices) {
        slice.firstPart = parts;
        slice.parts = int(std::max<qint64>(1, slice.weight / share));
        parts += slice.parts;
    }
    return slices;
}

std::optional<QList<FileRecord>> Examination::take(std::chrono::milliseconds time)
{
    std::unique_lock lock(m_mutex);
    const auto isReady = [this] { return m_taken < m_records.size() && m_records[m_taken]; };
    m_ready.wait_for(lock, time, [&] { return isReady() || m_working == 0; });
    // After an abort, files that were left out have no record.
    if (m_working == 0 && m_taken == m_records.size())
        return {};
    QList<FileRecord> records;
    for (; m_taken < m_records.size() && (m_records[m_taken] || m_working == 0); ++m_taken) {
        if (m_records[m_taken])
            records.append(*std::exchange(m_records[m_taken], {}));
    }
    return records;
}

void Examination::work()
{
    for (;;) {
        const std::size_t slice = m_nextSlice++;
        if (slice >= m_slices.size() || m_progress.isAborted())
            break;
        examineSlice(m_slices[slice]);
    }
    const std::lock_guard lock(m_mutex);
    --m_working;
    m_ready.notify_one();
}

void Examination::examineSlice(const Slice &slice)
{
    qint64 done = 0;
    int part = 0;
    const Advance advance = [&](qint64 weight) {
        done += weight;
        for (qint64 percent = 100 * slice.parts * done / slice.weight - 100 * part;;
             percent -= 100) {
            m_progress.at(slice.firstPart + part)->setProgress(int(std::min<qint64>(percent, 100)));
            if (percent < 100 || part == slice.parts - 1)
                break;
            ++part;
        }
        return !m_progress.isAborted();
    };
    for (qsizetype i = slice.begin; i < slice.end && advance(OpeningWeight); ++i) {
        std::optional<FileRecord> record = examine(m_files.at(i), advance);
        if (!record)
            return;
        const std::lock_guard lock(m_mutex);
        m_records[std::size_t(i)] = std::move(record);
        if (std::size_t(i) == m_taken)
            m_ready.notify_one();
    }
}

/// Nothing if that was stopped; a folder counts as a file that cannot be read.
std::optional<FileRecord> Examination::examine(const FoundFile &found, const Advance &advance)
{
    FileRecord record{found.path, found.size, std::nullopt, false, QString()};
    const QString path = m_folder + QLatin1Char('/') + found.path;
    KnownChecksum known(found);
    if (m_cache && m_cache->value(path, &known) && known.size == found.size
        && known.modified == found.modified) {
        record.crc = known.crc;
        record.cached = true;
        m_bytesLeft -= found.size;
        advance(found.size);
        return record;
    }

    QFile file(path);
    // Reading in large chunks gains nothing from QFile's buffer.
    bool isRead = file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    SCrc32 crc;
    if (isRead) {
        QByteArray chunk(256 * 1024, Qt::Uninitialized);
        qint64 length = 0;
        record.size = 0;
        while ((length = file.read(chunk.data(), chunk.size())) > 0) {
            crc.update(chunk, quint64(length));
            record.size += length;
            m_bytesRead += length;
            m_bytesLeft -= length;
            if (!advance(length))
                return {};
        }
        isRead = length == 0;
    }
    if (!isRead) {
        record.error = file.errorString();
        return record;
    }
    record.crc = crc.value();
    // A file that changed meanwhile is read again the next time.
    const QFileInfo now(path);
    if (m_cache && record.size == found.size && modificationTime(now) == found.modified) {
        KnownChecksum checksum(found, crc.value());
        m_cache->insert(path, &checksum);
    }
    return record;
}
