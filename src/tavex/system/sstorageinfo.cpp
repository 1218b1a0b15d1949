#include <tavex/system/sstorageinfo.h>

#include <tavex/system/platform_p.h>

#include <QStorageInfo>

#include <utility>

namespace Quorvex {

SStorageInfo::SStorageInfo(QString path, const Platform::Volume &volume)
    : m_path(std::move(path))
    , m_rootPath(volume.rootPath)
    , m_type(volume.type)
    , m_device(volume.device)
    , m_isLocal(volume.isLocal)
{
}

SStorageInfo::SStorageInfo(const QString &path)
    : SStorageInfo(path, Platform::volumeOf(path))
{
}

QList<SStorageInfo> SStorageInfo::volumes()
{
    QList<SStorageInfo> list;
    for (const Platform::Volume &volume : Platform::volumes())
        list.append(SStorageInfo(volume.rootPath, volume));
    return list;
}

QString SStorageInfo::name() const
{
    return isValid() ? QStorageInfo(m_rootPath).displayName() : QString();
}

qint64 SStorageInfo::totalBytes() const
{
    return isValid() ? qMax(QStorageInfo(m_rootPath).bytesTotal(), qint64(0)) : 0;
}

qint64 SStorageInfo::freeBytes() const
{
    return isValid() ? qMax(QStorageInfo(m_rootPath).bytesAvailable(), qint64(0)) : 0;
}

bool SStorageInfo::eject()
{
    return isValid() && Platform::ejectVolume({m_rootPath, m_type, m_device, m_isLocal});
}

} // namespace Quorvex
