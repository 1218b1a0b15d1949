#include <tavex/application/senumhelper.h>

#include <QFile>

namespace Quorvex {

bool SEnumHelper::writeTranslatorXML(const QString &fileName, const QString &document)
{
    QFile file(fileName);
    return writeTranslatorXML(&file, document);
}

bool SEnumHelper::writeTranslatorXML(QIODevice *device, const QString &document)
{
    if (!device || !device->open(QIODevice::WriteOnly))
        return false;
    device->write(document.toUtf8());
    device->close();
    return true;
}

} // namespace Quorvex
