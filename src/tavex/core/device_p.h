#pragma once

#include <QFile>
#include <QSaveFile>
#include <QTemporaryFile>

namespace Quorvex {

/// Opens \a device, which the caller will close again. False if it is open already, or cannot be
/// opened, and for two devices that are not even tried: a QSaveFile, because its close() aborts the
/// program, and a file without a name, because Qt would log it. (A temporary file finds a name.)
inline bool openDevice(QIODevice *device, QIODevice::OpenMode mode)
{
    const auto *const file = qobject_cast<QFile *>(device);
    const bool isNameless =
        file && file->fileName().isEmpty() && !qobject_cast<QTemporaryFile *>(device);
    return !device->isOpen() && !isNameless && !qobject_cast<QSaveFile *>(device)
        && device->open(mode);
}

} // namespace Quorvex
