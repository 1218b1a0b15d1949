#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

#include <optional>

/// One file of an inventory.
struct FileRecord
{
    QString path;            ///< Below the folder that is listed.
    qint64 size = 0;         ///< In bytes.
    std::optional<uint> crc; ///< Nothing if the file could not be read.
    QString error;           ///< Why it could not be read.
};

/// The paths of all regular files below \a folder, and of the folders that cannot be listed,
/// sorted. Symbolic links are not followed.
QStringList findFiles(const QString &folder);

/// Reads the file \a path below \a folder; a folder counts as a file that cannot be read.
FileRecord examine(const QString &folder, const QString &path);

/// \a bytes in the unit that reads best, in the words of the current language, such as "4.3 KiB".
QString readableSize(qint64 bytes, const QLocale &locale);

/// \a crc as eight hexadecimal digits.
QString crcText(uint crc);
