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

/// The numbers of SConvert: from other numbers, text and variants. The class is not exported as a
/// whole. A program for Windows would look in the DLL for its function objects, where the compiler
/// has no reason to put them.
class SNumberConvert
{
    /// What the conversions to all numbers share: those from values.
    template <SNumber T>
    struct ToNumber
    {
        template <SScalar N>
        [[nodiscard]] constexpr T operator()(N value) const noexcept
        {
            return convertedNumber<T>(value);
        }
    };

    /// The conversion to the integer T. Text is read as a Parsed by \a InLocale in base 10 and by
    /// \a InBase in every other.
    template <SInteger T, SInteger Parsed, Parsed (QLocale::*InLocale)(QStringView, bool *) const,
        Parsed (QString::*InBase)(bool *, int) const>
    struct ToInteger : ToNumber<T>
    {
        using ToNumber<T>::operator();

        [[nodiscard]] T operator()(const QString &text, bool *ok, const QLocale &locale) const
        {
            return static_cast<T>(read<Parsed, InLocale>(text, ok, locale));
        }
        [[nodiscard]] T operator()(
            const QString &text, bool *ok, const QLocale &locale, int base) const
        {
            if (base == 10)
                return (*this)(text, ok, locale);
            if (base == 0 || (base >= 2 && base <= 36))
                return static_cast<T>((text.*InBase)(ok, base));
            if (ok)
                *ok = false;
            return 0;
        }
        // A base is exactly an int, so that a QLocale::Language becomes a locale.
        template <std::same_as<int> Base>
        [[nodiscard]] T operator()(const QString &text, bool *ok, Base base) const
        {
            return base == 10 ? (*this)(text, ok, QLocale()) : (*this)(text, ok, QLocale::C, base);
        }
        [[nodiscard]] T operator()(const QString &text, bool *ok) const
        {
            return (*this)(text, ok, QLocale());
        }
        [[nodiscard]] T operator()(
            const QString &text, const QLocale &locale = QLocale(), int base = 10) const
        {
            return (*this)(text, nullptr, locale, base);
        }
        template <std::same_as<int> Base>
        [[nodiscard]] T operator()(const QString &text, Base base) const
        {
            return (*this)(text, nullptr, base);
        }
        template <std::same_as<QVariant> Variant>
        [[nodiscard]] T operator()(const Variant &value, const QLocale &locale = QLocale()) const
        {
            if (isText(value))
                return (*this)(value.toString(), locale);
            return fromVariant<T>(value);
        }
    };

    template <std::floating_point T, T (QLocale::*InLocale)(QStringView, bool *) const>
    struct ToReal : ToNumber<T>
    {
        using ToNumber<T>::operator();

        [[nodiscard]] T operator()(
            const QString &text, bool *ok, const QLocale &locale = QLocale()) const
        {
            return read<T, InLocale>(text, ok, locale);
        }
        [[nodiscard]] T operator()(const QString &text, const QLocale &locale = QLocale()) const
        {
            return (*this)(text, nullptr, locale);
        }
        template <std::same_as<QVariant> Variant>
        [[nodiscard]] T operator()(const Variant &value, const QLocale &locale = QLocale()) const
        {
            if (isText(value))
                return (*this)(value.toString(), locale);
            return fromVariant<T>(value);
        }
    };

public:
    /// Each is called with
    /// - a number or a `bool`, as convertedNumber();
    /// - `(text [, ok] [, locale] [, base])`: base 10 is read by QLocale's rules, and so is what
    ///   SConvert::toString() writes in \a locale where QLocale does not know its own signs; every
    ///   other base, up to 36, is read by the rules of C; base 0 takes "0x" and "0" as marks of the
    ///   base. 0 and false in \a ok, which may be null, for text that is no number of the type;
    /// - `(variant [, locale])`: text is read as above, other types are what QMetaType::convert()
    ///   makes of them, so that reals are rounded, and what does not fit an integer loses its high
    ///   bits; 0 if there is no conversion.
    ///
    /// The 8-bit integers are the low 8 bits of the 16-bit ones: the text "300" gives 44.
    /// @{
    static constexpr ToInteger<qint8, short, &QLocale::toShort, &QString::toShort> toInt8{};
    static constexpr ToInteger<quint8, ushort, &QLocale::toUShort, &QString::toUShort> toUInt8{};
    static constexpr ToInteger<qint16, short, &QLocale::toShort, &QString::toShort> toInt16{};
    static constexpr ToInteger<quint16, ushort, &QLocale::toUShort, &QString::toUShort> toUInt16{};
    static constexpr ToInteger<qint32, int, &QLocale::toInt, &QString::toInt> toInt32{};
    static constexpr ToInteger<quint32, uint, &QLocale::toUInt, &QString::toUInt> toUInt32{};
    static constexpr ToInteger<qint64, qlonglong, &QLocale::toLongLong, &QString::toLongLong>
        toInt64{};
    static constexpr ToInteger<quint64, qulonglong, &QLocale::toULongLong, &QString::toULongLong>
        toUInt64{};
    /// @}

    /// Called as toInt32 and its like, without a base.
    /// @{
    static constexpr ToReal<float, &QLocale::toFloat> toSingle{};
    static constexpr ToReal<double, &QLocale::toDouble> toDouble{};
    /// @}

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
    TAVEX_EXPORT static bool convert(const QVariant &value, QMetaType type, void *result);

private:
    template <typename T, T (QLocale::*InLocale)(QStringView, bool *) const>
    static T read(const QString &text, bool *ok, const QLocale &locale)
    {
        bool isNumber = false;
        T value = (locale.*InLocale)(text, &isNumber);
        if (!isNumber) {
            const QString plain = plainText(text, locale);
            if (!plain.isEmpty())
                value = (QLocale::c().*InLocale)(plain, &isNumber);
        }
        if (ok)
            *ok = isNumber;
        return value;
    }

    /// \a text as the C locale writes it, if it is to the letter what SConvert::toString() makes of
    /// a number in \a locale; else an empty text.
    TAVEX_EXPORT static QString plainText(const QString &text, const QLocale &locale);
};

} // namespace Quorvex
