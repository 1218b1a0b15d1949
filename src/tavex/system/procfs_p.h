#pragma once

#include <tavex/system/platform_p.h>

#include <QList>
#include <QString>

/// \file
/// What Linux tells in /proc and /sys. The paths are taken below \a root, which is empty for the
/// running system and a folder with samples in tests. What is missing or not understood counts as
/// not told. Every function may be called from any thread.

namespace Quorvex::ProcFs {

/// One line of /proc/self/mountinfo.
struct Mount
{
    QString root; ///< The part of the file system that is mounted; "/" is all of it.
    QString point;
    QString type;
    QString source;  ///< The device, or what the file system has in its place.
    QString options; ///< Those of the file system, separated by commas.
};

/// In the order in which they are listed: of several on one point, the last is the visible one.
/// There is always one at "/", of an unknown type if need be.
[[nodiscard]] QList<Mount> mounts(const QString &root = QString());

/// Whether file systems of this type ask a server, or mount one that does, when they are looked at.
[[nodiscard]] bool isNetworkType(const QString &type);

/// The mount among \a mounts that holds \a path, or null if the path does not exist. Links are
/// followed up to the border of a network volume, so that a dead server is never waited for.
[[nodiscard]] const Mount *mountOf(const QString &path, const QList<Mount> &mounts);

/// Those of \a mounts that hold files of people or programs, each visible one once.
[[nodiscard]] QList<Mount> storageMounts(const QList<Mount> &mounts);

/// How many processors' time the control groups of this process grant it, rounded up: the least
/// quota of its group and of all groups above. 0 if there is no limit. Versions 1 and 2.
[[nodiscard]] int controlGroupProcessors(const QString &root = QString());

/// 0 where the kernel does not tell.
[[nodiscard]] Platform::ProcessorTopology topology(const QString &root = QString());

[[nodiscard]] Platform::Memory memory(const QString &root = QString());

/// The drive, such as "/dev/sdb", that has the block device \a device ("/dev/sdb1"), if its medium
/// can be removed; else an empty text.
[[nodiscard]] QString removableDrive(const QString &device, const QString &root = QString());

} // namespace Quorvex::ProcFs
