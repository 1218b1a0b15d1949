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

/// The folder of the installed colour profiles, in the system's own notation.
[[nodiscard]] QString colorFolder();

/// The shell-folder value "Common AppData" of the machine.
[[nodiscard]] QString commonApplicationDataText();

/// The shell-folder value "Local AppData" of the user.
[[nodiscard]] QString localApplicationDataText();

/// The user's name for people, not trimmed.
[[nodiscard]] QString userDisplayName();

/// "Windows 10 Enterprise LTSC 2019" and the like.
[[nodiscard]] QString windowsProductName();

/// \a path from the root, without "/" or "/." at its end. What a ".." in it means is left to the
/// system. Empty if there is no such path, as when the current folder has been removed.
[[nodiscard]] QString absolutePath(const QString &path);

/// Makes \a link, which must not exist yet, a link to the directory \a folder. Waits for up to a
/// minute where a program has to do it.
[[nodiscard]] bool linkDirectory(const QString &link, const QString &folder);

/// Makes a folder for this user only; not the folders above it. False if it exists.
[[nodiscard]] bool makePrivateFolder(const QString &path);

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

/// All that the file at \a path has; empty if it cannot be read to its end.
[[nodiscard]] QByteArray readFile(const QString &path);

/// A new file that is written under one name and then moved to another, where it appears whole.
/// Until then removeAbandonedFile() in any process leaves it alone. It is removed if it has not
/// been moved, unless the process ends first.
class NewFile
{
public:
    NewFile() = default;
    Q_DISABLE_COPY_MOVE(NewFile)
    ~NewFile();

    /// False if there is a file at \a path, or if it cannot be made.
    [[nodiscard]] bool create(const QString &path);

    [[nodiscard]] bool write(const QByteArray &data) const;

    /// Opens \a device for writing to it instead. It has to be closed before moveTo().
    [[nodiscard]] bool open(QFile &device) const;

    /// Puts it in the place of \a path, in one step: whoever opens that meanwhile gets the earlier
    /// file or this one. False, too, if the system has lost something of what was written.
    [[nodiscard]] bool moveTo(const QString &path);

private:
    QString m_path;            ///< Empty if there is nothing to remove.
    std::intptr_t m_file = -1; ///< The system's own number of the open file.
};

/// Removes the NewFile at \a path that a process has left there when it was killed.
void removeAbandonedFile(const QString &path);

[[nodiscard]] bool isKernel64Bit();

/// How many logical processors are in the affinity mask of this process; at least 1.
[[nodiscard]] int affinityProcessors();

/// How many processors' time this process may use by the quotas that it is under, rounded up; 0 if
/// there is no limit. Reads files: about 0.1 ms.
[[nodiscard]] int quotaProcessors();

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
    bool isLocal = false;
};

/// The volume that holds \a path. Waits for no network volume. None if there is no such path;
/// whether a path exists within a network volume is not looked at.
[[nodiscard]] Volume volumeOf(const QString &path);

/// The volumes that people care about, without those by which the system shows its own state.
[[nodiscard]] QList<Volume> volumes();

/// Unmounts the volume and ejects its medium. False, and nothing happens, unless the medium can be
/// removed.
[[nodiscard]] bool ejectVolume(const Volume &volume);

} // namespace Quorvex::Platform
