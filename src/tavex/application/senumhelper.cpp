#include <tavex/application/senumhelper.h>

#include <QFile>
#include <QTemporaryFile>

namespace Quorvex {

bool SEnumHelper::writeTranslatorXML(const QString &fileName, const QString &document)
{
    QFile file(fileName);
    return writeTranslatorXML(&file, document);
}

bool SEnumHelper::writeTranslatorXML(QIODevice *device, const QString &document)
{
    // Qt logs that a file is open already or has no name, which a temporary one gets by itself.
    const auto *file = qobject_cast<QFile *>(device);
    const bool isNameless =
        file && file->fileName().isEmpty() && !qobject_cast<QTemporaryFile *>(device);
    if (!device || device->isOpen() || isNameless || !device->open(QIODevice::WriteOnly))
        return false;
    device->write(document.toUtf8());
    device->close();
    return true;
}

} // namespace Quorvex
