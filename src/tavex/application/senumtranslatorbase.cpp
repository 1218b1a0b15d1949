#include <tavex/application/senumtranslatorbase.h>

#include <tavex/application/senumruntimeloader.h>
#include <tavex/application/tavexapplication.h>
#include <tavex/convert/slocale.h>

#include <QVarLengthArray>

namespace Quorvex {
namespace {

bool loadCatalogue(
    QTranslator &translator, const QString &name, const QLocale &locale, const QString &folder)
{
    return translator.load(name + QLatin1Char('_') + SLocale::name(locale), folder);
}

/// The same as QString::toLatin1(), without an allocation for texts as short as keys are.
class Latin1
{
public:
    explicit Latin1(const QString &text)
    {
        m_bytes.reserve(text.size() + 1);
        for (const QChar c : text)
            m_bytes.append(c.unicode() > 0xFF ? '?' : c.toLatin1());
        m_bytes.append('\0');
    }
    [[nodiscard]] const char *get() const { return m_bytes.constData(); }

private:
    QVarLengthArray<char, 64> m_bytes;
};

QString lookUp(const QTranslator &translator, const QString &context, const QString &key)
{
    if (translator.isEmpty())
        return {};
    return translator.translate(Latin1(context).get(), Latin1(key).get());
}

} // namespace

SEnumTranslatorBase::SEnumTranslatorBase() = default;

SEnumTranslatorBase::~SEnumTranslatorBase()
{
    TavexApplication::translationUnregister(this);
}

bool SEnumTranslatorBase::load(const QLocale &locale, const QString &folder)
{
    const bool loaded = _load(name(), locale, folder);
    if (const auto loader = SEnumRuntimeLoader::loader(name()))
        loader->load(this);
    return loaded;
}

bool SEnumTranslatorBase::_load(const QString &name, const QLocale &locale, const QString &folder)
{
    m_runtimeTexts.clear();
    const QLocale english(QStringLiteral("en"));
    const bool loaded = loadCatalogue(m_language, name, locale, folder);
    if (locale == english)
        return loaded;
    return loadCatalogue(m_english, name, english, folder) && loaded;
}

QString SEnumTranslatorBase::etr(const QString &text, const EnumTranslationOptions &options) const
{
    const QString context = name();
    if (!text.contains(QLatin1Char(',')))
        return _translate(context, text, options);
    QStringList words = text.split(QLatin1Char(','));
    for (QString &word : words)
        word = _translate(context, word, options);
    return words.join(QStringLiteral(", "));
}

QStringList SEnumTranslatorBase::etr(
    const QStringList &texts, const EnumTranslationOptions &options) const
{
    QStringList words;
    words.reserve(texts.size());
    for (const QString &text : texts)
        words.append(etr(text, options));
    return words;
}

bool SEnumTranslatorBase::contains(const QString &key, const EnumTranslationOptions &options) const
{
    return !_translate(name(), key, options | EnumTranslationOptions::NoKeyFallback).isEmpty();
}

void SEnumTranslatorBase::insert(
    const QString &key, const QString &text, const QString &fallbackText)
{
    m_runtimeTexts.insert(key, {text, fallbackText});
}

bool SEnumTranslatorBase::remove(const QString &key)
{
    return m_runtimeTexts.remove(key);
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
    TavexApplication::translationRegister(this);
}

QString SEnumTranslatorBase::_translate(
    const QString &context, const QString &key, const EnumTranslationOptions &options) const
{
    const QString trimmed = key.trimmed();
    const auto runtime = m_runtimeTexts.constFind(trimmed);
    const bool hasRuntime = runtime != m_runtimeTexts.cend();

    QString text;
    if (testAnyFlag(options, EnumTranslationOptions::TranslateLocale)) {
        text = lookUp(m_language, context, trimmed);
        if (text.isEmpty() && hasRuntime)
            text = runtime->text;
    }
    if (testAnyFlag(options, EnumTranslationOptions::TranslateFallback) && text.isEmpty()) {
        if (hasRuntime)
            text = runtime->fallback;
        if (text.isEmpty())
            text = lookUp(m_english, context, trimmed);
    }
    if (text.isEmpty() && !testAnyFlag(options, EnumTranslationOptions::NoKeyFallback))
        text = trimmed;
    return text;
}

} // namespace Quorvex
