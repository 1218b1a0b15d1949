#pragma once

#include <tavex/core/export.h>
#include <tavex/core/numbers.h>

#include <QLocale>
#include <QString>
#include <QVariant>

namespace Quorvex {

/// A number or a truth value.
template <typename T>
concept SScalar = SNumber<T> || std::same_as<T, bool>;

/// \a value as T: integers wrap around, reals are truncated towards zero and take the nearest limit
/// where they do not fit; NaN gives 0. As a `bool`, whether it is not 0.
template <typename T, SScalar N>
requires SScalar<T>
[[nodiscard]] constexpr T convertedNumber(N value) noexcept
{
    if constexpr (std::same_as<T, bool>)
        return value != N(0);
    else if constexpr (std::floating_point<N>)
        return saturated<T>(value);
    else
        return static_cast<T>(value);
}

/// The conversion of SConvert to numbers. All members may be called from any thread.
class TAVEX_EXPORT SNumberConvert
{
// Every number has a function of its own, with these overloads. The arguments that are templates
// take exactly such values: what would have to be converted first, as a string literal or a pointer
// into a variant or a bool, is refused by the compiler.
#define TAVEX_TO_NUMBER(Name, T)                                                                   \
    [[nodiscard]] static constexpr T Name(SScalar auto value) noexcept                             \
    {                                                                                              \
        return convertedNumber<T>(value);                                                          \
    }                                                                                              \
    [[nodiscard]] static T Name(                                                                   \
        const std::same_as<QVariant> auto &value, const QLocale &locale = QLocale())               \
    {                                                                                              \
        return isText(value) ? Name(value.toString(), locale) : fromVariant<T>(value);             \
    }
#define TAVEX_TO_INTEGER(Name, T)                                                                  \
    TAVEX_TO_NUMBER(Name, T)                                                                       \
    [[nodiscard]] static T Name(                                                                   \
        const QString &text, bool *ok, const QLocale &locale = QLocale(), int base = 10);          \
    [[nodiscard]] static T Name(const QString &text, bool *ok, SInteger auto base)                 \
    {                                                                                              \
        return Name(text, ok, QLocale(), saturated<int>(static_cast<double>(base)));               \
    }                                                                                              \
    [[nodiscard]] static T Name(                                                                   \
        const QString &text, const QLocale &locale = QLocale(), int base = 10)                     \
    {                                                                                              \
        return Name(text, nullptr, locale, base);                                                  \
    }                                                                                              \
    [[nodiscard]] static T Name(const QString &text, SInteger auto base)                           \
    {                                                                                              \
        return Name(text, nullptr, base);                                                          \
    }
#define TAVEX_TO_REAL(Name, T)                                                                     \
    TAVEX_TO_NUMBER(Name, T)                                                                       \
    [[nodiscard]] static T Name(const QString &text, bool *ok, const QLocale &locale = QLocale()); \
    [[nodiscard]] static T Name(const QString &text, const QLocale &locale = QLocale())            \
    {                                                                                              \
        return Name(text, nullptr, locale);                                                        \
    }

public:
    /// The number that a value, a text or a variant stands for.
    ///
    /// - Of a number or a `bool` it is the convertedNumber().
    /// - Text in base 10, which is the default, is read by the rules of QLocale; and so is what
    ///   SConvert::toString() writes in \a locale where QLocale does not know its own signs. Text
    ///   in another base, up to 36, is read by the rules of C; base 0 takes "0x" and "0" as marks
    ///   of the base. Text that is no number of the type gives 0 and, where \a ok is not null,
    ///   false in it.
    /// - Text in a variant is read in base 10. Other types are what QMetaType::convert() makes of
    ///   them, so that reals are rounded, and what does not fit an integer loses its high bits; 0
    ///   if there is no conversion.
    ///
    /// The 8-bit integers are the low 8 bits of the 16-bit ones: the text "300" gives 44.
    /// @{
    TAVEX_TO_INTEGER(toInt8, qint8)
    TAVEX_TO_INTEGER(toUInt8, quint8)
    TAVEX_TO_INTEGER(toInt16, qint16)
    TAVEX_TO_INTEGER(toUInt16, quint16)
    TAVEX_TO_INTEGER(toInt32, qint32)
    TAVEX_TO_INTEGER(toUInt32, quint32)
    TAVEX_TO_INTEGER(toInt64, qint64)
    TAVEX_TO_INTEGER(toUInt64, quint64)
    /// @}

    /// The same for reals, which have no base.
    /// @{
    TAVEX_TO_REAL(toSingle, float)
    TAVEX_TO_REAL(toDouble, double)
    /// @}

#undef TAVEX_TO_REAL
#undef TAVEX_TO_INTEGER
#undef TAVEX_TO_NUMBER

protected:
    /// Whether \a value holds text.
    static bool isText(const QVariant &value)
    {
        // To ask a description for its number would register it.
        const QMetaType type = value.metaType();
        return type.isRegistered() && type.id() == QMetaType::QString;
    }

    /// \a value, which holds no text, as QMetaType converts it.
    template <SScalar T>
    static T fromVariant(const QVariant &value)
    {
        T result{};
        convert(value, QMetaType::fromType<T>(), &result);
        return result;
    }

    /// QMetaType::convert() of \a value into \a result. It registers nothing.
    static bool convert(const QVariant &value, QMetaType type, void *result);
};

} // namespace Quorvex
