#pragma once

#include <tavex/core/snumber.h>

#include <QLocale>
#include <QString>
#include <QVariant>

#include <cmath>

namespace Quorvex {

/// A number or a truth value.
template <typename T>
concept SScalar = SNumber<T> || std::same_as<T, bool>;

/// The numbers of SConvert: from other numbers, text and variants. All of it is in this header. A
/// program for Windows would look in the DLL for the function objects of a class that is exported,
/// where the compiler has no reason to put them.
class SNumberConvert
{
    /// What the conversions to all numbers share: those from values.
    template <SNumber T>
    struct ToNumber
    {
        template <SScalar N>
        [[nodiscard]] constexpr T operator()(N value) const noexcept
        {
            if constexpr (std::floating_point<N>)
                return saturated<T>(value);
            else
                return static_cast<T>(value);
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
            return static_cast<T>((locale.*InLocale)(text, ok));
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
            if (value.userType() == QMetaType::QString)
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
            return (locale.*InLocale)(text, ok);
        }
        [[nodiscard]] T operator()(const QString &text, const QLocale &locale = QLocale()) const
        {
            return (*this)(text, nullptr, locale);
        }
        template <std::same_as<QVariant> Variant>
        [[nodiscard]] T operator()(const Variant &value, const QLocale &locale = QLocale()) const
        {
            if (value.userType() == QMetaType::QString)
                return (*this)(value.toString(), locale);
            return fromVariant<T>(value);
        }
    };

public:
    /// Each is called with
    /// - a number or a `bool`: integers wrap around, reals are truncated towards zero and take the
    ///   nearest limit where they do not fit; NaN gives 0;
    /// - `(text [, ok] [, locale] [, base])`: base 10 is read as \a locale writes numbers, and
    ///   every other base, up to 36, by the rules of C; base 0 takes "0x" and "0" as marks of the
    ///   base. 0 and false in \a ok, which may be null, for text that is no number of the type;
    /// - `(variant [, locale])`: text is read as above, other types go through QMetaType's
    ///   conversions; 0 if there is none.
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
    /// \a value, which holds no text, as QMetaType converts it.
    template <SScalar T>
    static T fromVariant(const QVariant &value)
    {
        const auto type = QMetaType::fromType<T>();
        if (value.metaType() == type)
            return *static_cast<const T *>(value.constData());
        if constexpr (SInteger<T>) {
            // QMetaType rounds a real too, but cuts off the high bits of what does not fit.
            const int from = value.userType();
            if (from == QMetaType::Double || from == QMetaType::Float)
                return saturated<T>(std::round(value.toDouble()));
        }
        T result{};
        QMetaType::convert(value.metaType(), value.constData(), type, &result);
        return result;
    }
};

} // namespace Quorvex
