#pragma once

#include <tavex/core/export.h>
#include <tavex/enums/senumtranslatorbase.h>

#include <QList>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <QTranslator>

namespace Quorvex {

/// What an application sets up once: its identity, its catalogues for the user's language, its data
/// folders; and how it starts itself again.
///
/// Create the QCoreApplication, call infoRegister(), register the names of the application's
/// catalogues, call init(), and install what translations() returns; the library never installs a
/// translator itself.
///
/// init(), translationRegister(), translations() and missingCatalogues() may be called from any
/// thread, also by a runtime loader that init() calls. The other members take no lock: set the
/// identity and the licence key before other threads read them. init() sets Qt's default locale,
/// which has no lock either: other threads that may run at the same time should pass a locale in
/// their calls.
class TAVEX_EXPORT TavexApplication
{
public:
    /// Sets the names and the version of QCoreApplication, and what identifies the build and the
    /// source revision.
    static void infoRegister(const QString &applicationName, const QString &organizationName,
        const QString &applicationVersion, const QString &build, const QString &commit);

    /// What infoRegister() was given. Names and version are those of QCoreApplication, which may
    /// also be set there.
    /// @{
    [[nodiscard]] static QString applicationName();
    [[nodiscard]] static QString organizationName();
    [[nodiscard]] static QString applicationVersion();
    [[nodiscard]] static QString applicationBuild();
    [[nodiscard]] static QString applicationCommit();
    /// @}

    /// A text that the library keeps for the application and never looks at.
    /// @{
    [[nodiscard]] static QString licenseKey();
    static void setLicenseKey(const QString &key);
    /// @}

    /// The folder of the program file; empty without an application.
    [[nodiscard]] static QString applicationFolder();

    /// \a base, without a separator at its end, followed by the organisation's and the
    /// application's name as far as they are set. The folder is created with all its parents; the
    /// path is returned also if that fails.
    static QString createApplicationSubfolders(const QString &base);

    /// The application's folders for data of the user and, with \a common, of all users, created as
    /// by createApplicationSubfolders(). \a writable asks for a folder that can be written to,
    /// otherwise for the first of those that are read; see SEnvironment::getFolder().
    /// @{
    static QString userApplicationDataFolder(bool writable = true);
    static QString commonApplicationDataFolder(bool common, bool writable = true);
    /// @}

    /// "Copyright 2020-2026 Organisation.", with the current year as the last, and the first word
    /// in the language of the installed translators. Without \a firstYear (less than 1), only the
    /// current year is named.
    [[nodiscard]] static QString copyrightString(int firstYear = 0);

    /// The resource path of the flag of the territory of \a locale, ":/flags/svg/de.svg"; for
    /// Klingon ":/flags/svg/tlh.svg". There is no such resource for a territory that is not a
    /// country ("001", the world) and for the C locale, which has none (":/flags/svg/.svg").
    [[nodiscard]] static QString flagIconName(const QLocale &locale);

    /// Makes \a locale the default locale, loads every registered enumeration translator for it,
    /// and makes and loads a translator for Qt's own texts and for each registered catalogue. A
    /// catalogue that is missing leaves its translator empty. Another call adds new translators and
    /// leaves the earlier ones as they are. Waits for other threads that load.
    static void init(const QLocale &locale);

    /// The names of the catalogues that were not found, or of enumerations, for which the English
    /// one may be missing: those of Qt, those that translationRegister() was given, as of the
    /// latest init(), and those of all registered enumeration translators, as of their latest load.
    [[nodiscard]] static QStringList missingCatalogues();

    /// Registers the catalogue base name \a name, to be loaded by the next init().
    static void translationRegister(const QString &name);

    /// Registers \a translator and loads it for the default locale. If another thread is loading,
    /// this does not wait: the translator is loaded by that thread, or at its first use. The
    /// library does not own it; its destructor takes it out of the registration. Null, and a
    /// translator that is registered already, are ignored.
    static void translationRegister(SEnumTranslatorBase *translator);

    /// Where catalogues are searched, in this order: the application's folder, its subfolder
    /// "translations", and the resource folders ":/" and ":/translations"; without an application
    /// only the resource folders.
    [[nodiscard]] static QStringList translationPaths();

    /// Loads the catalogue \a name for \a locale from the first of translationPaths() that has it,
    /// as QTranslator::load() looks for it: "tavex_de_DE.qm", then "tavex_de.qm". False if none has
    /// it, if \a name is empty, or if \a translator is null. Qt does not check what is in a
    /// catalogue: a damaged file may crash the program.
    [[nodiscard]] static bool translationLoad(
        QTranslator *translator, const QString &name, const QLocale &locale);

    /// The same, but looks in the folder of Qt's own catalogues first.
    [[nodiscard]] static bool qtTranslationLoad(
        QTranslator *translator, const QString &name, const QLocale &locale);

    /// The base names of Qt's own catalogues that init() loads: "qt".
    [[nodiscard]] static QStringList qtTranslatorNames();

    /// The languages for which a catalogue \a name is found in translationPaths(), in no order.
    [[nodiscard]] static QList<QLocale::Language> translationList(const QString &name);

    /// The translators that init() made, in order. The library keeps them until it is unloaded.
    [[nodiscard]] static QList<QTranslator *> translations();

    /// Starts the program once more, detached, with the same arguments, in the folder of the
    /// program file. This process goes on, and is not told whether the start succeeded. Without an
    /// application nothing happens.
    static void restart();

    /// Ends the event loop with \a exitCode and starts the program once more when the application
    /// quits; called twice, it starts the program twice. Called before there is an event loop, it
    /// starts the program when that loop ends. Call it on the application's thread, but not from a
    /// slot of aboutToQuit(), where restart() is the right one. Without an application nothing
    /// happens.
    static void reboot(int exitCode = 0);
};

} // namespace Quorvex
