#pragma once

#include <tavex/core/export.h>

#include <QString>

namespace Quorvex {

/// Finds programs as the user's shell does. All members may be called from any thread, but not
/// while another changes the environment.
class TAVEX_EXPORT SShellCommandSeeker
{
public:
    /// The path of the executable file \a name in the folders of the variable PATH, or of \a name
    /// itself if it is a path that is absolute; empty if there is none. Under Windows the extension
    /// may be left out.
    [[nodiscard]] static QString find(const QString &name);

    /// Whether find() finds \a name.
    [[nodiscard]] static bool exists(const QString &name);
};

} // namespace Quorvex
