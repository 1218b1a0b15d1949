#include <tavex/core/sversion.h>

#include <tavex/core/productinfo_p.h>

#include <QDataStream>
#include <QDebug>
#include <QVersionNumber>

namespace Quorvex {

SVersion SVersion::currentVersion() noexcept
{
    return {TAVEX_VERSION_MAJOR, TAVEX_VERSION_MINOR, TAVEX_VERSION_PATCH};
}

SVersion SVersion::fromVersionNumber(const QVersionNumber &number)
{
    const int major = number.majorVersion();
    const int minor = number.minorVersion();
    const int patch = number.microVersion();
    const SVersion version(major, minor, patch);
    const bool fits = version.majorVersion() == major && version.minorVersion() == minor
        && version.patchVersion() == patch;
    return fits ? version : invalidVersion();
}

QVersionNumber SVersion::toVersionNumber() const
{
    if (!isValid())
        return {};
    return {majorVersion(), minorVersion(), patchVersion()};
}

QDebug operator<<(QDebug debug, const SVersion &version)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "SVersion(";
    if (version.m_value >> 24 == 0)
        debug << version.majorVersion() << '.' << version.minorVersion() << '.'
              << version.patchVersion();
    else
        debug << version.m_value;
    return debug << ')';
}

QDataStream &operator<<(QDataStream &stream, const SVersion &version)
{
    return stream << qint32(version.m_value);
}

QDataStream &operator>>(QDataStream &stream, SVersion &version)
{
    return stream >> version.m_value;
}

} // namespace Quorvex
