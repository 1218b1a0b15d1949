#pragma once

#include <tavex/core/export.h>
#include <tavex/enums/enumtranslationoptions.h>

#include <QLocale>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace Quorvex {

/// Turns the keys of one enumeration into words of the current language.
///
/// The words come from the enumeration's catalogue ("Bool_de.qm": the context is the enumeration's
/// name, the source text is the key), from texts added at run time, and from the English catalogue.
/// A translator registers itself with TavexApplication, which loads it then and at every
/// TavexApplication::init().
///
/// Look-ups and changes may run on any thread, in any order. While catalogues are loaded, a look-up
/// sees the words of before, until all of the new ones are there. Only a runtime loader that looks
/// something up while it is called sees what is loaded so far.
class TAVEX_EXPORT SEnumTranslatorBase
{
public:
    /// The words of the language, else those of the fallback, else the key.
    [[nodiscard]] static constexpr EnumTranslationOptions defaultOptions() noexcept
    {
        return EnumTranslationOptions::TranslateLocale | EnumTranslationOptions::TranslateFallback;
    }

    Q_DISABLE_COPY_MOVE(SEnumTranslatorBase)
    /// Also takes the translator out of the registration. Waits for a load on another thread.
    virtual ~SEnumTranslatorBase();

    /// The enumeration's name: the base name of its catalogues, and their context.
    [[nodiscard]] virtual QString name() const = 0;
    /// The keys that can be translated.
    [[nodiscard]] virtual QStringList keys() const = 0;
    /// The header that declares the enumeration, below its library's source root and without
    /// extension, such as "enums/bool".
    [[nodiscard]] virtual QString headerPath() const = 0;

    /// Loads the catalogues for \a locale and English from \a folder, in place of those loaded
    /// before, and the texts of the runtime loader. False when a catalogue is missing; look-ups
    /// then fall through to the next source. Waits for other threads that load.
    bool load(const QLocale &locale, const QString &folder);

    /// The words of a key, or of several keys separated by commas, which are then joined by ", ".
    [[nodiscard]] QString etr(
        const QString &text, const EnumTranslationOptions &options = defaultOptions()) const;
    /// The words of each of \a texts.
    [[nodiscard]] QStringList etr(
        const QStringList &texts, const EnumTranslationOptions &options = defaultOptions()) const;

    /// Whether there are words for \a key, which may be the same as the key.
    [[nodiscard]] bool contains(
        const QString &key, const EnumTranslationOptions &options = defaultOptions()) const;

    /// The inverse of etr(): \a words with a key in place of each that etr() gives for one of
    /// keys(), in upper or lower case. Several are separated by commas. What is no such word stays.
    [[nodiscard]] QString wordsToKeys(const QString &words) const;

    /// Sets the run-time texts of \a key: in the current language, and the fallback. They are lost
    /// at the next load; ISEnumRuntimeLoader adds them anew each time.
    void insert(const QString &key, const QString &text, const QString &fallbackText);
    /// False when \a key has no run-time texts.
    bool remove(const QString &key);

    /// The marker by which a text asks for the words of this enumeration, such as "{T:Bool}".
    [[nodiscard]] QString translateStringFormat() const;

    /// Whether \a text asks for translation, by the marker or by "{T:All}", and \a locale is the
    /// default locale, in whose language the words are.
    [[nodiscard]] bool useTranslation(const QString &text, const QLocale &locale = QLocale()) const;

protected:
    SEnumTranslatorBase();

    /// The first half of load(): loads the catalogues of \a name and removes the run-time texts.
    bool _load(const QString &name, const QLocale &locale, const QString &folder);

    /// Registers the translator and loads it for the default locale. To be called by the most
    /// derived class when it is constructed.
    void translationRegister();

private:
    friend class EnumTranslators;
    struct Private;
    const std::unique_ptr<Private> d;
};

/// The translator of the enumeration whose key table is \a Table.
template <typename Table>
class SEnumTranslator : public SEnumTranslatorBase
{
public:
    /// The value of \a words of the current language, or of keys; as SEnumBase::keysToValue().
    [[nodiscard]] std::optional<typename Table::Enum> wordsToValue(const QString &words) const
    {
        return Table::instance().keysToValue(wordsToKeys(words));
    }

    /// That of the key table.
    [[nodiscard]] QString name() const override { return Table::instance().name(); }
    /// Those of the key table.
    [[nodiscard]] QStringList keys() const override { return Table::instance().keys(); }
    /// The name in lower case, in the folder "enums".
    [[nodiscard]] QString headerPath() const override
    {
        return QStringLiteral("enums/") + name().toLower();
    }
};

} // namespace Quorvex

/// Declares Name_TR, the translator of an enumeration that has a key table Name_T; followed by a
/// semicolon. There is nothing else to define.
#define TAVEX_ENUM_TRANSLATOR(Name)                                                                \
    /** The words of Name in the current language. */                                              \
    class Name##_TR final : public Quorvex::SEnumTranslator<Name##_T>                              \
    {                                                                                              \
    public:                                                                                        \
        /** The one translator, made and loaded at first use. */                                   \
        [[nodiscard]] static Name##_TR &instance()                                                 \
        {                                                                                          \
            static Name##_TR translator;                                                           \
            translator.translationRegister(); /* Once it is there, a loader may use it. */         \
            return translator;                                                                     \
        }                                                                                          \
                                                                                                   \
    private:                                                                                       \
        Name##_TR() = default;                                                                     \
    }

/// The same for an enumeration that TAVEX_EXPORTED_ENUM() declares; a source of the library defines
/// Name_TR::instance().
#define TAVEX_EXPORTED_ENUM_TRANSLATOR(EXPORT, Name)                                               \
    /** The words of Name in the current language. */                                              \
    class EXPORT Name##_TR final : public Quorvex::SEnumTranslator<Name##_T>                       \
    {                                                                                              \
    public:                                                                                        \
        /** The one translator, made and loaded at first use. */                                   \
        [[nodiscard]] static Name##_TR &instance();                                                \
                                                                                                   \
    private:                                                                                       \
        Name##_TR() = default;                                                                     \
    }
