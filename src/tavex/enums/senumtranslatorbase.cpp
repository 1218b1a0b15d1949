#include <tavex/enums/senumtranslatorbase.h>

#include <tavex/core/startup_p.h>
#include <tavex/enums/enumtranslators_p.h>
#include <tavex/enums/senumruntimeloader.h>

#include <QByteArray>
#include <QHash>
#include <QScopeGuard>
#include <QSet>
#include <QTranslator>
#include <QVarLengthArray>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <thread>
#include <utility>

namespace Quorvex {
namespace {

/// Lets in any number of look-ups at a time, or one change. A change that waits goes before new
/// look-ups. Under std::shared_mutex, which lets readers overtake a waiting writer, threads that
/// look up all the time would keep it waiting for ever.
class WordsLock
{
public:
    void lock_shared() noexcept
    {
        while (m_state.fetch_add(1, std::memory_order_acquire) & Change) {
            m_state.fetch_sub(1, std::memory_order_relaxed);
            const std::scoped_lock untilChanged(m_changes);
        }
    }
    void unlock_shared() noexcept { m_state.fetch_sub(1, std::memory_order_release); }

    void lock() noexcept
    {
        m_changes.lock();
        m_state.fetch_or(Change, std::memory_order_relaxed);
        while (m_state.load(std::memory_order_acquire) != Change)
            std::this_thread::yield();
    }
    void unlock() noexcept
    {
        m_state.fetch_and(~Change, std::memory_order_release);
        m_changes.unlock();
    }

private:
    static constexpr quint32 Change = 0x80000000;

    std::atomic<quint32> m_state = 0; ///< The number of look-ups, and Change.
    std::mutex m_changes;
};

/// One for all translators. While it is held, no other lock is taken and no code of an application
/// called.
constinit Lasting<WordsLock> wordsLock;

/// The same as QString::toLatin1(), but short texts, such as keys, need no allocation.
class Latin1
{
public:
    explicit Latin1(QStringView text)
        : m_bytes(text.size() + 1)
    {
        char *const end = std::transform(text.begin(), text.end(), m_bytes.begin(),
            [](QChar c) { return c.unicode() > 0xFF ? '?' : c.toLatin1(); });
        *end = '\0';
    }
    [[nodiscard]] const char *get() const { return m_bytes.constData(); }

private:
    QVarLengthArray<char, 64> m_bytes;
};

/// Null if there is no such catalogue.
using Catalogue = std::shared_ptr<const QTranslator>;

Catalogue catalogue(const QString &name, const QLocale &locale, const QString &folder)
{
    auto catalogue = std::make_shared<QTranslator>();
    return loadCatalogue(*catalogue, name, locale, {folder}) ? catalogue : Catalogue();
}

struct Words
{
    struct Texts
    {
        QString text;
        QString fallback;
    };

    Catalogue language;
    Catalogue english;
    QHash<QString, Texts> runtimeTexts;

    [[nodiscard]] QString translate(
        const char *context, const QString &key, const EnumTranslationOptions &options) const
    {
        const Latin1 source(QStringView(key).trimmed());
        const auto lookUp = [&](const Catalogue &catalogue) {
            return catalogue ? catalogue->translate(context, source.get()) : QString();
        };
        const bool isLocaleWanted = testAnyFlag(options, EnumTranslationOptions::TranslateLocale);

        QString text;
        if (isLocaleWanted)
            text = lookUp(language);
        if (!text.isEmpty())
            return text;
        const QString trimmed = key.trimmed();
        const Texts runtime = runtimeTexts.value(trimmed);
        if (isLocaleWanted)
            text = runtime.text;
        if (testAnyFlag(options, EnumTranslationOptions::TranslateFallback) && text.isEmpty())
            text = runtime.fallback.isEmpty() ? lookUp(english) : runtime.fallback;
        if (text.isEmpty() && !testAnyFlag(options, EnumTranslationOptions::NoKeyFallback))
            text = trimmed;
        return text;
    }

    /// Several keys are separated by commas.
    [[nodiscard]] QString translateAll(
        const char *context, const QString &text, const EnumTranslationOptions &options) const
    {
        if (!text.contains(QLatin1Char(',')))
            return translate(context, text, options);
        QStringList words = text.split(QLatin1Char(','));
        for (QString &word : words)
            word = translate(context, word, options);
        return words.join(QStringLiteral(", "));
    }
};

} // namespace

struct Q_DECL_HIDDEN SEnumTranslatorBase::Private
{
    SEnumTranslatorBase *const translator;

    enum State : quint8 { NotRegistered, NotLoaded, Ready };
    std::atomic<State> state = NotRegistered;

    // Set before it is registered.
    QString name = {};
    QByteArray context = {};

    bool isLoading = false;                 ///< Under loadLock().
    std::atomic<bool> isIncomplete = false; ///< A catalogue was missing at the last load.

    // Under wordsLock.
    Words words = {};
    std::optional<Words> draft = {}; ///< What a runtime loader adds to; made under loadLock(), too.
    std::thread::id loader = {};

    [[nodiscard]] bool isLoader() const { return draft && loader == std::this_thread::get_id(); }

    /// Calls \a function with the present words and their context.
    template <typename Function>
    [[nodiscard]] auto lookUp(Function function) const
    {
        loadFirst();
        QByteArray own;
        if (state == NotRegistered)
            own = translator->name().toLatin1();
        const char *const source = own.isNull() ? context.constData() : own.constData();
        const std::shared_lock lock(wordsLock.get());
        return function(isLoader() ? *draft : words, source);
    }

    /// Changes the present words. If another thread is loading, its draft is changed as well, or
    /// the change would be lost when the draft replaces the words.
    template <typename Function>
    bool change(Function function)
    {
        const auto isBeingLoaded = [this] {
            const std::shared_lock lock(wordsLock.get());
            return draft.has_value();
        };
        if (!isBeingLoaded())
            loadFirst();
        const std::scoped_lock lock(wordsLock.get());
        const bool result = draft && function(*draft);
        return isLoader() ? result : function(words);
    }

    /// Loads a registered translator that nobody has loaded yet.
    void loadFirst() const
    {
        if (state.load(std::memory_order_acquire) != NotLoaded)
            return;
        const std::scoped_lock lock(loadLock());
        if (state == NotLoaded && !isLoading)
            translator->load(QLocale(), EnumTranslators::folder());
    }

    void beginLoad()
    {
        const std::scoped_lock lock(wordsLock.get());
        draft = words;
        loader = std::this_thread::get_id();
    }

    void endLoad()
    {
        isLoading = false;
        if (draft) {
            Words finished; // Destroys the words of before after the lock is released.
            const std::scoped_lock lock(wordsLock.get());
            finished = std::move(*draft);
            draft.reset();
            std::swap(words, finished);
        }
        State before = NotLoaded;
        state.compare_exchange_strong(before, Ready);
    }
};

SEnumTranslatorBase::SEnumTranslatorBase()
    : d(new Private{this})
{
}

SEnumTranslatorBase::~SEnumTranslatorBase()
{
    if (d->state != Private::NotRegistered)
        EnumTranslators::remove(this);
}

bool SEnumTranslatorBase::load(const QLocale &locale, const QString &folder)
{
    const std::scoped_lock lock(loadLock());
    // A runtime loader may call this for the translator that it is called for: same draft.
    const bool isOutermost = !std::exchange(d->isLoading, true);
    const auto end = qScopeGuard([&] {
        if (isOutermost)
            d->endLoad();
    });
    // Not name() once it is registered: another thread may be in the destructor, which waits for
    // the lock, and then the derived class is gone.
    const QString ownName = d->state == Private::NotRegistered ? name() : d->name;
    const auto loader = SEnumRuntimeLoader::loader(ownName);
    if (loader && !d->draft)
        d->beginLoad();
    const bool loaded = _load(ownName, locale, folder);
    d->isIncomplete = !loaded;
    if (loader)
        loader->load(this);
    return loaded;
}

bool SEnumTranslatorBase::_load(const QString &name, const QLocale &locale, const QString &folder)
{
    const std::scoped_lock lock(loadLock());
    const QLocale english(QStringLiteral("en"));
    const bool isEnglish = locale == english;
    Words loaded;
    loaded.language = catalogue(name, locale, folder);
    if (!isEnglish)
        loaded.english = catalogue(name, english, folder);
    const bool isComplete = loaded.language && (isEnglish || loaded.english);
    {
        const std::scoped_lock change(wordsLock.get());
        Words &words = d->draft ? *d->draft : d->words;
        if (isEnglish)
            loaded.english = words.english;
        std::swap(words, loaded);
    }
    return isComplete;
}

QString SEnumTranslatorBase::etr(const QString &text, const EnumTranslationOptions &options) const
{
    return d->lookUp([&](const Words &words, const char *context) {
        return words.translateAll(context, text, options);
    });
}

QStringList SEnumTranslatorBase::etr(
    const QStringList &texts, const EnumTranslationOptions &options) const
{
    return d->lookUp([&](const Words &words, const char *context) {
        QStringList result;
        result.reserve(texts.size());
        for (const QString &text : texts)
            result.append(words.translateAll(context, text, options));
        return result;
    });
}

bool SEnumTranslatorBase::contains(const QString &key, const EnumTranslationOptions &options) const
{
    return d->lookUp([&](const Words &words, const char *context) {
        const auto all = options | EnumTranslationOptions::NoKeyFallback;
        return !words.translate(context, key, all).isEmpty();
    });
}

QString SEnumTranslatorBase::wordsToKeys(const QString &words) const
{
    const QStringList all = keys();
    const QStringList known = etr(all);
    const auto toKey = [&](const QString &word) {
        const auto found = std::ranges::find_if(known,
            [&](const QString &entry) { return entry.compare(word, Qt::CaseInsensitive) == 0; });
        return found == known.end() ? word : all.at(found - known.begin());
    };
    QStringList parts{words.trimmed()};
    if (!known.contains(parts.constFirst(), Qt::CaseInsensitive))
        parts = words.split(QLatin1Char(','));
    for (QString &part : parts)
        part = toKey(part.trimmed());
    return parts.join(QLatin1Char(','));
}

void SEnumTranslatorBase::insert(
    const QString &key, const QString &text, const QString &fallbackText)
{
    d->change([&](Words &words) {
        words.runtimeTexts.insert(key, {text, fallbackText});
        return true;
    });
}

bool SEnumTranslatorBase::remove(const QString &key)
{
    return d->change([&](Words &words) { return words.runtimeTexts.remove(key); });
}

QString SEnumTranslatorBase::translateStringFormat() const
{
    return QStringLiteral("{T:%1}").arg(name());
}

bool SEnumTranslatorBase::useTranslation(const QString &text, const QLocale &locale) const
{
    return locale == QLocale()
        && (text.contains(QLatin1String("{T:All}")) || text.contains(translateStringFormat()));
}

void SEnumTranslatorBase::translationRegister()
{
    if (d->state.load(std::memory_order_acquire) == Private::NotRegistered)
        EnumTranslators::add(this);
}

namespace {

/// Nothing is loaded under its mutex: a thread that registers a translator must not wait for a
/// loader, which might wait for that thread.
struct Registry
{
    // Made before the registry, it is destroyed after it: the last translator to leave needs it.
    std::recursive_mutex &load = loadLock();
    std::mutex mutex;
    QList<SEnumTranslatorBase *> translators;
};

constinit Lasting<Registry> registry;

} // namespace

std::recursive_mutex &loadLock()
{
    static constinit Lasting<std::recursive_mutex> lock;
    return lock.get();
}

void EnumTranslators::add(SEnumTranslatorBase *translator)
{
    Registry &r = registry.get();
    SEnumTranslatorBase::Private &d = *translator->d;
    const QString name = translator->name();
    {
        const std::scoped_lock lock(r.mutex);
        if (r.translators.contains(translator))
            return;
        d.name = name;
        d.context = name.toLatin1();
        d.state = SEnumTranslatorBase::Private::NotLoaded;
        r.translators.append(translator);
    }
    const std::unique_lock lock(r.load, std::try_to_lock);
    if (lock)
        d.loadFirst();
}

void EnumTranslators::remove(SEnumTranslatorBase *translator)
{
    Registry *const r = registry.peek();
    if (!r)
        return; // The library is being unloaded.
    const std::scoped_lock lock(r->load, r->mutex);
    r->translators.removeOne(translator);
}

void EnumTranslators::loadAll(const QLocale &locale)
{
    Registry &r = registry.get();
    QSet<SEnumTranslatorBase *> loaded;
    const auto next = [&]() -> SEnumTranslatorBase * {
        const std::scoped_lock lock(r.mutex);
        const auto found = std::ranges::find_if_not(
            r.translators, [&](auto *translator) { return loaded.contains(translator); });
        return found == r.translators.end() ? nullptr : *found;
    };
    while (SEnumTranslatorBase *const translator = next()) {
        loaded.insert(translator);
        translator->load(locale, folder());
    }
}

QStringList EnumTranslators::incomplete()
{
    Registry &r = registry.get();
    const std::scoped_lock lock(r.mutex);
    QStringList names;
    for (const SEnumTranslatorBase *const translator : r.translators) {
        if (translator->d->isIncomplete)
            names.append(translator->d->name);
    }
    return names;
}

} // namespace Quorvex
