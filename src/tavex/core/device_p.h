#pragma once

#include <QFile>
#include <QSaveFile>
#include <QTemporaryFile>

namespace Quorvex {

/// Opens a closed \a device that is to be closed again. False, too, for a QSaveFile: to close it
/// ends the process, since it is up to its owner to commit it. Qt's log hears nothing of a file
/// without a name, unless it is a temporary one, which finds its own.
inline bool openDevice(QIODevice *device, QIODevice::OpenMode mode)
{
    const auto *const file = qobject_cast<QFile *>(device);
    const bool isNameless =
        file && file->fileName().isEmpty() && !qobject_cast<QTemporaryFile *>(device);
    return !device->isOpen() && !isNameless && !qobject_cast<QSaveFile *>(device)
        && device->open(mode);
}

} // namespace Quorvex
