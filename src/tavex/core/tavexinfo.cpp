#include <tavex/core/tavexinfo.h>

#include <tavex/core/productinfo_p.h>

namespace Quorvex {

QString TavexInfo::company()
{
    return QStringLiteral(TAVEX_COMPANY);
}

QString TavexInfo::copyright()
{
    return QStringLiteral(TAVEX_COPYRIGHT);
}

QString TavexInfo::description()
{
    return QStringLiteral(TAVEX_DESCRIPTION);
}

QString TavexInfo::moduleName()
{
    return QStringLiteral(TAVEX_MODULE);
}

SVersion TavexInfo::version()
{
    return SVersion::currentVersion();
}

} // namespace Quorvex
