#pragma once

#include <tavex/convert/snumberconvert.h>
#include <tavex/core/export.h>
#include <tavex/core/sversion.h>

#include <QHash>
#include <QList>
#include <QMap>

QT_FORWARD_DECLARE_CLASS(QDate)
QT_FORWARD_DECLARE_CLASS(QDateTime)
QT_FORWARD_DECLARE_CLASS(QJsonArray)
QT_FORWARD_DECLARE_CLASS(QJsonDocument)
QT_FORWARD_DECLARE_CLASS(QJsonObject)
QT_FORWARD_DECLARE_CLASS(QJsonValue)
QT_FORWARD_DECLARE_CLASS(QTime)
QT_FORWARD_DECLARE_CLASS(QUrl)
QT_FORWARD_DECLARE_CLASS(QUuid)

namespace Quorvex {

/// A list of types.
template <typename... T>
struct STypeList
{
    /// Whether U is one of them.
    template <typename U>
    static constexpr bool contains = (std::same_as<T, U> || ...);
};

/// The types that SConvert::toString() knows beside enumerations, alone, in lists, in maps and in
/// variants.
using STextTypes = STypeList<bool, int, double, QString, qlonglong, uint, qulonglong, float,
    signed char, uchar, short, ushort, long, ulong, QByteArray, QDate, QTime, QDateTime, QUrl,
    QUuid, QJsonDocument, QJsonObject, QJsonArray, QJsonValue, SVersion, QVariant>;

/// Whether T is an STextType.
/// @{
template <typename T>
inline constexpr bool isTextType = std::is_enum_v<T> || STextTypes::contains<T>;
template <typename T>
inline constexpr bool isTextType<QList<T>> = isTextType<T>;
template <typename T>
inline constexpr bool isTextType<QMap<QString, T>> = isTextType<T>;
template <typename T>
inline constexpr bool isTextType<QHash<QString, T>> = isTextType<T>;
/// @}

/// A type whose values SConvert::toString() turns into text.
template <typename T>
concept STextType = isTextType<T>;

/// Conversion between values and text under a locale. Failures give a neutral value. All members
/// may be called from any thread.
///
/// A format is empty for the default of the value's type; a locale that is left out is the default
/// one.
///
/// \par Formats
/// Integers: "{base:16}", "{width:8}" (zeros in front), or both. Reals: "{f:2}", "{e:3}", "{g:6}"
/// for notation and precision. Dates and times: "{short}", "{long}", "{iso}", or a pattern of Qt's.
/// JSON: "{indent}" or "{json:indent}". Lists and maps: that of their elements, or "{json}" and
/// "{json:indent}". Other types have no formats but SVersion. A format that cannot be used is taken
/// as empty. Blanks around a format do not count, but for those of JSON, which have none.
///
/// \par Versions
/// In the format "{MM}", "{mm}" and "{pp}" stand for major, minor and patch; it is trimmed, and
/// empty means "{MM}.{mm}.{pp}". To read a version, each of them takes one or two decimal digits
/// and the rest of the format is a regular expression (so a dot stands for any character) that is
/// searched anywhere in the text. The digits that are read are those of ASCII: where a locale has
/// digits of its own, the text of a version is not read back.
class TAVEX_EXPORT SConvert : public SNumberConvert
{
public:
    /// Whether \a value is not 0; true for NaN.
    template <SScalar N>
    [[nodiscard]] static constexpr bool toBool(N value) noexcept
    {
        return convertedNumber<bool>(value);
    }
    /// Whether \a text, trimmed and in upper or lower case, is a word for Bool::True: in the
    /// language of the default locale its translation, its English word or its key, in others its
    /// key.
    [[nodiscard]] static bool toBool(const QString &text, const QLocale &locale = QLocale());
    /// Text is read as above, other types go through QMetaType's conversions; false if there is
    /// none.
    template <std::same_as<QVariant> Variant>
    [[nodiscard]] static bool toBool(const Variant &value, const QLocale &locale = QLocale())
    {
        if (isText(value))
            return toBool(value.toString(), locale);
        return fromVariant<bool>(value);
    }

    /// The text of \a value.
    ///
    /// Without a format, numbers are what \a locale makes of them; reals with as many digits as it
    /// takes to read them back, plainly where the first digit stands for 1e-5 to 1e15, else with an
    /// exponent; a `bool` is its word, which is translated in the language of the default locale;
    /// bytes are UTF-8; dates and times are in the locale's long form; JSON is compact; an
    /// enumeration is its key. The elements of lists are joined by ", ", or by "; " where \a locale
    /// has a decimal comma. A QVariant of any of these is written as the value that it holds,
    /// unless SVariantConvert has a converter for its type; of other types the text is what
    /// QMetaType converts them to, and where that is nothing, what it knows to be their elements.
    /// @{
    template <STextType T>
    [[nodiscard]] static QString toString(const T &value, const QLocale &locale = QLocale())
    {
        return toString(value, QString(), locale);
    }
    template <STextType T>
    [[nodiscard]] static QString toString(
        const T &value, const QString &format, const QLocale &locale = QLocale())
    {
        if constexpr (SScalar<T>)
            return text(value, format, locale);
        else if constexpr (std::is_enum_v<T>)
            return enumText(QMetaType::fromType<T>(), &value, format, locale);
        else if constexpr (std::same_as<T, QVariant>)
            return variantText(value, format, locale);
        else
            return valueText(variant(value, format, locale), format, locale);
    }
    /// @}

    /// Text is returned as it is.
    /// @{
    [[nodiscard]] static QString toString(const QString &value, const QLocale & = QLocale())
    {
        return value;
    }
    [[nodiscard]] static QString toString(
        const QString &value, const QString &, const QLocale & = QLocale())
    {
        return value;
    }
    /// @}

    /// The first version in \a text; the null version if there is none or \a format cannot be used.
    /// @{
    [[nodiscard]] static SVersion toVersion(const QString &text, const QLocale &locale = QLocale());
    [[nodiscard]] static SVersion toVersion(
        const QString &text, const QString &format, const QLocale &locale = QLocale());
    /// @}

    /// Text is read as above and an SVersion is taken as it is. Other types go through QMetaType's
    /// conversions; the null version if it has none.
    /// @{
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
    /// @}

    /// Takes \a value as the packed integer: of an integer the low 32 bits, of a real the part
    /// before the point; a real that does not fit gives the nearest limit, NaN gives 0.
    template <SNumber T>
    [[nodiscard]] static constexpr SVersion toVersion(T value) noexcept
    {
        if constexpr (std::floating_point<T>)
            return SVersion(saturated<int>(value));
        else
            return SVersion(static_cast<int>(value));
    }

    /// A variant that holds \a version.
    [[nodiscard]] static QVariant toVariant(const SVersion &version);

private:
    /// An integer as one of the two types that QLocale and QVariant take on every system.
    template <SInteger T>
    static constexpr auto widened(T value) noexcept
    {
        if constexpr (std::is_signed_v<T>)
            return qlonglong(value);
        else
            return qulonglong(value);
    }

    /// \a value as a variant of a type that every module knows. A variant of another, such as an
    /// enumeration of a plug-in, makes Qt keep a description that goes with the plug-in.
    /// @{
    template <typename T>
    static QVariant variant(const T &value, const QString &format, const QLocale &locale)
    {
        if constexpr (std::is_enum_v<T>)
            return enumText(QMetaType::fromType<T>(), &value, format, locale);
        else
            return QVariant::fromValue(value);
    }
    template <typename T>
    static QVariant variant(const QList<T> &list, const QString &format, const QLocale &locale)
    {
        QVariantList values;
        values.reserve(list.size());
        for (const T &value : list)
            values.append(variant(value, format, locale));
        return values;
    }
    template <template <typename, typename> typename Map, typename T>
    static QVariant variant(
        const Map<QString, T> &map, const QString &format, const QLocale &locale)
    {
        QVariantMap values;
        for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
            values.insert(entry.key(), variant(entry.value(), format, locale));
        return values;
    }
    /// @}

    template <SInteger T>
    static QString text(T value, const QString &format, const QLocale &locale)
    {
        if (format.isEmpty())
            return locale.toString(widened(value));
        const auto bits = static_cast<quint64>(widened(value));
        return integerText(value < 0 ? 0 - bits : bits, value < 0, format, locale);
    }
    static QString text(float value, const QString &format, const QLocale &locale);
    static QString text(double value, const QString &format, const QLocale &locale);
    static QString text(bool value, const QString &format, const QLocale &locale);

    static QString integerText(
        quint64 magnitude, bool isNegative, const QString &format, const QLocale &locale);
    static QString enumText(
        QMetaType type, const void *value, const QString &format, const QLocale &locale);
    /// What a converter in SVariantConvert makes of \a value, else its valueText().
    static QString variantText(const QVariant &value, const QString &format, const QLocale &locale);
    static QString valueText(const QVariant &value, const QString &format, const QLocale &locale);
    static QString elementText(const QVariant &value, const QString &format, const QLocale &locale);
    static QJsonValue json(const QVariant &value);
    static QVariant opened(const QVariant &value, const QString &format, const QLocale &locale);
    static SVersion variantToVersion(
        const QVariant &value, const QString &format, const QLocale &locale);
};

} // namespace Quorvex
