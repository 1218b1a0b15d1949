#pragma once

#include <tavex/core/export.h>
#include <tavex/core/sversion.h>

#include <QString>
#include <QStringList>

namespace Quorvex {

/// The outside components that an application is built with, and their licences. The library
/// registers Qt when it is loaded. All members may be called from any thread.
class TAVEX_EXPORT S3rdParty
{
public:
    /// Registers the component \a name with its web site, version and the path of its licence text,
    /// a file or a resource. Replaces what was registered under that name. An empty name is
    /// ignored.
    static void registerModule(const QString &name, const QString &licensePath, const QString &site,
        const SVersion &version);

    /// The names in the order in which they were registered.
    [[nodiscard]] static QStringList modules();

    /// Whether a component of that name is registered.
    [[nodiscard]] static bool isRegistered(const QString &name);

    /// What was registered with a name; an empty text or the null version for an unknown name.
    /// @{
    [[nodiscard]] static QString licensePath(const QString &name);
    [[nodiscard]] static QString site(const QString &name);
    [[nodiscard]] static SVersion version(const QString &name);
    /// @}

    /// The web site of Qt.
    [[nodiscard]] static QString qtSite();

    /// A page that lists all components with their licence texts: one HTML document that needs no
    /// other file, in the language of the installed translators, which its lang attribute names.
    /// Licence texts are read as UTF-8 when this is called, and control characters are left out.
    /// The link to a licence is its first line, shortened. If a licence cannot be read or is blank,
    /// the page says so.
    [[nodiscard]] static QString legalInformation();
};

} // namespace Quorvex
