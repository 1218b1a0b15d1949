#pragma once

#include <tavex/core/export.h>
#include <tavex/core/snumber.h>
#include <tavex/core/sversion.h>

#include <QLocale>
#include <QString>
#include <QVariant>

namespace Quorvex {

/// Conversion between values and text under a locale. Failures give a neutral value. All members
/// may be called from any thread.
///
/// A format is empty for the default of the value's type; a locale that is left out is the default
/// one.
///
/// Versions: in the format "{MM}", "{mm}" and "{pp}" stand for major, minor and patch; it is
/// trimmed, and empty means "{MM}.{mm}.{pp}". To read a version, each of them takes one or two
/// decimal digits and the rest of the format is a regular expression (so a dot stands for any
/// character) that is searched anywhere in the text.
class TAVEX_EXPORT SConvert
{
public:
    [[nodiscard]] static QString toString(const SVersion &version);
    [[nodiscard]] static QString toString(const SVersion &version, const QLocale &locale);
    [[nodiscard]] static QString toString(
        const SVersion &version, const QString &format, const QLocale &locale = QLocale());

    /// The first version in \a text; the null version if there is none or \a format cannot be used.
    [[nodiscard]] static SVersion toVersion(const QString &text, const QLocale &locale = QLocale());
    [[nodiscard]] static SVersion toVersion(
        const QString &text, const QString &format, const QLocale &locale = QLocale());

    /// Text is read as above and an SVersion is taken as it is. Other types go through QMetaType's
    /// conversions; the null version if it has none.
    template <std::same_as<QVariant> Variant>
    [[nodiscard]] static SVersion toVersion(const Variant &value, const QLocale &locale = QLocale())
    {
        return variantToVersion(value, QString(), locale);
    }
    template <std::same_as<QVariant> Variant>
    [[nodiscard]] static SVersion toVersion(
        const Variant &value, const QString &format, const QLocale &locale = QLocale())
    {
        return variantToVersion(value, format, locale);
    }

    /// Takes \a value as the packed integer: of an integer the low 32 bits, of a real the part
    /// before the point; a real that does not fit gives the nearest limit, NaN gives 0.
    template <SNumber T>
    [[nodiscard]] static constexpr SVersion toVersion(T value) noexcept
    {
        if constexpr (std::floating_point<T>)
            return {saturated<int>(value)};
        else
            return {static_cast<int>(value)};
    }

    [[nodiscard]] static QVariant toVariant(const SVersion &version);

private:
    static SVersion variantToVersion(
        const QVariant &value, const QString &format, const QLocale &locale);
};

} // namespace Quorvex
