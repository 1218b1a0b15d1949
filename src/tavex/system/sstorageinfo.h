#pragma once

#include <tavex/core/export.h>

#include <QList>
#include <QString>

#include <memory>

QT_FORWARD_DECLARE_CLASS(QDebug)

namespace Quorvex {

/// The mounted volume that holds a path: a value, taken when it is constructed.
///
/// Construction and every member that does not say otherwise go by the system's list of volumes,
/// so that nothing is ever waited for but volumes that are known to be local. One object is used by
/// one thread at a time.
class TAVEX_EXPORT SStorageInfo
{
public:
    /// No volume.
    SStorageInfo() noexcept = default;
    /// The volume of \a path, a file or a folder, links followed. No volume if the path does not
    /// exist, or if the system does not tell, as under Linux without /proc. Within a volume that is
    /// not local nothing is looked at: the path counts as it is written, up to a "..".
    explicit SStorageInfo(const QString &path);

    /// Every mounted volume that paths can reach, without those by which the system shows its own
    /// state. None if the system does not tell.
    [[nodiscard]] static QList<SStorageInfo> volumes();

    /// Whether it stands for a volume.
    [[nodiscard]] bool isValid() const noexcept;

    /// The path as it was given.
    [[nodiscard]] QString path() const;

    /// The folder at which the volume is mounted.
    [[nodiscard]] QString rootPath() const;

    /// The file-system type, such as "ext4" or "NTFS"; may be empty for a network volume.
    [[nodiscard]] QString type() const;

    /// Whether it is known, by the file-system types of the volume and of those on the way to it,
    /// that no server, other machine or program in user space has to answer for what is on it.
    /// False for no volume.
    [[nodiscard]] bool isLocal() const noexcept;

    /// The volume's label, or else rootPath(). Waits for the volume.
    [[nodiscard]] QString name() const;

    /// The volume's size; 0 if it does not tell. Waits for the volume.
    [[nodiscard]] qint64 totalBytes() const;

    /// How many bytes the user may still write, which can be less than is free; 0 if the volume
    /// does not tell. Waits for the volume.
    [[nodiscard]] qint64 freeBytes() const;

    /// Unmounts the volume and ejects its medium. False, and nothing happens, if the volume is not
    /// local or the medium cannot be removed; also false if the volume is in use or the user may
    /// not do this. Waits until it is done.
    [[nodiscard]] bool eject();

    /// As for QStorageInfo, whether both stand for the same volume, whatever their paths; so do two
    /// that stand for none.
    friend TAVEX_EXPORT bool operator==(const SStorageInfo &a, const SStorageInfo &b) noexcept;
    /// Writes the folder at which the volume is mounted, its type and its device.
    friend TAVEX_EXPORT QDebug operator<<(QDebug debug, const SStorageInfo &info);

private:
    struct Private;
    std::shared_ptr<const Private> d; ///< Null for no path.
};

} // namespace Quorvex
