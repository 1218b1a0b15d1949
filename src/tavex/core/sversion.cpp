#include <tavex/core/sversion.h>

#include <tavex/core/productinfo_p.h>

namespace Quorvex {

SVersion SVersion::currentVersion() noexcept
{
    return {TAVEX_VERSION_MAJOR, TAVEX_VERSION_MINOR, TAVEX_VERSION_PATCH};
}

} // namespace Quorvex
