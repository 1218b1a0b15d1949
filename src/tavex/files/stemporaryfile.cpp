#include <tavex/files/stemporaryfile.h>

#include <tavex/application/senvironment.h>

namespace Quorvex {

STemporaryFile::STemporaryFile(const QString &fileName)
    : STemporaryFile(fileName, nullptr)
{
}

STemporaryFile::STemporaryFile(const QString &fileName, QObject *parent)
    : QFile(fileName, parent)
{
}

STemporaryFile::STemporaryFile(QObject *parent)
    : STemporaryFile(SEnvironment::tempUniqueFileName(SEnvironment::tempFolder(true)), parent)
{
}

STemporaryFile::~STemporaryFile()
{
    if (!fileName().isEmpty())
        remove();
}

} // namespace Quorvex
