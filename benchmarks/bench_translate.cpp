// The words of a key beside Qt's look-up in the same catalogue, and an application's start beside
// the catalogues that it has to load in any case.

#include "harness.h"

#include <tavex/BinaryUnit>
#include <tavex/Bool>
#include <tavex/ConcurrenceMode>
#include <tavex/OperatingSystemType>
#include <tavex/SLocale>
#include <tavex/TavexApplication>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLibraryInfo>

using namespace Quorvex;

namespace {

const char *const Languages[] = {
    "bg", "cs", "de", "en", "es", "fr", "it", "nl", "pl", "pt", "ru", "sv", "tlh", "tr", "zh"};

/// What init() loads for \a locale when "tavex" is registered, and no more than that.
void loadBare(const QLocale &locale)
{
    const QString folder = QStringLiteral(":/translations");
    const QString suffix = QLatin1Char('_') + SLocale::name(locale);
    for (const char *name : {"Bool", "BinaryUnit", "ConcurrenceMode", "OperatingSystemType"}) {
        QTranslator language;
        static_cast<void>(language.load(QLatin1String(name) + suffix, folder));
        QTranslator english;
        if (locale != QLocale(QStringLiteral("en")))
            static_cast<void>(english.load(QLatin1String(name) + QStringLiteral("_en_US"), folder));
    }
    const QStringList folders = TavexApplication::translationPaths();
    QTranslator qt;
    if (!qt.load(
            QStringLiteral("qt") + suffix, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        for (const QString &path : folders)
            static_cast<void>(qt.load(QStringLiteral("qt") + suffix, path));
    }
    QTranslator general;
    for (const QString &path : folders) {
        if (general.load(QStringLiteral("tavex") + suffix, path))
            return;
    }
}

template <typename Start>
double seconds(const std::vector<QLocale> &locales, Start start)
{
    QElapsedTimer timer;
    timer.start();
    for (const QLocale &locale : locales)
        start(locale);
    return double(timer.nsecsElapsed()) / 1e9;
}

void translate(const Bench::Topic &topic)
{
    const QLocale before;
    TavexApplication::init(QLocale(QLocale::German));
    QTranslator catalogue;
    if (!catalogue.load(QStringLiteral(":/translations/BinaryUnit_de.qm")))
        Bench::Topic::fail(QStringLiteral("translate: the catalogue is missing"));
    QCoreApplication::installTranslator(&catalogue);
    const BinaryUnit_TR &translator = BinaryUnit_TR::instance();
    topic.compare(
        "etr() of one key", translator.keys(),
        [&](const QString &key) { return translator.etr(key); },
        Bench::Peer{"QCoreApplication::translate()",
            [](const QString &key) {
                return QCoreApplication::translate("BinaryUnit", key.toLatin1().constData());
            }},
        Bench::Yardstick{"QTranslator::translate(), no lock", [&](const QString &key) {
                             return catalogue.translate("BinaryUnit", key.toLatin1().constData());
                         }});
    QCoreApplication::removeTranslator(&catalogue);

    for (const SEnumTranslatorBase *known :
        std::initializer_list<const SEnumTranslatorBase *>{&Bool_TR::instance(),
            &ConcurrenceMode_TR::instance(), &OperatingSystemType_TR::instance()})
        static_cast<void>(known->name());
    TavexApplication::translationRegister(QStringLiteral("tavex"));
    std::vector<QLocale> locales;
    for (const char *language : Languages)
        locales.push_back(SLocale(QLatin1String(language)));
    topic.compareTimes(
        "init() in 15 languages", [&] { return seconds(locales, &TavexApplication::init); },
        Bench::Yardstick{"QTranslator::load() alone", [&] { return seconds(locales, &loadBare); }});
    QLocale::setDefault(before);
}

const Bench::Registration registration("translate", &translate);

} // namespace
