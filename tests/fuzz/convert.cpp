#include "fuzz.h"

#include <tavex/SConvert>
#include <tavex/SPointF>
#include <tavex/SRectF>

#include <QDateTime>
#include <QJsonDocument>

using Quorvex::SConvert;
using Quorvex::SPointF;
using Quorvex::SRectF;

namespace {

/// The very number, of which 0 has two.
template <typename T>
bool isSame(T a, T b)
{
    return a == b && std::signbit(a) == std::signbit(b);
}

template <typename T>
void readsBack(T value, const auto &parser, const QLocale &locale)
{
    if (value != value)
        return;
    bool ok = false;
    const T read = parser(SConvert::toString(value, locale), &ok, locale);
    check(ok && isSame<long double>(read, value));
}

#define PARSER(Name) [](auto &&...a) { return SConvert::Name(a...); }

/// What is written is read back, in every locale.
void roundTrips(Input &input, const QLocale &locale)
{
    const auto integer = input.number<qint64>();
    readsBack(integer, PARSER(toInt64), locale);
    readsBack(quint64(integer), PARSER(toUInt64), locale);
    readsBack(qint32(integer), PARSER(toInt32), locale);
    readsBack(quint16(integer), PARSER(toUInt16), locale);
    readsBack(qint8(integer), PARSER(toInt8), locale);
    const QString wide = SConvert::toString(integer, QStringLiteral("{width:64}"), locale);
    check(SConvert::toInt64(wide, locale) == integer);
    const int base = 2 + input.number<uchar>() % 35;
    const QString digits = SConvert::toString(integer, QStringLiteral("{base:%1}").arg(base));
    check(base == 10 || SConvert::toInt64(digits, QLocale::c(), base) == integer);

    const auto real = input.number<double>();
    const auto single = input.number<float>();
    readsBack(real, PARSER(toDouble), locale);
    readsBack(single, PARSER(toSingle), locale);
    // Of a size that people write, too.
    if (std::isfinite(real) && real != 0)
        readsBack(std::ldexp(real, base - std::ilogb(real)), PARSER(toDouble), locale);
    const double second = single;
    if (std::isfinite(real) && std::isfinite(second)) {
        check(SPointF::fromString(SPointF(real, second).toString(locale), locale)
            == SPointF(real, second));
        check(SRectF::fromString(SRectF(real, second, 1, second).toString(locale), locale)
            == SRectF(real, second, 1, second));
    }
    for (const QString &text : {SConvert::toString(integer), SConvert::toString(real)})
        check(SConvert::toInt8(text) == qint8(SConvert::toInt16(text)));

    const QDate date = QDate::fromJulianDay(input.number<qint32>());
    const QDateTime moment(date, QTime::fromMSecsSinceStartOfDay(input.number<int>() % 86400000),
        Qt::OffsetFromUTC, 60 * input.number<qint8>());
    const QString iso = SConvert::toString(moment, QStringLiteral("{iso}"));
    if (moment.isValid() && date.year() > 0 && date.year() < 10000)
        check(QDateTime::fromString(iso, Qt::ISODateWithMs) == moment);
}

template <typename... T>
void write(const QString &format, const QLocale &locale, const T &...values)
{
    (check(SConvert::toString(values, format, locale)
         == SConvert::toString(QVariant::fromValue(values), format, locale)),
        ...);
}

} // namespace

int LLVMFuzzerTestOneInput(const uchar *data, std::size_t size)
{
    Input input(data, size);
    const QLocale locale = input.locale();
    roundTrips(input, locale);

    const QString format = input.text();
    const QDate date = QDate::fromJulianDay(input.number<qint64>());
    const QTime time = QTime::fromMSecsSinceStartOfDay(input.number<int>());
    write(format, locale, input.number<int>(), input.number<quint64>(), input.number<float>(),
        input.number<double>(), date, time, QDateTime(date, time, Qt::UTC),
        QList<int>{1, input.number<short>()});

    const QString text = input.text();
    const int base = input.number<qint16>();
    bool ok = false;
    const auto integer = SConvert::toInt64(text, &ok, locale, base);
    check(ok || integer == 0);
    const auto unsignedInteger = SConvert::toUInt64(text, &ok, locale, base);
    check(!ok || integer < 0 || quint64(integer) == unsignedInteger || integer == 0);
    check(SConvert::toUInt8(text, locale) == quint8(SConvert::toUInt16(text, locale)));
    bool qtReads = false; // Then its word stands.
    const double real = locale.toDouble(text, &qtReads);
    const double ours = SConvert::toDouble(text, &ok, locale);
    check(!qtReads || (ok && (ours == real || real != real)));
    (void)SConvert::toSingle(text, locale);
    (void)SConvert::toBool(text, locale);
    (void)SConvert::toInt32(QVariant(SConvert::toDouble(text, locale)));

    const auto json = QJsonDocument::fromJson(text.toUtf8());
    const QString written = SConvert::toString(json, QStringLiteral("{indent}"), locale);
    check(QJsonDocument::fromJson(written.toUtf8()) == json);
    (void)SConvert::toString(json.toVariant(), format, locale);
    return 0;
}
