#include <tavex/application/tavexapplication.h>

#include <tavex/application/senvironment.h>
#include <tavex/convert/slocale.h>
#include <tavex/core/defaultlocale_p.h>
#include <tavex/core/spointer.h>
#include <tavex/core/startup_p.h>
#include <tavex/enums/enumtranslators_p.h>

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QLibraryInfo>
#include <QProcess>
#include <QSet>
#include <QThread>
#include <QVersionNumber>

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

namespace Quorvex {
namespace {

struct Identity
{
    QString build;
    QString commit;
    QString licenseKey;
};

Identity &identity()
{
    static constinit Lasting<Identity> identity;
    return identity.get();
}

/// Nothing is loaded under its mutex: a thread that registers a catalogue must not wait for a
/// loader, which might wait for that thread.
struct Registration
{
    std::mutex mutex;
    QStringList catalogues;
    QStringList missing; ///< At the latest init().
    SPointerList<QTranslator> translators;
};

constinit Lasting<Registration> registration;

QString unifiedSeparators(QString path)
{
    return path.replace(QDir::separator(), QLatin1Char('/'));
}

} // namespace

bool loadCatalogue(
    QTranslator &translator, const QString &name, const QLocale &locale, const QStringList &folders)
{
    const QString file = name + QLatin1Char('_') + SLocale::name(locale);
    const auto isLoaded = [&](const QString &folder) {
        // Of a name with a null Qt would only log that it cannot be.
        return !folder.isEmpty() && !(folder + file).contains(QChar::Null)
            && translator.load(file, folder);
    };
    return std::ranges::any_of(folders, isLoaded);
}

void TavexApplication::infoRegister(const QString &applicationName, const QString &organizationName,
    const QString &applicationVersion, const QString &build, const QString &commit)
{
    QCoreApplication::setApplicationName(applicationName);
    QCoreApplication::setOrganizationName(organizationName);
    QCoreApplication::setApplicationVersion(applicationVersion);
    identity().build = build;
    identity().commit = commit;
}

QString TavexApplication::applicationName()
{
    return QCoreApplication::applicationName();
}

QString TavexApplication::organizationName()
{
    return QCoreApplication::organizationName();
}

QString TavexApplication::applicationVersion()
{
    return QCoreApplication::applicationVersion();
}

QString TavexApplication::applicationBuild()
{
    return identity().build;
}

QString TavexApplication::applicationCommit()
{
    return identity().commit;
}

QString TavexApplication::licenseKey()
{
    return identity().licenseKey;
}

void TavexApplication::setLicenseKey(const QString &key)
{
    identity().licenseKey = key;
}

QString TavexApplication::applicationFolder()
{
    // Without an application Qt would log that there is none.
    return QCoreApplication::instance() ? unifiedSeparators(QCoreApplication::applicationDirPath())
                                        : QString();
}

QString TavexApplication::createApplicationSubfolders(const QString &base)
{
    QString path = base;
    if (path.endsWith(QDir::separator()) || path.endsWith(QLatin1Char('/')))
        path.chop(1);
    for (const QString &name : {organizationName(), applicationName()}) {
        if (!name.isEmpty())
            path += QLatin1Char('/') + name;
    }
    if (!path.contains(QChar::Null) && !QDir(path).exists())
        QDir().mkpath(path);
    return unifiedSeparators(path);
}

QString TavexApplication::userApplicationDataFolder(bool writable)
{
    return commonApplicationDataFolder(false, writable);
}

QString TavexApplication::commonApplicationDataFolder(bool common, bool writable)
{
    const auto folder =
        common ? SpecialFolder::CommonDataLocation : SpecialFolder::GenericDataLocation;
    return createApplicationSubfolders(SEnvironment::getFolder(folder, writable));
}

QString TavexApplication::copyrightString(int firstYear)
{
    const QString word = QObject::tr("Copyright");
    const int year = QDate::currentDate().year();
    const QString years =
        firstYear < 1 ? QString::number(year) : QStringLiteral("%1-%2").arg(firstYear).arg(year);
    QString text = QStringLiteral("%1 %2 %3").arg(word, years, organizationName()).trimmed();
    if (!text.endsWith(QLatin1Char('.')))
        text += QLatin1Char('.');
    return text;
}

QString TavexApplication::flagIconName(const QLocale &locale)
{
    const QString name = SLocale::name(locale);
    const QString code =
        SLocale::isKlingon(locale) ? name : name.section(QLatin1Char('_'), 1).toLower();
    return QStringLiteral(":/flags/svg/%1.svg").arg(code);
}

void TavexApplication::init(const QLocale &locale)
{
    const std::scoped_lock loading(loadLock());
    keepDefaultLocaleAtExit();
    keepDefaultLocale();
    QLocale::setDefault(locale);
    EnumTranslators::loadAll(locale);

    Registration &r = registration.get();
    std::vector<std::unique_ptr<QTranslator>> made;
    QStringList missing;
    const auto load = [&](auto *loadOne, const QString &name) {
        made.push_back(std::make_unique<QTranslator>());
        if (!loadOne(made.back().get(), name, locale))
            missing.append(name);
    };
    for (const QString &name : qtTranslatorNames())
        load(&qtTranslationLoad, name);
    const auto catalogues = [&r] {
        const std::scoped_lock lock(r.mutex);
        return r.catalogues;
    };
    for (const QString &name : catalogues())
        load(&translationLoad, name);
    const std::scoped_lock lock(r.mutex);
    r.missing = missing;
    for (std::unique_ptr<QTranslator> &translator : made)
        r.translators.add(translator.release());
}

void TavexApplication::translationRegister(const QString &name)
{
    Registration &r = registration.get();
    const std::scoped_lock lock(r.mutex);
    r.catalogues.append(name);
}

void TavexApplication::translationRegister(SEnumTranslatorBase *translator)
{
    if (translator)
        EnumTranslators::add(translator);
}

QStringList TavexApplication::missingCatalogues()
{
    Registration &r = registration.get();
    const QStringList enumerations = EnumTranslators::incomplete();
    const std::scoped_lock lock(r.mutex);
    return r.missing + enumerations;
}

QStringList TavexApplication::translationPaths()
{
    QStringList folders{QStringLiteral(":/"), EnumTranslators::folder()};
    const QString folder = applicationFolder();
    if (!folder.isEmpty())
        folders = QStringList{folder, folder + QStringLiteral("/translations")} + folders;
    return folders;
}

bool TavexApplication::translationLoad(
    QTranslator *translator, const QString &name, const QLocale &locale)
{
    return translator && !name.isEmpty()
        && loadCatalogue(*translator, name, locale, translationPaths());
}

bool TavexApplication::qtTranslationLoad(
    QTranslator *translator, const QString &name, const QLocale &locale)
{
    if (!translator)
        return false;
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    return loadCatalogue(*translator, name, locale, {folder})
        || translationLoad(translator, name, locale);
}

QStringList TavexApplication::qtTranslatorNames()
{
    return {QStringLiteral("qt")};
}

QList<QLocale::Language> TavexApplication::translationList(const QString &name)
{
    const QStringList folders = translationPaths();
    QTranslator translator;
    QSet<QLocale::Language> languages;
    for (int value = QLocale::C + 1; value <= QLocale::LastLanguage; ++value) {
        const QLocale locale(QLocale::Language(value), QLocale::AnyScript, QLocale::AnyTerritory);
        // Languages that Qt has no data for come back as another one.
        if (!languages.contains(locale.language())
            && loadCatalogue(translator, name, locale, folders))
            languages.insert(locale.language());
    }
    return languages.values();
}

QList<QTranslator *> TavexApplication::translations()
{
    Registration &r = registration.get();
    const std::scoped_lock lock(r.mutex);
    return r.translators.toList();
}

void TavexApplication::restart()
{
    if (!QCoreApplication::instance())
        return;
    const QString program = QCoreApplication::applicationFilePath();
    QStringList arguments = QCoreApplication::arguments();
    const auto native = [](QString path) {
        return path.replace(QLatin1Char('/'), QDir::separator());
    };
    if (!arguments.isEmpty()
        && native(arguments.constFirst()).compare(native(program), Qt::CaseInsensitive) == 0)
        arguments.removeFirst();
    QProcess::startDetached(program, arguments, QCoreApplication::applicationDirPath());
}

void TavexApplication::reboot(int exitCode)
{
    QCoreApplication *application = QCoreApplication::instance();
    if (!application)
        return;
    const QMetaObject::Connection atQuit = QObject::connect(application,
        &QCoreApplication::aboutToQuit, application, &TavexApplication::restart,
        static_cast<Qt::ConnectionType>(Qt::DirectConnection | Qt::SingleShotConnection));
    // Without an event loop there is nothing to quit, but a newer Qt would emit the signal at once.
    if (application->thread()->loopLevel() == 0)
        return;
    QCoreApplication::exit(exitCode);
    // From 6.5 on, the first exit() of the event loop emits the signal, and this was a later one.
    if (QLibraryInfo::version() >= QVersionNumber(6, 5) && QObject::disconnect(atQuit))
        restart();
}

} // namespace Quorvex
