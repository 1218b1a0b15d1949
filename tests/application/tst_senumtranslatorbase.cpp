#include <tavex/Bool>
#include <tavex/ISEnumRuntimeLoader>
#include <tavex/SEnumHelper>
#include <tavex/SEnumRuntimeLoader>
#include <tavex/SEnumTranslatorBase>
#include <tavex/SLocale>
#include <tavex/TavexApplication>

#include <QBuffer>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Quorvex;

namespace {

using enum EnumTranslationOptions;
const QString Catalogues = QStringLiteral(":/translations");

/// Borrows the catalogues of Bool under an object of its own.
class Translator : public SEnumTranslatorBase
{
public:
    explicit Translator(QString name = QStringLiteral("Bool"))
        : m_name(std::move(name))
    {
        translationRegister();
    }
    [[nodiscard]] QString name() const override { return m_name; }
    [[nodiscard]] QStringList keys() const override { return {}; }
    [[nodiscard]] QString headerPath() const override { return {}; }

private:
    QString m_name;
};

/// Does while it is called what a careless one might: registers and unregisters translators.
class ReentrantLoader : public ISEnumRuntimeLoader
{
public:
    void load(SEnumTranslatorBase *translator) override
    {
        ++loads;
        translator->insert(QStringLiteral("Maybe"), QStringLiteral("Vielleicht"), {});
        const Translator other(QStringLiteral("Other"));
        TavexApplication::translationRegister(QStringLiteral("none"));
    }
    void loadKeys(ISEnum *) override { }
    [[nodiscard]] QString name() const override { return QStringLiteral("Reentrant"); }

    static inline int loads = 0;
};

QString key(const char *text)
{
    return QString::fromLatin1(text);
}

} // namespace

class TestSEnumTranslatorBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { TavexApplication::init(QLocale(QLocale::German)); }

    void looksUpInOrder()
    {
        Translator translator;
        QCOMPARE(translator.etr(key("True")), QStringLiteral("Wahr"));
        QCOMPARE(translator.etr(key(" True\t")), QStringLiteral("Wahr"));
        QCOMPARE(translator.etr(key("True"), TranslateFallback), QStringLiteral("True"));
        QCOMPARE(translator.etr(key("True"), EnumTranslationOptions{}), QStringLiteral("True"));
        QVERIFY(translator.etr(key("True"), NoKeyFallback).isEmpty());

        QCOMPARE(translator.etr(key(" Maybe ")), QStringLiteral("Maybe"));
        QVERIFY(translator.etr(key("Maybe"), Translator::DefaultOptions | NoKeyFallback).isEmpty());
        QVERIFY(!translator.contains(key("Maybe")) && translator.contains(key("True")));

        // The catalogue goes before the run-time text, the run-time fallback before English.
        translator.insert(key("True"), key("run time"), key("fallback"));
        QCOMPARE(translator.etr(key("True")), QStringLiteral("Wahr"));
        QCOMPARE(translator.etr(key("True"), TranslateFallback), QStringLiteral("fallback"));
        translator.insert(key("Maybe"), QString(), key("fallback"));
        QCOMPARE(translator.etr(key("Maybe")), QStringLiteral("fallback"));
        translator.insert(key("Maybe"), key("run time"), QString());
        QCOMPARE(translator.etr(key("Maybe")), QStringLiteral("run time"));
        QVERIFY(translator.remove(key("Maybe")) && !translator.remove(key("Maybe")));

        // A load empties the run-time texts.
        translator.load(QLocale(QLocale::German), Catalogues);
        QCOMPARE(translator.etr(key("True"), TranslateFallback), QStringLiteral("True"));
    }

    void listsOfKeys()
    {
        const Translator translator;
        QCOMPARE(translator.etr(key("True,False")), QStringLiteral("Wahr, Falsch"));
        QCOMPARE(translator.etr(key("A,,B")), QStringLiteral("A, , B"));
        QCOMPARE(translator.etr(QStringList{key("False"), key("x")}),
            (QStringList{QStringLiteral("Falsch"), key("x")}));
    }

    void loadTellsWhatIsMissing()
    {
        Translator translator;
        QVERIFY(translator.load(QLocale(QLocale::French, QLocale::Canada), Catalogues));
        QVERIFY(translator.load(QLocale(QStringLiteral("en")), Catalogues));
        QVERIFY(!translator.load(QLocale(QLocale::Japanese), Catalogues));
        QCOMPARE(translator.etr(key("True")), QStringLiteral("True"));
        QVERIFY(!translator.load(QLocale(QLocale::German), QStringLiteral(":/nowhere")));
    }

    void markers()
    {
        const Translator translator;
        const QLocale german(QLocale::German);
        QCOMPARE(translator.translateStringFormat(), QStringLiteral("{T:Bool}"));
        QVERIFY(translator.useTranslation(key("a {T:Bool} b"), german));
        QVERIFY(translator.useTranslation(key("{T:All}")));
        QVERIFY(!translator.useTranslation(key("{T:All}"), QLocale(QLocale::Dutch)));
        QVERIFY(!translator.useTranslation(key("{t:all} {T:bool} {T:BinaryUnit}")));
    }

    void translatorsOfTheLibrary()
    {
        const Bool_TR &translator = Bool_TR::instance();
        QCOMPARE(translator.name(), QStringLiteral("Bool"));
        QCOMPARE(translator.headerPath(), QStringLiteral("enums/bool"));
        QCOMPARE(translator.keys(), Bool_T::instance().keys());
        const QStringList languages =
            key("bg cs de en es fr it nl pl pt ru sv tlh tr zh").split(QLatin1Char(' '));
        QSet<QString> words;
        for (const QString &language : languages) {
            TavexApplication::init(SLocale(language));
            QTranslator catalogue;
            QVERIFY(catalogue.load(QStringLiteral(":/translations/Bool_%1.qm").arg(language)));
            QCOMPARE(translator.etr(key("True")), catalogue.translate("Bool", "True"));
            words.insert(translator.etr(key("True")));
        }
        QVERIFY(words.size() >= 13); // No two but related languages share the word.
    }

    void destroyedTranslatorLeavesNothingBehind()
    {
        auto translator = std::make_unique<Translator>();
        TavexApplication::translationRegister(translator.get());
        TavexApplication::translationRegister(static_cast<SEnumTranslatorBase *>(nullptr));
        translator.reset();
        TavexApplication::init(QLocale(QLocale::German));
    }

    void loaderMayRegisterWhileInitRuns()
    {
        SEnumRuntimeLoader::loaderRegister(new ReentrantLoader);
        const Translator translator(QStringLiteral("Reentrant"));
        QCOMPARE(ReentrantLoader::loads, 1);
        TavexApplication::translationRegister(const_cast<Translator *>(&translator));
        QCOMPARE(ReentrantLoader::loads, 1);
        TavexApplication::init(QLocale(QLocale::Italian));
        QCOMPARE(ReentrantLoader::loads, 2);
        QCOMPARE(translator.etr(key("Maybe")), QStringLiteral("Vielleicht"));
    }

    void writeTranslatorXML()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("a.ts"));
        QVERIFY(SEnumHelper::writeTranslatorXML(file, QStringLiteral("longer than the next")));
        QVERIFY(SEnumHelper::writeTranslatorXML(file, QStringLiteral(u"<TS>\u00E4</TS>")));
        QFile written(file);
        QVERIFY(written.open(QIODevice::ReadOnly));
        QCOMPARE(written.readAll(), QByteArray("<TS>\xC3\xA4</TS>"));
        QVERIFY(!SEnumHelper::writeTranslatorXML(folder.filePath(QStringLiteral("no/a.ts")), file));
        QVERIFY(!SEnumHelper::writeTranslatorXML(static_cast<QIODevice *>(nullptr), file));
        QBuffer device;
        QVERIFY(SEnumHelper::writeTranslatorXML(&device, QStringLiteral("x")));
        QVERIFY(!device.isOpen() && device.data() == "x");
    }
};

QTEST_GUILESS_MAIN(TestSEnumTranslatorBase)
#include "tst_senumtranslatorbase.moc"
