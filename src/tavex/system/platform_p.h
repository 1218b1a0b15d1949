#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <atomic>
#include <cstdint>

class QFile;

/// \file
/// What the library needs from the operating system. One source per system, picked by CMake,
/// defines all of it: platform_unix.cpp and platform_win.cpp. Every function may be called from
/// any thread; where a system has no such thing, texts are empty and results false or 0.

namespace Quorvex::Platform {

/// The machine-wide application-data folder, in the system's own notation.
[[nodiscard]] QString commonDataFolder();

/// The folder for temporary files, with "/": it exists. Empty if there is none.
[[nodiscard]] QString temporaryFolder();

/// The folder for sockets and the like of the user's session, with "/". It need not exist; empty
/// if what is there is not the user's alone.
[[nodiscard]] QString runtimeFolder();

/// The folder of the installed colour profiles, in the system's own notation.
[[nodiscard]] QString colorFolder();

/// The shell-folder value "Common AppData" of the machine.
[[nodiscard]] QString commonApplicationDataText();

/// The shell-folder value "Local AppData" of the user.
[[nodiscard]] QString localApplicationDataText();

/// The user's name for people, not trimmed. Empty where the account has none.
[[nodiscard]] QString userDisplayName();

/// "Windows 10 Enterprise LTSC 2019" and the like.
[[nodiscard]] QString windowsProductName();

/// \a path from the root, without "/" or "/." at its end. What a ".." in it means is left to the
/// system. Empty if there is no such path, as when the current folder has been removed.
[[nodiscard]] QString absolutePath(const QString &path);

/// Makes \a link, which must not exist yet, a link to the directory \a folder. Waits for up to a
/// minute where a program has to do it.
[[nodiscard]] bool linkDirectory(const QString &link, const QString &folder);

/// All that the file at \a path has; empty if it cannot be read to its end.
[[nodiscard]] QByteArray readFile(const QString &path);

/// Makes the directory \a path and all above it that is missing, open to the user alone. True also
/// if there is one.
[[nodiscard]] bool makePrivateDirectory(const QString &path);

/// Opens the file at \a path for reading. To this and to readFile() a FIFO, a socket or a device is
/// no file, and is not waited for.
[[nodiscard]] bool openFile(QFile &file, const QString &path);

/// The absolute path of the program that the shell runs as \a name; empty if there is none.
[[nodiscard]] QString findProgram(const QString &name);

/// Removes the folder, which is no link, with all that is in it. Follows no link in it. False if
/// something has to stay, or if it is the root.
[[nodiscard]] bool removeFolder(const QString &path);

/// Remembers in which process it was set. A child made by fork() finds it not set, also one that
/// has the number of its parent in a namespace of its own.
class ProcessMark
{
public:
    ProcessMark();
    Q_DISABLE_COPY_MOVE(ProcessMark)
    ~ProcessMark();

    /// Sets it, and returns whether this process had done so before.
    bool set() noexcept;
    [[nodiscard]] bool isSet() const noexcept;

private:
    std::atomic<qint64> m_ordinary = 0;
    std::atomic<qint64> *m_process; ///< In memory that fork() clears, if the system has such.
};

/// The folder in \a directory in which its NewFiles have their names. It is there while one of them
/// is. The name says whose it is: what else has it there is removed.
inline QString newFilesFolder(const QString &directory)
{
    return directory + QLatin1String("/new-c0e6a09c-c943-4039-94b5-ccaee60e32e8");
}

/// A file that is written before it appears at its place, whole. Until then it has no name, or
/// one of its own in newFilesFolder(), where removeAbandonedFiles() in any process leaves it alone.
/// It is gone if it has not been moved, unless it has a name and the process is killed.
class NewFile
{
public:
    NewFile() = default;
    Q_DISABLE_COPY_MOVE(NewFile)
    ~NewFile();

    /// Makes it for a place in \a directory.
    [[nodiscard]] bool create(const QString &directory);

    [[nodiscard]] bool write(const QByteArray &data) const;

    /// Opens \a device for writing to it instead. It has to be closed before moveTo().
    [[nodiscard]] bool open(QFile &device) const;

    /// Puts it in the place of \a path, in one step: whoever opens that meanwhile gets the earlier
    /// file or this one. False, too, if the system has lost something of what was written.
    [[nodiscard]] bool moveTo(const QString &path);

private:
    bool createNamed();
    bool copyNamed();

    QString m_directory;
    QString m_path;            ///< Empty while it has no name.
    std::intptr_t m_file = -1; ///< The system's own number of the open file.
};

/// Removes the NewFiles that killed processes have left in \a directory.
void removeAbandonedFiles(const QString &directory);

[[nodiscard]] bool isKernel64Bit();

/// How many logical processors are in the affinity mask of this process; at least 1.
[[nodiscard]] int affinityProcessors();

/// How many processors' time this process may use by the quotas that it is under, rounded up; 0 if
/// there is no limit. Reads files: about 0.1 ms.
[[nodiscard]] int quotaProcessors();

/// How many bytes of memory this process may take up together with those it shares a limit with; 0
/// if there is no limit. Reads files: about 0.1 ms.
[[nodiscard]] qint64 memoryLimit();

struct ProcessorTopology
{
    int packages = 1;
    int cores = 1; ///< In all packages together.
};

[[nodiscard]] ProcessorTopology processorTopology();

/// In bytes.
struct Memory
{
    qint64 total = 0;
    qint64 available = 0;
    qint64 processUse = 0; ///< What of this process is in physical memory.
};

[[nodiscard]] Memory memory();

/// A mounted volume, as far as it is known without asking the volume itself.
struct Volume
{
    QString rootPath; ///< With "/"; empty stands for no volume.
    QString type;     ///< "ext4", "NTFS"; may be empty for a network volume.
    QString device;
    bool isLocal = false; ///< Whether it is known that no server or program has to answer.
};

/// The volume that holds \a path. Waits for no volume that is not local. None if there is no such
/// path, which within a volume that is not local is not looked at, or if the system does not tell.
[[nodiscard]] Volume volumeOf(const QString &path);

/// The volumes that people care about, without those by which the system shows its own state.
[[nodiscard]] QList<Volume> volumes();

/// Unmounts the volume and ejects its medium. False, and nothing happens, unless it is local and
/// the medium can be removed.
[[nodiscard]] bool ejectVolume(const Volume &volume);

} // namespace Quorvex::Platform
