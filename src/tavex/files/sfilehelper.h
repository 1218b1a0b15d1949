#pragma once

#include <tavex/core/export.h>

#include <QByteArray>
#include <QList>
#include <QString>

class QIODevice;

namespace Quorvex {

/// Whole reads, writes and copies on any device, unused file names, and files and folders that are
/// deleted when the library is unloaded.
///
/// All members may be called from any thread; a device is used by one thread at a time. Why reading
/// or writing failed, errorString() of the device tells.
class TAVEX_EXPORT SFileHelper
{
public:
    /// Reads until \a data holds \a size bytes, the device is at its end or it gives nothing.
    /// Returns the number of bytes read; 0 at once if \a size is not positive. -1 if reading fails,
    /// if \a device cannot be read, if it or \a data is null, or if there is a \a timeout and
    /// nothing arrives in time.
    ///
    /// \a timeout, in milliseconds, is how long to wait each time that the device has no data; 0
    /// only waits where reading itself does, as from a pipe, and -1 waits without limit. A device
    /// that cannot wait, such as a file or a buffer, fails with any timeout but 0 when it knows of
    /// no more data: at its end, and a pipe or a file in /proc at once.
    [[nodiscard]] static qint64 readAllBuffer(
        QIODevice *device, char *data, qint64 size, int timeout);

    /// The next \a size bytes of the device, read in the same way; an empty array if it gives
    /// fewer. \a size is narrowed to int, and a negative one gives an empty array.
    [[nodiscard]] static QByteArray readAllBuffer(QIODevice *device, qint64 size, int timeout);

    /// Writes \a size bytes and returns how many the device took: fewer if it takes no more. -1 if
    /// writing fails or \a device or \a data is null.
    ///
    /// With a \a timeout other than 0 it then waits, up to so many milliseconds each time (-1:
    /// without limit), until the device has passed its data on; -1 if that fails.
    [[nodiscard]] static qint64 writeAllBuffer(
        QIODevice *device, const char *data, qint64 size, int timeout);

    /// Copies what is left of \a source to \a target, up to \a bufferSize bytes at a time. Devices
    /// that are not open are opened, the source first, and at the end closed again; a file that is
    /// opened for writing is emptied. A QSaveFile has to be open: to commit it is up to its owner.
    ///
    /// The copy is complete when a read has brought nothing and the source says that it is at its
    /// end. A source that does not say so and gives nothing is waited for; one that cannot wait is
    /// asked again for half a minute. Mind that a socket or a running process says so whenever it
    /// has no data.
    ///
    /// False if a device is null, cannot be opened, read or written, or gives nothing for too long;
    /// if a file cannot store what was written to it, which may come out only when it is flushed or
    /// closed; and if there is something to copy but no memory for the buffer or \a bufferSize is
    /// 0. The target then holds part of the data. A target that takes no byte of a chunk, without
    /// an error, loses the rest of that chunk, and the copy goes on.
    [[nodiscard]] static bool copyDevice(QIODevice *target, QIODevice *source, quint64 bufferSize);
    /// The same, which tells in \a errorString, if that is not null, why it failed: the
    /// errorString() of the device that failed, which it forgets when it is closed. Empty if the
    /// copy is complete.
    [[nodiscard]] static bool copyDevice(
        QIODevice *target, QIODevice *source, quint64 bufferSize, QString *errorString);

    /// \a fileName if nothing exists there. Otherwise the first free one of "report - 2.tar.gz" to
    /// "report - 99.tar.gz" for "report.tar.gz", in the same folder; the last of them also if it is
    /// not free. A name without a dot gets one at its end.
    [[nodiscard]] static QString uniqueEnumeratedName(const QString &fileName);

    // What is registered here is deleted by deleteNow(), and at the latest when the library is
    // unloaded or the process ends by returning from main() or calling exit(). Relative paths count
    // from the folder that is current when they are registered; links in a path are followed when
    // it is deleted, also before a "..", but for the last name. A child that the process forked
    // deletes nothing of what its parent registered. Each returns its argument, a temporary one by
    // value.

    /// Registers a file, which need not exist. An empty path is ignored, as is a relative one where
    /// the current folder has been removed.
    /// @{
    static const QString &deleteFileOnExit(const QString &path);
    static QString deleteFileOnExit(QString &&path) { return deleteFileOnExit(path); }
    /// @}

    /// Registers a folder, which need not exist, with all that is in it. Of a link to a folder, or
    /// to nothing, the link is deleted, and what is behind it stays; so does the root. The same
    /// paths are ignored.
    /// @{
    static const QString &deleteFolderOnExit(const QString &path);
    static QString deleteFolderOnExit(QString &&path) { return deleteFolderOnExit(path); }
    /// @}

    /// Registers a file or a folder; nothing if it does not exist.
    /// @{
    static const QString &deleteOnExit(const QString &path);
    static QString deleteOnExit(QString &&path) { return deleteOnExit(path); }
    /// @}
    /// The same for each of \a paths.
    /// @{
    static const QList<QString> &deleteOnExit(const QList<QString> &paths);
    static QList<QString> deleteOnExit(QList<QString> &&paths) { return deleteOnExit(paths); }
    /// @}

    /// Deletes what is registered: folders first, each kind in the order of registration. What
    /// cannot be deleted stays registered. Other threads wait to register meanwhile.
    static void deleteNow();
};

} // namespace Quorvex
