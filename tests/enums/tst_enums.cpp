#include "common.h"

#include <atomic>
#include <functional>

namespace {

using enum EnumTranslationOptions;

template <typename E>
QString printed(E value, const QLocale &locale = QLocale::c())
{
    const QVariant variant = QVariant::fromValue(value);
    const auto converter = SVariantConvert::sVariantToStringFunction(variant.userType());
    return converter ? converter(variant, "ignored"_s, locale) : "no converter"_s;
}

/// An application's own enumeration.
#define FRUIT_KEYS(KEY) KEY(Apple, 0) KEY(Pear, 200)
TAVEX_ENUM(Fruit, quint8, FRUIT_KEYS);

/// A table that nobody has read yet.
struct Fruits : SEnumBase<Fruit>
{
    Fruits()
        : SEnumBase(Fruit_T::instance().name(), Fruit_T::rows())
    {
    }
};

/// Borrows the catalogues of Bool under an object of its own.
struct Translator : SEnumTranslatorBase
{
    explicit Translator(const char *name = "Bool")
        : m_name(string(name))
    {
        translationRegister();
    }
    [[nodiscard]] QString name() const override { return m_name; }
    [[nodiscard]] QStringList keys() const override { return {}; }
    [[nodiscard]] QString headerPath() const override { return {}; }
    QString m_name;
};

/// Registers and unregisters translators while it is called, as a careless loader might.
struct FruitLoader : ISEnumRuntimeLoader
{
    void load(SEnumTranslatorBase *translator) override
    {
        ++loads;
        translator->insert("Plum"_s, "Pflaume"_s, {});
        const Translator other("Other");
        TavexApplication::translationRegister("none"_s);
    }
    void loadKeys(ISEnum *keys) override
    {
        for (const bool isNew : {true, false})
            VERIFY_ALL(keys->addKey(7, "Plum"_s) == isNew, !keys->addKey(8, QString()));
    }
    [[nodiscard]] QString name() const override { return "Fruit"_s; }

    static inline std::atomic<int> loads = 0;
};

/// Adds words in the default language, and uses the translator while that is loaded.
struct BoolLoader : ISEnumRuntimeLoader
{
    void load(SEnumTranslatorBase *translator) override
    {
        const QString language = SLocale::name(QLocale(), true);
        translator->insert("one"_s, language, {});
        seen = translator->etr("one,two"_s) + SConvert::toString(true);
        meanwhile(translator);
        translator->insert("two"_s, language, {});
    }
    void loadKeys(ISEnum *) override { seenKey = printed(Bool::True); }
    [[nodiscard]] QString name() const override { return Bool_T::instance().name(); }

    QString seen;
    QString seenKey;
    std::function<void(SEnumTranslatorBase *)> meanwhile = [](auto *) {};
};

constexpr auto look = [](const auto &...) {};

/// A translator made at first use, as every enumeration of an application has one.
Translator &madeAtFirstUse()
{
    static Translator translator("Other");
    return translator;
}

} // namespace

class TestEnums : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { SEnumRuntimeLoader::loaderRegister(m_loader); }
    void init() { TavexApplication::init(QLocale(QLocale::German)); }

    void loadersUseTheLibrary()
    {
        QCOMPARE(Bool_TR::instance().etr("one,two"_s), "de, de"_s);
        QCOMPARE(m_loader->seen + m_loader->seenKey, "de, twoWahrTrue"_s);

        // Another thread makes a translator for the first time, and init() a loader that uses it.
        std::jthread other;
        std::atomic<bool> isStarted = false;
        const auto use = [] {
            return madeAtFirstUse().etr("x"_s) + ConcurrenceMode_TR::instance().etr("Half"_s);
        };
        m_loader->meanwhile = [&](auto *) {
            other = std::jthread([&] {
                isStarted = true;
                look(use());
            });
            while (!isStarted)
                std::this_thread::yield();
            QTest::qSleep(20);
            m_loader->seen = use();
        };
        TavexApplication::init(QLocale(QLocale::Dutch));
        QCOMPARE(m_loader->seen, "xDe helft"_s);

        // A translator that goes while others are loaded keeps none of them from being loaded.
        m_loader->meanwhile = [](auto *) {};
        auto gone = std::make_unique<Translator>("Gone");
        const Translator going;
        const Translator last;
        m_loader->meanwhile = [&](auto *translator) {
            if (translator == &going)
                gone.reset();
        };
        TavexApplication::init(QLocale(QLocale::German));
        m_loader->meanwhile = [](auto *) {};
        QCOMPARE(last.etr("True"_s), "Wahr"_s);
    }

    // All words of one call are of one language, whatever other threads load or change.
    void everythingAtOnce()
    {
        std::atomic<int> mixed = 0;
        for (int round = 0; round < 20; ++round) {
            const Fruits fruits;
            Translator shared;
            const auto times = [](int n, auto function) {
                return [=] {
                    for (int i = 0; i < n; ++i)
                        function();
                };
            };
            const auto read = times(60, [&] {
                const QStringList words = shared.etr({"True,False"_s, "one,two"_s});
                mixed += words != QStringList({"Wahr, Falsch"_s, "de, de"_s})
                    && words != QStringList({"Prawda, Fałsz"_s, "pl, pl"_s});
                look(SConvert::toString(true), printed(Bool::False), fruits.toString(Fruit(7)),
                    SConvert::toBool("Wahr"_s));
            });
            const auto change = times(60, [&] {
                shared.insert("C"_s, "c"_s, {});
                look(shared.remove("C"_s));
            });
            const auto add = times(20, [&] {
                const Translator own("Fruit");
                TavexApplication::translationRegister(&shared);
                look(madeAtFirstUse().contains("Plum"_s), TavexApplication::translations());
            });
            together(read, read, read, change, add,
                times(3, [] { TavexApplication::init(QLocale(QLocale::Polish)); }),
                times(3, [] { TavexApplication::init(QLocale(QLocale::German)); }), [&] {
                    look(fruits.keys(), BinaryUnit_TR::instance().etr("KiB"_s),
                        OperatingSystemType_TR::instance().etr("Linux"_s),
                        SEnumRuntimeLoader::loader("Bool"_s));
                    // With MinGW a thread that used QRegularExpression crashes at its end.
                    if (!SSysInfo::isWindows())
                        look(SClassName::displayName("SMetaInt8"_s));
                });
        }
        QCOMPARE(mixed, 0);
    }

    // Known by name and printable before anything in this program asked for the id.
    void metaTypes()
    {
        for (const char *name : {"Bool", "MetadataFlags", "BinaryUnit", "SIPrefix", "SILengthUnit",
                 "SCSLengthUnit", "ConcurrenceMode", "SpecialFolder", "OperatingSystemType",
                 "CpuType", "CpuFeatureFlags", "ByteOrder"}) {
            const QMetaType type = QMetaType::fromName(QByteArray("Quorvex::") + name);
            const auto converter = SVariantConvert::sVariantToStringFunction(type.id());
            QVERIFY2(converter, name);
            COMPARE_ROW(name, converter(QVariant(), {}, {}), QString());
        }
    }

    void keys()
    {
        QCOMPARE(printed(Bool::True), "True"_s);
        QCOMPARE(printed(SpecialFolder::DataLocation), "AppLocalDataLocation"_s);
        QCOMPARE(printed(CpuType(-12345), QLocale(QLocale::German)), "-12.345"_s);
        QCOMPARE(printed(CpuFeatureFlags(~quint64(0))), "18446744073709551615"_s);
        QCOMPARE(printed(MetadataFlags::KillOnCopy | MetadataFlags::KillOnSave), "3"_s);
        QCOMPARE(printed(OperatingSystem::Linux), "no converter"_s);

        const auto &systems = OperatingSystem_T::instance();
        QCOMPARE(systems.toString(OperatingSystem::macOS), "OS_X"_s);
        QCOMPARE(systems.toString(OperatingSystem(0x80000FFF), QLocale::c()), "2147487743"_s);
        QCOMPARE(Bool_T::instance().keys().join(u' '), "False True"_s);
        QCOMPARE(Bool_TR::instance().keys(), Bool_T::instance().keys());
        QCOMPARE(Bool_TR::instance().headerPath(), "enums/bool"_s);
        QVERIFY(MetadataFlags_T::instance().isFlags());
        QVERIFY(!Bool_T::instance().isFlags());
        // One value has two keys.
        const QString folders = SpecialFolder_T::instance().keys().join(u' ');
        QVERIFY(folders.contains(" AppDataLocation AppLocalDataLocation "_s));
    }

    // What was made text is read back: by the table, the translator, QVariant and QDataStream.
    void valuesComeBack_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("text");
        for (const auto &[value, text] : {std::pair(0, "None"), {2, "KillOnSave"}, {31, "Volatile"},
                 {3, "KillOnCopy|KillOnSave"}, {98, "KillOnSave|96"}, {64, "64"},
                 {-1, "Volatile|-32"}})
            QTest::newRow(text) << value << string(text);
    }
    void valuesComeBack()
    {
        QFETCH(const int, value);
        QFETCH(const QString, text);
        const MetadataFlags flags{value};
        const auto &table = MetadataFlags_T::instance();
        QCOMPARE(table.valueToKeys(flags), text);
        QCOMPARE(table.keysToValue(text), flags);
        QCOMPARE(table.keysToValue(u' ' + QString(text).replace(u'|', " , "_s)), flags);
        const QVariant variant = QVariant::fromValue(flags);
        QCOMPARE(variant.toString(), text);
        QCOMPARE(QVariant(text).value<MetadataFlags>(), flags);
        QString printed;
        QDebug(&printed) << flags;
        QCOMPARE(printed.trimmed(), "MetadataFlags(%1)"_s.arg(text));
        QByteArray bytes;
        QDataStream writer(&bytes, QIODevice::WriteOnly);
        writer << variant;
        QDataStream reader(bytes);
        QVariant read;
        reader >> read;
        QCOMPARE(read, variant);
    }

    void textsThatAreNoValue()
    {
        for (const char *const text :
            {"", "|", "None|", "none", "KillOnCopy KillOnSave", "2147483648"})
            QVERIFY2(!MetadataFlags_T::instance().keysToValue(string(text)), text);
        for (const char *const text : {"2", "-1", "True|True", "Wahr"})
            QVERIFY2(!Bool_T::instance().keysToValue(string(text)), text);
        QVERIFY(!Bool_T::instance().keyToValue("1"_s));
        QCOMPARE(OperatingSystem_T::instance().keyToValue("OS_X"_s), OperatingSystem::macOS);
        QVariant unit("MB"_s);
        QVERIFY(!unit.convert(QMetaType::fromType<BinaryUnit>()));
        QCOMPARE(Bool_TR::instance().wordsToValue(" wahr"_s), Bool::True);
        QCOMPARE(Bool_TR::instance().wordsToValue("False"_s), Bool::False);
        QVERIFY(!Bool_TR::instance().wordsToValue("Wahr,Falsch"_s));
    }

    void runtimeLoader()
    {
        auto *loader = new FruitLoader;
        for (ISEnumRuntimeLoader *one : {static_cast<FruitLoader *>(nullptr), loader, loader})
            SEnumRuntimeLoader::loaderRegister(one);
        QVERIFY(SEnumRuntimeLoader::loader("Fruit"_s) == loader);
        QVERIFY(!SEnumRuntimeLoader::loader("fruit"_s));
        const Fruits table;
        QCOMPARE(table.toString(Fruit::Pear) + table.toString(Fruit(7)), "PearPlum"_s);
        QCOMPARE(table.keys().constLast(), "Plum"_s);
        QCOMPARE(table.keysToValue("Plum"_s), Fruit(7));

        Translator translator("Fruit");
        TavexApplication::translationRegister(&translator);
        QCOMPARE(FruitLoader::loads, 1);
        TavexApplication::init(QLocale(QLocale::Italian));
        QCOMPARE(FruitLoader::loads, 2);
        const QStringList missing = TavexApplication::missingCatalogues();
        QVERIFY(missing.contains("none"_s));
        QVERIFY(missing.contains("Fruit"_s));
        QVERIFY(!missing.contains("Bool"_s));
        QCOMPARE(translator.etr("Plum"_s), "Pflaume"_s);

        // A destroyed translator leaves nothing behind.
        TavexApplication::translationRegister(std::make_unique<Translator>().get());
        TavexApplication::translationRegister(static_cast<SEnumTranslatorBase *>(nullptr));
        TavexApplication::init(QLocale(QLocale::German));
    }

    void translatorLooksUpInOrder()
    {
        const QString folder = ":/translations"_s;
        const QLocale german(QLocale::German);
        Translator translator;
        const auto etr = [&](const char *key, auto... options) {
            return translator.etr(string(key), options...).toLatin1();
        };
        QCOMPARE(etr(" True\t"), "Wahr");
        QCOMPARE(etr("True", TranslateFallback), "True");
        QCOMPARE(etr("True", EnumTranslationOptions{}), "True");
        QCOMPARE(etr("True", NoKeyFallback), "");
        QCOMPARE(etr("Maybe", Translator::defaultOptions() | NoKeyFallback), "");
        VERIFY_ALL(!translator.contains("Maybe"_s), translator.contains("True"_s));
        QCOMPARE(
            translator.etr("False| Maybe |A,,B"_s.split(u'|')).join(u'|'), "Falsch|Maybe|A, , B"_s);

        // The catalogue goes before the run-time text, the run-time fallback before English.
        translator.insert("True"_s, "run time"_s, "fallback"_s);
        QCOMPARE(etr("True"), "Wahr");
        QCOMPARE(etr("True", TranslateFallback), "fallback");
        translator.insert("Maybe"_s, QString(), "fallback"_s);
        QCOMPARE(etr("Maybe"), "fallback");
        translator.insert("Maybe"_s, "run time"_s, QString());
        QCOMPARE(etr("Maybe"), "run time");
        VERIFY_ALL(translator.remove("Maybe"_s), !translator.remove("Maybe"_s));

        QVERIFY(translator.useTranslation("a {T:Bool} b"_s, german));
        QVERIFY(translator.useTranslation("{T:All}"_s));
        QVERIFY(!translator.useTranslation("{T:All}"_s, QLocale(QLocale::Dutch)));
        QVERIFY(!translator.useTranslation("{t:all} {T:bool} {T:BinaryUnit}"_s));

        // A load empties the run-time texts, and tells what is missing.
        QVERIFY(translator.load(QLocale(QLocale::French, QLocale::Canada), folder));
        QCOMPARE(etr("True", TranslateFallback), "True");
        QVERIFY(translator.load(QLocale("en"_s), folder));
        QVERIFY(!translator.load(german, ":/nowhere"_s));
        QVERIFY(!translator.load(QLocale(QLocale::Japanese), folder));
        QCOMPARE(etr("True"), "True");
    }

private:
    BoolLoader *m_loader = new BoolLoader;
};

QTEST_GUILESS_MAIN(TestEnums)
#include "tst_enums.moc"
