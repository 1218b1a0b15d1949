#include "fuzz.h"

#include <tavex/SConvert>
#include <tavex/SPointF>
#include <tavex/SRectF>

#include <QJsonDocument>

using Quorvex::SConvert;
using Quorvex::SPointF;
using Quorvex::SRectF;

namespace {

/// What is written is read back, in every locale.
void roundTrips(Input &input, const QLocale &locale)
{
    const auto integer = input.number<qint64>();
    for (const char *format : {"", "{width:64}"})
        check(readsBack(integer, locale, QString::fromLatin1(format)));
    check(readsBack(quint64(integer), locale) && readsBack(qint8(integer), locale));
    const int base = 2 + input.number<uchar>() % 35;
    const QString digits = SConvert::toString(integer, QStringLiteral("{base:%1}").arg(base));
    check(base == 10 || SConvert::toInt64(digits, QLocale::c(), base) == integer);

    const auto real = input.number<double>();
    const auto single = input.number<float>();
    check(real != real || readsBack(real, locale));
    check(single != single || readsBack(single, locale));
    // A number of usual size as well.
    if (std::isfinite(real) && real != 0)
        check(readsBack(std::ldexp(real, base - std::ilogb(real)), locale));
    if (std::isfinite(real) && std::isfinite(single)) {
        check(readsBack(SPointF(real, single), locale));
        check(readsBack(SRectF(real, single, 1, single), locale));
    }
}

/// What text is read as, by all that read it.
void reads(Input &input, const QLocale &locale)
{
    const QString text = input.text();
    const int base = input.number<qint16>();
    bool ok = false;
    const auto integer = SConvert::toInt64(text, &ok, locale, base);
    check(ok || integer == 0);
    const auto unsignedInteger = SConvert::toUInt64(text, &ok, locale, base);
    check(!ok || integer < 0 || quint64(integer) == unsignedInteger || integer == 0);
    check(SConvert::toUInt8(text, locale) == quint8(SConvert::toUInt16(text, locale)));
    bool qtReads = false; // Where it does, SConvert has to agree.
    const double real = locale.toDouble(text, &qtReads);
    const double ours = SConvert::toDouble(text, &ok, locale);
    check(!qtReads || (ok && (ours == real || real != real)));
    (void)SConvert::toSingle(text, locale);
    (void)SConvert::toBool(text, locale);
    check(SConvert::toVersion(text, locale).isValid());
    (void)SConvert::toVersion(text, input.text(), locale);
}

/// JSON comes back from its text.
void readsJson(Input &input, const QLocale &locale)
{
    const QString format = input.text();
    const auto json = QJsonDocument::fromJson(input.text().toUtf8());
    const QString written = SConvert::toString(json, QStringLiteral("{indent}"), locale);
    check(QJsonDocument::fromJson(written.toUtf8()) == json);
    (void)SConvert::toString(json.toVariant(), format, locale);
}

} // namespace

int LLVMFuzzerTestOneInput(const uchar *data, std::size_t size)
{
    Input input(data, size);
    void (*const laws[])(Input &, const QLocale &) = {roundTrips, reads, readsJson};
    const auto law = input.number<uchar>() % std::size(laws);
    laws[law](input, input.locale());
    return 0;
}
