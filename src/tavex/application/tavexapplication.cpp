#include <tavex/application/tavexapplication.h>

#include <tavex/application/senvironment.h>
#include <tavex/convert/slocale.h>
#include <tavex/core/spointer.h>

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QLibraryInfo>
#include <QProcess>
#include <QSet>
#include <QThread>
#include <QVersionNumber>

#include <algorithm>
#include <mutex>

namespace Quorvex {
namespace {

const QString &catalogueFolder()
{
    static const QString folder = QStringLiteral(":/translations");
    return folder;
}

struct Identity
{
    QString build;
    QString commit;
    QString licenseKey;
};

Identity &identity()
{
    static Identity identity;
    return identity;
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

/// Loads the catalogue \a file into \a translator from the first of \a folders that has it.
bool loadFrom(QTranslator &translator, const QString &file, const QStringList &folders)
{
    return std::ranges::any_of(
        folders, [&](const QString &folder) { return translator.load(file, folder); });
}

} // namespace

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
    return unifiedSeparators(QCoreApplication::applicationDirPath());
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
    if (!QDir(path).exists())
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
    const QString folder = applicationFolder();
    return {
        folder, folder + QStringLiteral("/translations"), QStringLiteral(":/"), catalogueFolder()};
}

bool TavexApplication::translationLoad(
    QTranslator *translator, const QString &name, const QLocale &locale)
{
    return translator && !name.isEmpty()
        && loadFrom(*translator, catalogueFile(name, locale), translationPaths());
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

QList<QLocale::Language> TavexApplication::translationList(const QString &name)
{
    const QStringList folders = translationPaths();
    QTranslator translator;
    QSet<QLocale::Language> languages;
    for (int value = QLocale::C + 1; value <= QLocale::LastLanguage; ++value) {
        const QLocale locale(QLocale::Language(value), QLocale::AnyScript, QLocale::AnyTerritory);
        // Languages that Qt has no data for come back as another one.
        if (!languages.contains(locale.language())
            && loadFrom(translator, catalogueFile(name, locale), folders))
            languages.insert(locale.language());
    }
    return languages.values();
}

QList<QTranslator *> TavexApplication::translations()
{
    return registration().translators.toList();
}

void TavexApplication::restart()
{
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
    // Without an event loop nothing quits, though newer Qt would emit the signal.
    if (application->thread()->loopLevel() == 0)
        return;
    QCoreApplication::exit(exitCode);
    // From 6.5 on it comes within exit(), but only within the first call, even of someone else.
    if (QLibraryInfo::version() >= QVersionNumber(6, 5) && QObject::disconnect(atQuit))
        restart();
}

} // namespace Quorvex
