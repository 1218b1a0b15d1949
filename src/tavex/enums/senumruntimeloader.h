#pragma once

#include <tavex/core/export.h>
#include <tavex/core/spointer.h>
#include <tavex/enums/isenumruntimeloader.h>

namespace Quorvex {

/// The registry of the run-time loaders. All members may be called from any thread.
class TAVEX_EXPORT SEnumRuntimeLoader
{
public:
    /// Takes ownership of \a loader until the library is unloaded; the module that has its code
    /// must stay loaded as long. Null, and a loader that is registered already, are ignored. A
    /// translator that is loaded already calls it at its next load.
    static void loaderRegister(ISEnumRuntimeLoader *loader);

    /// The first registered loader whose name() is exactly \a name, or null.
    [[nodiscard]] static SSharedPointer<ISEnumRuntimeLoader> loader(const QString &name);
};

} // namespace Quorvex
