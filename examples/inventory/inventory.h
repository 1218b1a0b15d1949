#pragma once

#include <tavex/SProgressPool>
#include <tavex/SSafeNvCache>

#include <QList>
#include <QString>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

/// A file as the folder lists it.
struct FoundFile
{
    QString path;        ///< Below the folder that is listed.
    qint64 size = 0;     ///< In bytes.
    qint64 modified = 0; ///< In milliseconds since the epoch.
};

/// One file of an inventory.
struct FileRecord
{
    QString path;            ///< Below the folder that is listed.
    qint64 size = 0;         ///< In bytes.
    std::optional<uint> crc; ///< Nothing if the file could not be read.
    bool cached = false;     ///< Whether the checksum was known from an earlier run.
    QString error;           ///< Why it could not be read.
};

/// All regular files below \a folder, and the folders that cannot be listed, sorted by their paths.
/// Symbolic links are not followed.
QList<FoundFile> findFiles(const QString &folder);

/// Finds the checksums of files, on as many threads as SThreading says.
class Examination
{
public:
    /// Begins at once. With a \a cache, a file whose size and time are those of an earlier run is
    /// not read again.
    Examination(const QString &folder, const QList<FoundFile> &files, Quorvex::SSafeNvCache *cache);
    /// Stops what is under way.
    ~Examination();
    Q_DISABLE_COPY_MOVE(Examination)

    /// The records that have become ready, in the order of the files, after waiting for them for
    /// at most \a time; nothing when all have been taken. After stop() it is those that were done.
    std::optional<QList<FileRecord>> take(std::chrono::milliseconds time);

    void stop() { m_progress.abort(); }

    [[nodiscard]] int percent() const { return m_progress.progress(); }
    [[nodiscard]] qint64 bytesRead() const { return m_bytesRead; }
    [[nodiscard]] qint64 bytesLeft() const { return m_bytesLeft; }

private:
    /// Neighbouring files that one thread takes.
    struct Slice
    {
        qsizetype begin = 0;
        qsizetype end = 0;
        qint64 weight = 0;
        int firstPart = 0; ///< The parts of the progress that are theirs,
        int parts = 1;     ///< in number like their weight.
    };
    static std::vector<Slice> slices(const QList<FoundFile> &files);

    void work();
    void examineSlice(const Slice &slice);
    /// Adds so much weight to what is done; false if the work has been stopped.
    using Advance = std::function<bool(qint64)>;
    std::optional<FileRecord> examine(const FoundFile &found, const Advance &advance);

    const QString m_folder;
    const QList<FoundFile> m_files;
    const std::vector<Slice> m_slices;
    Quorvex::SSafeNvCache *const m_cache;
    Quorvex::SProgressPool m_progress;
    std::atomic<std::size_t> m_nextSlice = 0;
    std::atomic<qint64> m_bytesRead = 0;
    std::atomic<qint64> m_bytesLeft = 0;

    std::mutex m_mutex;
    std::condition_variable m_ready;
    std::vector<std::optional<FileRecord>> m_records;
    std::size_t m_taken = 0;
    int m_working = 0;

    std::vector<std::jthread> m_threads;
};
