#pragma once

#include <tavex/SConvert>

#include <QLocale>

#include <cmath>

/// \file
/// What holds for every value in every locale, for the tests and for the fuzzer.

inline const QList<QLocale> &everyLocale()
{
    static const QList<QLocale> all =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    return all;
}

/// SConvert's function that reads a \a T.
template <typename T>
T to(const auto &...how)
{
    using C = Quorvex::SConvert;
    if constexpr (std::is_same_v<T, qint8>)
        return C::toInt8(how...);
    else if constexpr (std::is_same_v<T, quint8>)
        return C::toUInt8(how...);
    else if constexpr (std::is_same_v<T, qint16>)
        return C::toInt16(how...);
    else if constexpr (std::is_same_v<T, quint16>)
        return C::toUInt16(how...);
    else if constexpr (std::is_same_v<T, qint32>)
        return C::toInt32(how...);
    else if constexpr (std::is_same_v<T, qint64>)
        return C::toInt64(how...);
    else if constexpr (std::is_same_v<T, quint64>)
        return C::toUInt64(how...);
    else if constexpr (std::is_same_v<T, float>)
        return C::toSingle(how...);
    else
        return C::toDouble(how...);
}

/// Whether what is written of a number, of a point or the like is read back as the very same one;
/// there are two of 0.
template <typename T>
bool readsBack(const T &value, const QLocale &locale, const QString &format = {})
{
    if constexpr (std::is_arithmetic_v<T>) {
        const QString text = Quorvex::SConvert::toString(value, format, locale);
        bool ok = false;
        const T read = to<T>(text, &ok, locale);
        return ok && read == value && std::signbit(double(read)) == std::signbit(double(value))
            && to<T>(QVariant(text), locale) == value;
    } else {
        const QString text = value.toString(locale);
        return T::fromString(text, locale) == value && !T::fromString(text + u'x', locale);
    }
}
