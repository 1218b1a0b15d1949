#pragma once

#include <tavex/system/platform_p.h>

#include <QList>
#include <QString>

/// \file
/// Reads /proc and /sys of Linux. The paths count from \a root, which is empty for the running
/// system and a folder with samples in tests. A file that is missing or not understood is taken as
/// empty. Every function may be called from any thread.

namespace Quorvex::ProcFs {

/// A mount that paths can reach, as /proc/self/mountinfo describes it.
struct Mount
{
    int id = 0;
    int parent = 0; ///< The mount in which the point lies.
    QString root;   ///< The folder of the file system that is mounted; "/" is all of it.
    QString point;
    QString type;
    QString source;  ///< The device, or what the file system gives in place of one.
    QString options; ///< Those of the file system, separated by commas.
    /// Whether this mount, and every one on the way to it, is of a type that isLocalType() knows.
    bool isLocal = true;
};

/// The mounts that no other one hides; none if nothing is listed. Where the root of the process is
/// not listed, as in a chroot, it has an empty type and counts as local, as the program runs from
/// there.
[[nodiscard]] QList<Mount> mounts(const QString &root = QString());

/// Whether file systems of this type work without a server, a program in user space or another
/// machine; false for a type that is not known.
[[nodiscard]] bool isLocalType(const QString &type);

/// The mount among \a mounts that holds the absolute \a path, or null if that does not exist. Links
/// are followed, but only in local mounts, since others may never answer. Within those the path
/// counts as it is written, up to a "..".
[[nodiscard]] const Mount *mountOf(const QString &path, const QList<Mount> &mounts);

/// Those of \a mounts that hold files of people or programs.
[[nodiscard]] QList<Mount> storageMounts(const QList<Mount> &mounts);

/// The limits that control groups of version 1 or 2 set to this process: the least of its group and
/// of all groups above it. 0 if there is none. Processors' time is rounded up, memory is in
/// bytes.
/// @{
[[nodiscard]] int controlGroupProcessors(const QString &root = QString());
[[nodiscard]] qint64 controlGroupMemory(const QString &root = QString());
/// @}

/// 0 where the kernel does not tell.
[[nodiscard]] Platform::ProcessorTopology topology(const QString &root = QString());

[[nodiscard]] Platform::Memory memory(const QString &root = QString());

/// The drive, such as "/dev/sdb", of the block device \a device ("/dev/sdb1") if its medium can be
/// removed; else an empty text.
[[nodiscard]] QString removableDrive(const QString &device, const QString &root = QString());

} // namespace Quorvex::ProcFs
