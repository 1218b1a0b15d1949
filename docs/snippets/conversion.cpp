#include "snippets.h"

#include <tavex/SConvert>
#include <tavex/SVariantConvert>

#include <QDate>

using namespace Quorvex;

//! [own type]
struct Temperature
{
    double celsius;
};

QString temperatureToText(const QVariant &value, const QString &format, const QLocale &locale)
{
    const double celsius = value.value<Temperature>().celsius;
    return SConvert::toString(celsius, format, locale) + QStringLiteral(" °C");
}
//! [own type]

void conversion(QTextStream &out)
{
    //! [values]
    const QLocale german(QLocale::German);
    bool ok = false;
    const double price = SConvert::toDouble(QStringLiteral("1.234,5"), &ok, german);
    out << ok << ": " << SConvert::toString(price, QStringLiteral("{f:2}"), german) << '\n';

    out << SConvert::toString(48879, QStringLiteral("{base:16}{width:8}")) << '\n';

    const QVariantList row{1.5, QDate(2026, 5, 17), QStringList{QStringLiteral("a")}};
    out << SConvert::toString(row, QStringLiteral("{iso}"), german) << '\n';
    out << SConvert::toString(row, QStringLiteral("{json}")) << '\n';
    //! [values]

    //! [register]
    SVariantConvert::sVariantToStringRegister(
        QMetaType::fromType<Temperature>().id(), temperatureToText);
    const QVariant outside = QVariant::fromValue(Temperature{-3.5});
    out << SConvert::toString(outside, QStringLiteral("{f:2}"), german) << '\n';
    //! [register]
}
