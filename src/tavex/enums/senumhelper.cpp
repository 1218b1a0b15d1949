#include <tavex/enums/senumhelper.h>

#include <tavex/core/device_p.h>

#include <QFile>

namespace Quorvex {

bool SEnumHelper::writeTranslatorXML(const QString &fileName, const QString &document)
{
    QFile file(fileName);
    return writeTranslatorXML(&file, document);
}

bool SEnumHelper::writeTranslatorXML(QIODevice *device, const QString &document)
{
    if (!device || !openDevice(device, QIODevice::WriteOnly))
        return false;
    device->write(document.toUtf8());
    device->close();
    return true;
}

} // namespace Quorvex
