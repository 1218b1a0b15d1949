#pragma once

#include <tavex/core/export.h>
#include <tavex/core/sversion.h>

#include <QString>

namespace Quorvex {

/// What the library says about itself. The texts are fixed and not translated; all members may be
/// called from any thread.
class TAVEX_EXPORT TavexInfo
{
public:
    /// The maker's name.
    [[nodiscard]] static QString company();
    /// The one-line copyright notice, with a full stop.
    [[nodiscard]] static QString copyright();
    /// The one-line description, as in the version record of the library file.
    [[nodiscard]] static QString description();
    /// The base name of the library file and of its general translation catalogue.
    [[nodiscard]] static QString moduleName();
    /// The same as SVersion::currentVersion().
    [[nodiscard]] static SVersion version();
};

} // namespace Quorvex
