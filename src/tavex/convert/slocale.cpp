#include <tavex/convert/slocale.h>

#include <QDataStream>
#include <QDebug>

namespace Quorvex {

static QLocale klingon()
{
    return {QLocale::Language(114), QLocale::AnyScript, QLocale::AnyTerritory};
}

static QString klingonName()
{
    return QStringLiteral("tlh");
}

SLocale::SLocale(QLocale::NumberOptions options)
    : SLocale(QLocale(), options)
{
}

SLocale::SLocale(const QLocale &locale, QLocale::NumberOptions options)
    : m_locale(locale)
{
    m_locale.setNumberOptions(options);
}

SLocale::SLocale(const QString &name, QLocale::NumberOptions options)
    : SLocale(
        name.compare(klingonName(), Qt::CaseInsensitive) == 0 ? klingon() : QLocale(name), options)
{
}

QString SLocale::name(bool languageOnly) const
{
    return name(m_locale, languageOnly);
}

QString SLocale::nativeLanguageName() const
{
    return nativeLanguageName(m_locale);
}

bool SLocale::isKlingon(const QLocale &locale)
{
    return locale.language() == klingon().language();
}

QString SLocale::name(const QLocale &locale, bool languageOnly)
{
    if (isKlingon(locale))
        return klingonName();
    const QString name = locale.name();
    return languageOnly ? name.left(name.indexOf(QLatin1Char('_'))) : name;
}

QString SLocale::lcName(const QLocale &locale, bool keepUnderscore)
{
    QString result = name(locale);
    if (!keepUnderscore)
        result.replace(QLatin1Char('_'), QLatin1Char('-'));
    return result;
}

QString SLocale::nativeLanguageName(const QLocale &locale)
{
    return isKlingon(locale) ? QStringLiteral("tlhIngan Hol") : locale.nativeLanguageName();
}

QDebug operator<<(QDebug debug, const SLocale &locale)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "SLocale(" << locale.name() << ')';
    return debug;
}

QDataStream &operator<<(QDataStream &stream, const SLocale &locale)
{
    const QLocale &l = locale.m_locale;
    // Qt names C "en" there. QLocale::name() has no script.
    const bool isNamed = SLocale::isKlingon(l) || l.language() == QLocale::C;
    return stream << (isNamed ? locale.name() : l.bcp47Name())
                  << static_cast<quint32>(l.numberOptions());
}

QDataStream &operator>>(QDataStream &stream, SLocale &locale)
{
    QString name;
    quint32 options = 0;
    stream >> name >> options;
    if (stream.status() == QDataStream::Ok)
        locale = SLocale(name, QLocale::NumberOptions(QFlag(options)));
    return stream;
}

} // namespace Quorvex
