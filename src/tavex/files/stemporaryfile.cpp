#include <tavex/files/stemporaryfile.h>

#include <tavex/application/senvironment.h>
#include <tavex/system/platform_p.h>

namespace Quorvex {

STemporaryFile::STemporaryFile(const QString &fileName)
    : STemporaryFile(fileName, nullptr)
{
}

STemporaryFile::STemporaryFile(const QString &fileName, QObject *parent)
    : QFile(Platform::absolutePath(fileName), parent)
{
}

STemporaryFile::STemporaryFile(QObject *parent)
    : STemporaryFile(SEnvironment::tempUniqueFileName(SEnvironment::tempFolder(true)), parent)
{
}

STemporaryFile::~STemporaryFile()
{
    // remove() would close it as well, but leave it if its last bytes could not be written.
    QFile::close();
    if (!fileName().isEmpty())
        remove();
}

bool STemporaryFile::open(OpenMode mode)
{
    if (isOpen())
        return false;
    setFileName(Platform::absolutePath(fileName())); // setFileName() may have been called.
    if (fileName().isEmpty())
        return false;
#if QT_VERSION >= QT_VERSION_CHECK(6, 3, 0)
    return QFile::open(mode, ReadOwner | WriteOwner);
#else
    const bool isNew = !exists();
    return QFile::open(mode) && (!isNew || setPermissions(ReadOwner | WriteOwner));
#endif
}

} // namespace Quorvex
