#pragma once

#include <tavex/core/export.h>

#include <QString>

namespace Quorvex {

/// Finds programs as the user's shell does. All members may be called from any thread, but not
/// while another changes the environment.
class TAVEX_EXPORT SShellCommandSeeker
{
public:
    /// The absolute path of the program \a name in the folders of the variable PATH, of which an
    /// empty one is the current folder; a name with a "/" is itself the path, from the current
    /// folder on if it is relative. Empty if there is none. The path is not cleaned, because ".."
    /// behind a link leads elsewhere. Under Windows "\" counts as "/", an empty folder is none, and
    /// the extension may be left out.
    [[nodiscard]] static QString find(const QString &name);

    /// Whether find() finds \a name.
    [[nodiscard]] static bool exists(const QString &name);
};

} // namespace Quorvex
