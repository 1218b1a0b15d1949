#include "languages.h"

#include <tavex/SLocale>
#include <tavex/TavexApplication>

#include <QCollator>
#include <QCoreApplication>

#include <algorithm>

using namespace Quorvex;

namespace {

/// Users know best which country's way of the language is theirs. For all others it is the country
/// whose words the catalogues have.
QLocale localeOf(QLocale::Language language)
{
    for (const QLocale &own : {QLocale(), QLocale::system()}) {
        if (own.language() == language)
            return own;
    }
    switch (language) {
    case QLocale::English:
        return {language, QLocale::UnitedKingdom};
    case QLocale::Portuguese:
        return {language, QLocale::Portugal};
    default:
        return {language};
    }
}

} // namespace

QList<QLocale> languages()
{
    QList<QLocale> locales;
    for (const QLocale::Language language :
        TavexApplication::translationList(QStringLiteral("tavex")))
        locales.append(localeOf(language));
    QCollator collator{QLocale(QLocale::English)};
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::sort(locales, collator,
        [](const QLocale &locale) { return SLocale::nativeLanguageName(locale); });
    return locales;
}

void setLanguage(const QLocale &locale)
{
    // The translators of earlier calls stay alive and come first.
    const qsizetype earlier = TavexApplication::translations().size();
    TavexApplication::init(locale);
    const QList<QTranslator *> translators = TavexApplication::translations();
    for (qsizetype i = 0; i < translators.size(); ++i) {
        if (i < earlier)
            QCoreApplication::removeTranslator(translators.at(i));
        else
            QCoreApplication::installTranslator(translators.at(i));
    }
}
