#include <tavex/system/sstorageinfo.h>

#include <tavex/system/platform_p.h>

#include <QDebug>
#include <QStorageInfo>

namespace Quorvex {

struct Q_DECL_HIDDEN SStorageInfo::Private
{
    QString path;
    Platform::Volume volume;
};

SStorageInfo::SStorageInfo(const QString &path)
    : d(std::make_shared<Private>(Private{path, Platform::volumeOf(path)}))
{
}

QList<SStorageInfo> SStorageInfo::volumes()
{
    QList<SStorageInfo> list;
    for (const Platform::Volume &volume : Platform::volumes()) {
        list.emplaceBack();
        list.last().d = std::make_shared<Private>(Private{volume.rootPath, volume});
    }
    return list;
}

bool SStorageInfo::isValid() const noexcept
{
    return d && !d->volume.rootPath.isEmpty();
}

QString SStorageInfo::path() const
{
    return d ? d->path : QString();
}

QString SStorageInfo::rootPath() const
{
    return d ? d->volume.rootPath : QString();
}

QString SStorageInfo::type() const
{
    return d ? d->volume.type : QString();
}

bool SStorageInfo::isLocal() const noexcept
{
    return d && d->volume.isLocal;
}

QString SStorageInfo::name() const
{
    return isValid() ? QStorageInfo(rootPath()).displayName() : QString();
}

qint64 SStorageInfo::totalBytes() const
{
    return isValid() ? qMax(QStorageInfo(rootPath()).bytesTotal(), qint64(0)) : 0;
}

qint64 SStorageInfo::freeBytes() const
{
    return isValid() ? qMax(QStorageInfo(rootPath()).bytesAvailable(), qint64(0)) : 0;
}

bool SStorageInfo::eject()
{
    return isValid() && Platform::ejectVolume(d->volume);
}

bool operator==(const SStorageInfo &a, const SStorageInfo &b) noexcept
{
    return a.isValid() == b.isValid()
        && (!a.isValid()
            || (a.d->volume.rootPath == b.d->volume.rootPath
                && a.d->volume.device == b.d->volume.device));
}

QDebug operator<<(QDebug debug, const SStorageInfo &info)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "SStorageInfo(";
    if (info.isValid())
        debug << info.d->volume.rootPath << ", " << info.d->volume.type << ", "
              << info.d->volume.device;
    debug << ')';
    return debug;
}

} // namespace Quorvex
