#pragma once

#include <tavex/core/export.h>

#include <QLocale>
#include <QString>

namespace Quorvex {

/// A locale, and the names by which the library's catalogues and flag pictures know it.
///
/// Klingon is a full language of the library. Qt has no such locale, so QLocale::Language value 114
/// stands for it: its locale is named "tlh".
class TAVEX_EXPORT SLocale
{
public:
    /// The default locale with \a options.
    SLocale(QLocale::NumberOptions options = QLocale::DefaultNumberOptions);
    /// \a locale with \a options in place of its own.
    SLocale(const QLocale &locale, QLocale::NumberOptions options = QLocale::DefaultNumberOptions);
    /// The locale that QLocale has for \a name, or Klingon for "tlh" in upper or lower case.
    SLocale(const QString &name, QLocale::NumberOptions options = QLocale::DefaultNumberOptions);

    /// The locale that it stands for.
    /// @{
    operator QLocale() const { return m_locale; }
    [[nodiscard]] const QLocale &locale() const noexcept { return m_locale; }
    /// @}

    /// The same as the static functions for locale().
    /// @{
    [[nodiscard]] QString name(bool languageOnly = false) const;
    [[nodiscard]] QString nativeLanguageName() const;
    /// @}

    /// Whether \a locale is of the Klingon language.
    [[nodiscard]] static bool isKlingon(const QLocale &locale);

    /// "de_DE", or "de" with \a languageOnly; "tlh" for Klingon.
    [[nodiscard]] static QString name(const QLocale &locale, bool languageOnly = false);

    /// "de-DE", or "de_DE" with \a keepUnderscore; "tlh" for Klingon.
    [[nodiscard]] static QString lcName(const QLocale &locale, bool keepUnderscore = false);

    /// The language's name in that language; "tlhIngan Hol" for Klingon.
    [[nodiscard]] static QString nativeLanguageName(const QLocale &locale);

private:
    QLocale m_locale;
};

} // namespace Quorvex
