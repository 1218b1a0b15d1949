#pragma once

#include <tavex/core/export.h>

#include <QLocale>
#include <QString>

#include <functional>

QT_FORWARD_DECLARE_CLASS(QDataStream)
QT_FORWARD_DECLARE_CLASS(QDebug)

namespace Quorvex {

/// A locale, and the names by which the library's catalogues and flag pictures know it.
///
/// Klingon is a full language of the library. Qt has no such locale, so QLocale::Language value 114
/// stands for it: its locale is named "tlh".
///
/// It is nothing but a QLocale, so its layout is final.
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
    [[nodiscard]] const QLocale &locale() const &noexcept { return m_locale; }
    [[nodiscard]] QLocale locale() && { return m_locale; }
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

    /// As those of QLocale, number options included.
    /// @{
    friend bool operator==(const SLocale &, const SLocale &) = default;
    friend bool operator==(const SLocale &a, const QLocale &b) { return a.m_locale == b; }
    friend std::size_t qHash(const SLocale &locale, std::size_t seed = 0) noexcept
    {
        return qHash(locale.m_locale, seed);
    }
    friend TAVEX_EXPORT QDebug operator<<(QDebug debug, const SLocale &locale);
    /// @}

    /// Writes and reads the name, which is "tlh" for Klingon, and the number options.
    /// @{
    friend TAVEX_EXPORT QDataStream &operator<<(QDataStream &stream, const SLocale &locale);
    friend TAVEX_EXPORT QDataStream &operator>>(QDataStream &stream, SLocale &locale);
    /// @}

private:
    QLocale m_locale;
};

} // namespace Quorvex

/// \cond
template <>
struct std::hash<Quorvex::SLocale>
{
    std::size_t operator()(const Quorvex::SLocale &locale) const noexcept { return qHash(locale); }
};
/// \endcond
