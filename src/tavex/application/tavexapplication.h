#pragma once

#include <tavex/application/senumtranslatorbase.h>
#include <tavex/core/export.h>

#include <QList>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <QTranslator>

namespace Quorvex {

/// What an application sets up once: its catalogues for the user's language.
///
/// Create the QCoreApplication, register the names of the application's catalogues, call init(),
/// and install what translations() returns; the library never installs a translator itself.
///
/// init() and translationRegister() exclude one another and may be called from any thread, also by
/// a runtime loader that init() calls. The other members take no lock.
class TAVEX_EXPORT TavexApplication
{
public:
    /// Makes \a locale the default locale, loads every registered enumeration translator for it,
    /// and makes and loads a translator for Qt's own texts and for each registered catalogue. A
    /// catalogue that is missing leaves its translator empty. A further call adds new translators;
    /// the earlier ones stay alive.
    static void init(const QLocale &locale);

    /// Registers the catalogue base name \a name, to be loaded by the next init().
    static void translationRegister(const QString &name);

    /// Registers \a translator and loads it for the default locale. It is not owned and leaves the
    /// registration when it is destroyed. Null, and one that is registered already, are ignored.
    static void translationRegister(SEnumTranslatorBase *translator);

    /// Where catalogues are searched, in this order: the application's folder, its subfolder
    /// "translations", and the resource folders ":/" and ":/translations".
    [[nodiscard]] static QStringList translationPaths();

    /// Loads the catalogue \a name for \a locale from the first of translationPaths() that has it,
    /// as QTranslator::load() looks for it: "tavex_de_DE.qm", then "tavex_de.qm". False if none has
    /// it, if \a name is empty, or if \a translator is null.
    static bool translationLoad(
        QTranslator *translator, const QString &name, const QLocale &locale);

    /// The same, but looks in the folder of Qt's own catalogues first.
    static bool qtTranslationLoad(
        QTranslator *translator, const QString &name, const QLocale &locale);

    /// The base names of Qt's own catalogues that init() loads: "qt".
    [[nodiscard]] static QStringList qtTranslatorNames();

    /// The translators that init() made, in order. The library keeps them until it is unloaded.
    [[nodiscard]] static QList<QTranslator *> translations();

private:
    friend SEnumTranslatorBase;
    static void translationUnregister(SEnumTranslatorBase *translator);
};

} // namespace Quorvex
