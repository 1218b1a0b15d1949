#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <cstdint>
#include <optional>

class QFile;

/// \file
/// What the library needs from the operating system. One source per system, picked by CMake,
/// defines all of it: platform_unix.cpp and platform_win.cpp. Every function may be called from
/// any thread; where a system has no such thing, texts are empty and results false or 0. Why
/// makePrivateDirectory() or a NewFile has failed, qt_error_string() tells right afterwards.

namespace Quorvex::Platform {

/// Texts of Windows, which are empty elsewhere.
enum class WindowsText {
    CommonDataFolder, ///< The machine-wide application-data folder, in the system's own notation.
    CommonAppData,    ///< The shell-folder value "Common AppData" of the machine.
    LocalAppData,     ///< The shell-folder value "Local AppData" of the user.
    ProductName,      ///< "Windows 10 Enterprise LTSC 2019" and the like.
};

[[nodiscard]] QString windowsText(WindowsText text);

/// The folder for temporary files, which exists, with "/". Empty if there is none.
[[nodiscard]] QString temporaryFolder();

/// The folder for sockets and the like of the user's session, with "/". It need not exist; empty
/// if others than the user may use what is there.
[[nodiscard]] QString runtimeFolder();

/// The folder of the installed colour profiles, in the system's own notation.
[[nodiscard]] QString colorFolder();

/// The user's name for people, not trimmed. Empty where the account has none.
[[nodiscard]] QString userDisplayName();

/// The absolute form of \a path, without "/" or "/." at its end. Each ".." stays where the system
/// resolves it behind links. Empty if there is no such path, as when the current folder has been
/// removed.
[[nodiscard]] QString absolutePath(const QString &path);

/// Makes \a link, which must not exist yet, a link to the directory \a folder. Waits for up to a
/// minute where this takes another program.
[[nodiscard]] bool linkDirectory(const QString &link, const QString &folder);

/// The contents of the file at \a path; nothing if it cannot be read to its end.
[[nodiscard]] std::optional<QByteArray> readFile(const QString &path);

/// Makes the directory \a path and the missing ones above it, open to the user alone. True also if
/// it exists already.
[[nodiscard]] bool makePrivateDirectory(const QString &path);

/// Opens the file at \a path for reading. This and readFile() refuse a FIFO, a socket or a device
/// without waiting for it.
[[nodiscard]] bool openFile(QFile &file, const QString &path);

/// The absolute path of the program that the shell runs as \a name; empty if there is none.
[[nodiscard]] QString findProgram(const QString &name);

/// Removes the folder, which is no link, with all that is in it. Follows no link in it. False if
/// something in it cannot be removed, or if it is the root.
[[nodiscard]] bool removeFolder(const QString &path);

/// Has \a call called in every child that fork() makes, until the library is unloaded.
void callInChildren(void (*call)());

/// The folder in \a directory that holds its NewFiles that have names. It exists while there are
/// any. The name belongs to the library: anything else of that name is removed.
inline QString newFilesFolder(const QString &directory)
{
    return directory + QLatin1String("/new-c0e6a09c-c943-4039-94b5-ccaee60e32e8");
}

/// A file that is written first and then put in its place as a whole. Until then it has no name, or
/// a unique one in newFilesFolder(), where removeAbandonedFiles() in any process leaves it alone.
/// Unless it is moved, it is removed with its object; if the process is killed before that, one
/// with a name stays.
class NewFile
{
public:
    NewFile() = default;
    Q_DISABLE_COPY_MOVE(NewFile)
    ~NewFile();

    /// Makes the file, which can then be moved to a path in \a directory.
    [[nodiscard]] bool create(const QString &directory);

    [[nodiscard]] bool write(const QByteArray &data) const;

    /// Opens \a device to write to the file. It has to be closed before moveTo().
    [[nodiscard]] bool open(QFile &device) const;

    /// Replaces the file at \a path in one step: whoever opens that path gets the earlier file or
    /// this one. False, too, if the system reports that something written was lost.
    [[nodiscard]] bool moveTo(const QString &path);

private:
    bool createNamed();
    bool copyNamed();

    QString m_directory;
    QString m_path;            ///< Empty while the file has no name.
    std::intptr_t m_file = -1; ///< The system's number (descriptor, handle) of the open file.
};

/// Removes the NewFiles that killed processes have left in \a directory.
void removeAbandonedFiles(const QString &directory);

[[nodiscard]] bool isKernel64Bit();

/// How many logical processors are in the affinity mask of this process; at least 1.
[[nodiscard]] int affinityProcessors();

/// How many processors the time quotas of this process amount to, rounded up; 0 if there is no
/// quota. Reads files: about 0.1 ms.
[[nodiscard]] int quotaProcessors();

/// How many bytes of memory this process and those that share its limit may use together; 0 if
/// there is no limit. Reads files: about 0.1 ms.
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
    qint64 processUse = 0; ///< The part of this process that is in physical memory.
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

/// The volume that holds \a path. None if the path does not exist or the system does not tell. No
/// volume that is not local is asked: whether a path within one exists is not checked.
[[nodiscard]] Volume volumeOf(const QString &path);

/// The volumes that hold files of people or programs.
[[nodiscard]] QList<Volume> volumes();

/// Unmounts the volume and ejects its medium. False, and nothing happens, unless it is local and
/// the medium can be removed.
[[nodiscard]] bool ejectVolume(const Volume &volume);

} // namespace Quorvex::Platform
