#include <tavex/numeric/realtext_p.h>

#include <QStringList>

#include <cmath>

namespace Quorvex {
namespace {

/// Whether Qt reads what it writes itself: in some locales it does not know its own signs.
bool isReadable(const QLocale &locale)
{
    bool ok = false;
    static_cast<void>(locale.toDouble(locale.toString(-1e300), &ok));
    return ok;
}

bool read(const QString &text, double &number, const QLocale &locale)
{
    bool ok = false;
    number = locale.toDouble(text, &ok);
    if (!ok && !isReadable(locale))
        number = QLocale::c().toDouble(text, &ok);
    return ok;
}

QString write(double number, QLocale locale)
{
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    QString text = locale.toString(number, 'g', QLocale::FloatingPointShortest);
    double again = 0;
    if (read(text, again, locale) && (again == number || std::isnan(number)))
        return text;
    return QLocale::c().toString(number, 'g', QLocale::FloatingPointShortest);
}

} // namespace

QString RealText::join(std::span<const double> numbers, const QLocale &locale)
{
    QStringList texts;
    for (const double number : numbers)
        texts.append(write(number, locale));
    return texts.join(QStringLiteral("; "));
}

bool RealText::split(const QString &text, std::span<double> numbers, const QLocale &locale)
{
    const QStringList texts = text.split(QLatin1Char(';'));
    if (texts.size() != qsizetype(numbers.size()))
        return false;
    auto number = numbers.begin();
    for (const QString &part : texts) {
        if (!read(part.trimmed(), *number++, locale))
            return false;
    }
    return true;
}

} // namespace Quorvex
