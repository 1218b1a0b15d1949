#include <tavex/application/tavexapplication.h>

#include <tavex/convert/slocale.h>
#include <tavex/core/spointer.h>

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>

#include <algorithm>
#include <mutex>

namespace Quorvex {
namespace {

const QString &catalogueFolder()
{
    static const QString folder = QStringLiteral(":/translations");
    return folder;
}

struct Registration
{
    // Recursive: a runtime loader may register something, or use a translator for the first time,
    // while init() loads.
    std::recursive_mutex mutex;
    QList<SEnumTranslatorBase *> enumTranslators;
    QStringList catalogues;
    SPointerList<QTranslator> translators;
};

Registration &registration()
{
    static Registration registration;
    return registration;
}

QString unifiedSeparators(QString path)
{
    return path.replace(QDir::separator(), QLatin1Char('/'));
}

QString catalogueFile(const QString &name, const QLocale &locale)
{
    return name + QLatin1Char('_') + SLocale::name(locale);
}

QTranslator *addTranslator(Registration &r)
{
    auto *translator = new QTranslator;
    r.translators.add(translator);
    return translator;
}

} // namespace

void TavexApplication::init(const QLocale &locale)
{
    Registration &r = registration();
    const std::scoped_lock lock(r.mutex);
    QLocale::setDefault(locale);
    // By index: the lists may grow while a translator loads.
    for (qsizetype i = 0; i < r.enumTranslators.size(); ++i)
        r.enumTranslators.at(i)->load(locale, catalogueFolder());
    for (const QString &name : qtTranslatorNames())
        qtTranslationLoad(addTranslator(r), name, locale);
    for (qsizetype i = 0; i < r.catalogues.size(); ++i)
        translationLoad(addTranslator(r), r.catalogues.at(i), locale);
}

void TavexApplication::translationRegister(const QString &name)
{
    Registration &r = registration();
    const std::scoped_lock lock(r.mutex);
    r.catalogues.append(name);
}

void TavexApplication::translationRegister(SEnumTranslatorBase *translator)
{
    Registration &r = registration();
    const std::scoped_lock lock(r.mutex);
    if (!translator || r.enumTranslators.contains(translator))
        return;
    r.enumTranslators.append(translator);
    translator->load(QLocale(), catalogueFolder());
}

void TavexApplication::translationUnregister(SEnumTranslatorBase *translator)
{
    Registration &r = registration();
    const std::scoped_lock lock(r.mutex);
    r.enumTranslators.removeOne(translator);
}

QStringList TavexApplication::translationPaths()
{
    const QString folder = unifiedSeparators(QCoreApplication::applicationDirPath());
    return {
        folder, folder + QStringLiteral("/translations"), QStringLiteral(":/"), catalogueFolder()};
}

bool TavexApplication::translationLoad(
    QTranslator *translator, const QString &name, const QLocale &locale)
{
    if (!translator || name.isEmpty())
        return false;
    const QString file = catalogueFile(name, locale);
    return std::ranges::any_of(
        translationPaths(), [&](const QString &folder) { return translator->load(file, folder); });
}

bool TavexApplication::qtTranslationLoad(
    QTranslator *translator, const QString &name, const QLocale &locale)
{
    if (!translator)
        return false;
    return translator->load(
               catalogueFile(name, locale), QLibraryInfo::path(QLibraryInfo::TranslationsPath))
        || translationLoad(translator, name, locale);
}

QStringList TavexApplication::qtTranslatorNames()
{
    return {QStringLiteral("qt")};
}

QList<QTranslator *> TavexApplication::translations()
{
    return registration().translators.toList();
}

} // namespace Quorvex
