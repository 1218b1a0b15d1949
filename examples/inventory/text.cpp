#include "text.h"

#include <tavex/BinaryUnit>
#include <tavex/SLocale>
#include <tavex/SUnitConvert>

using namespace Quorvex;

QString languageArgument(const QStringList &arguments)
{
    const QString option = QStringLiteral("--lang");
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        if (arguments.at(i) == option && i + 1 < arguments.size())
            return arguments.at(i + 1);
        if (arguments.at(i).startsWith(option + QLatin1Char('=')))
            return arguments.at(i).mid(option.size() + 1);
    }
    return {};
}

QLocale languageLocale(const QString &name)
{
    const QLocale locale = name.isEmpty() ? QLocale::system() : SLocale(name).locale();
    return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

QString readableSize(qint64 bytes, const QLocale &locale)
{
    auto number = static_cast<double>(bytes);
    const BinaryUnit unit = SUnitConvert::autoBinaryUnits(number, BinaryUnit::Byte);
    const QString word = BinaryUnit_TR::instance().etr(BinaryUnit_T::instance().toString(unit));
    const int decimals = unit == BinaryUnit::Byte ? 0 : 1;
    return QStringLiteral("%1 %2").arg(locale.toString(number, 'f', decimals), word);
}

QString crcText(uint crc)
{
    return QStringLiteral("%1").arg(crc, 8, 16, QLatin1Char('0'));
}
