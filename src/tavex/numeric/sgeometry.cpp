#include <tavex/numeric/sgeometry.h>

#include <tavex/convert/sconvert.h>
#include <tavex/core/sclassname.h>

#include <QDebug>
#include <QStringList>

namespace Quorvex {

QString RealText::join(std::span<const qreal> numbers, QLocale locale)
{
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    QStringList texts;
    for (const qreal number : numbers)
        texts.append(SConvert::toString(number, locale));
    return texts.join(QStringLiteral("; "));
}

bool RealText::split(const QString &text, std::span<qreal> numbers, const QLocale &locale)
{
    const QStringList texts = text.split(QLatin1Char(';'));
    if (texts.size() != qsizetype(numbers.size()))
        return false;
    auto number = numbers.begin();
    for (const QString &part : texts) {
        bool ok = false;
        *number++ = SConvert::toDouble(part.trimmed(), &ok, locale);
        if (!ok)
            return false;
    }
    return true;
}

void RealText::write(QDebug &debug, const std::type_info &type, std::span<const qreal> numbers)
{
    const QDebugStateSaver saver(debug);
    const char *separator = "(";
    debug.nospace().noquote() << SClassName::name(type);
    for (const qreal number : numbers) {
        debug << separator << number;
        separator = ", ";
    }
    debug << ')';
}

} // namespace Quorvex
