#include "inventory.h"

#include <tavex/BinaryUnit>
#include <tavex/SCrc32>
#include <tavex/SUnitConvert>

#include <QDirIterator>
#include <QFile>

#include <algorithm>

using namespace Quorvex;

QStringList findFiles(const QString &folder)
{
    const qsizetype rootLength = folder.size() + (folder.endsWith(QLatin1Char('/')) ? 0 : 1);
    QStringList paths;
    QDirIterator entries(folder,
        QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot,
        QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const QFileInfo entry = entries.fileInfo();
        if (!entry.isDir() || !entry.isReadable() || !entry.isExecutable())
            paths.append(path.mid(rootLength));
    }
    std::ranges::sort(paths);
    return paths;
}

FileRecord examine(const QString &folder, const QString &path)
{
    QFile file(folder + QLatin1Char('/') + path);
    FileRecord record{path, file.size(), std::nullopt, QString()};
    bool read = false;
    // The checksum reads whole chunks, which need no second buffer below them.
    if (file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        const uint crc = SCrc32::hash(&file, &read);
        if (read)
            record.crc = crc;
    }
    if (!read)
        record.error = file.errorString();
    return record;
}

QString readableSize(qint64 bytes, const QLocale &locale)
{
    auto number = static_cast<double>(bytes);
    const BinaryUnit unit = SUnitConvert::autoBinaryUnits(number, BinaryUnit::Byte);
    const QString word = BinaryUnit_TR::instance().etr(BinaryUnit_T::instance().toString(unit));
    const int decimals = unit == BinaryUnit::Byte ? 0 : 1;
    return QStringLiteral("%1 %2").arg(locale.toString(number, 'f', decimals), word);
}

QString crcText(uint crc)
{
    return QStringLiteral("%1").arg(crc, 8, 16, QLatin1Char('0'));
}
