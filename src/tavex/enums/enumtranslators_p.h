#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

#include <mutex>

class QTranslator;

namespace Quorvex {

class SEnumTranslatorBase;

/// The lock under which tables and words are loaded. A load calls runtime loaders, which may use or
/// register anything: so there is one lock for all loads, which the same thread may take again, and
/// no other lock is held meanwhile.
std::recursive_mutex &loadLock();

/// The registered translators of enumerations. All members may be called from any thread.
class EnumTranslators
{
public:
    /// Where the library's own catalogues are.
    static QString folder() { return QStringLiteral(":/translations"); }

    /// Registers \a translator, unless it is already, and loads it for the default locale. While
    /// another thread loads, it is loaded by that one or at its first use.
    static void add(SEnumTranslatorBase *translator);

    /// Waits for a load on another thread.
    static void remove(SEnumTranslatorBase *translator);

    /// Loads all for \a locale, also those that are registered meanwhile. Under loadLock().
    static void loadAll(const QLocale &locale);

    /// The names of those for which a catalogue was missing when they were last loaded.
    static QStringList incomplete();
};

/// Loads the catalogue \a name for \a locale into \a translator from the first of \a folders that
/// has it. application/ implements it, which knows how the files of catalogues are named.
bool loadCatalogue(QTranslator &translator, const QString &name, const QLocale &locale,
    const QStringList &folders);

} // namespace Quorvex
