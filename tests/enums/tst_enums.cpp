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
    return converter ? converter(variant, string("ignored"), locale) : string("no converter");
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

/// Does while it is called what a careless one might: registers and unregisters translators.
struct FruitLoader : ISEnumRuntimeLoader
{
    void load(SEnumTranslatorBase *translator) override
    {
        ++loads;
        translator->insert(string("Plum"), string("Pflaume"), {});
        const Translator other("Other");
        TavexApplication::translationRegister(string("none"));
    }
    void loadKeys(ISEnum *keys) override
    {
        for (const bool isNew : {true, false})
            QVERIFY(keys->addKey(7, string("Plum")) == isNew && !keys->addKey(8, QString()));
    }
    [[nodiscard]] QString name() const override { return string("Fruit"); }

    static inline std::atomic<int> loads = 0;
};

/// Makes words of the default language, and uses meanwhile what is being loaded.
struct BoolLoader : ISEnumRuntimeLoader
{
    void load(SEnumTranslatorBase *translator) override
    {
        const QString language = SLocale::name(QLocale(), true);
        translator->insert(string("one"), language, {});
        seen = translator->etr(string("one,two")) + SConvert::toString(true);
        meanwhile(translator);
        translator->insert(string("two"), language, {});
    }
    void loadKeys(ISEnum *) override { seenKey = printed(Bool::True); }
    [[nodiscard]] QString name() const override { return Bool_T::instance().name(); }

    QString seen;
    QString seenKey;
    std::function<void(SEnumTranslatorBase *)> meanwhile = [](auto *) {};
};

constexpr auto look = [](const auto &...) {};

/// What an application's enumeration has.
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
        QCOMPARE(Bool_TR::instance().etr(string("one,two")), string("de, de"));
        QCOMPARE(m_loader->seen + m_loader->seenKey, string("de, twoWahrTrue"));

        // Another thread makes a translator for the first time, and init() a loader that uses it.
        std::jthread other;
        std::atomic<bool> isStarted = false;
        const auto use = [] {
            return madeAtFirstUse().etr(string("x"))
                + ConcurrenceMode_TR::instance().etr(string("Half"));
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
        QCOMPARE(m_loader->seen, string("xDe helft"));

        // One that goes takes no other one's turn.
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
        QCOMPARE(last.etr(string("True")), string("Wahr"));
    }

    // Words are those of one language, whoever loads, looks up or changes.
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
                const QStringList words = shared.etr({string("True,False"), string("one,two")});
                mixed += words != QStringList({string("Wahr, Falsch"), string("de, de")})
                    && words != QStringList({string("Prawda, Fałsz"), string("pl, pl")});
                look(SConvert::toString(true), printed(Bool::False), fruits.toString(Fruit(7)),
                    SConvert::toBool(string("Wahr")));
            });
            const auto change = times(60, [&] {
                shared.insert(string("C"), string("c"), {});
                look(shared.remove(string("C")));
            });
            const auto add = times(20, [&] {
                const Translator own("Fruit");
                TavexApplication::translationRegister(&shared);
                look(madeAtFirstUse().contains(string("Plum")), TavexApplication::translations());
            });
            together(read, read, read, change, add,
                times(3, [] { TavexApplication::init(QLocale(QLocale::Polish)); }),
                times(3, [] { TavexApplication::init(QLocale(QLocale::German)); }), [&] {
                    look(fruits.keys(), BinaryUnit_TR::instance().etr(string("KiB")),
                        OperatingSystemType_TR::instance().etr(string("Linux")),
                        SEnumRuntimeLoader::loader(string("Bool")));
                    // MinGW destroys what Qt's expressions keep for a thread after freeing it.
                    if (!SSysInfo::isWindows())
                        look(SClassName::displayName(string("SMetaInt8")));
                });
        }
        QCOMPARE(mixed, 0);
    }

    // Known by name and printable before anything in this program asked for the id.
    void metaTypes()
    {
        const auto check = []<typename... Tables>(const Tables &...tables) {
            for (const auto &[name, type] :
                {std::pair(tables.name(), QMetaType::fromType<typename Tables::Enum>())...}) {
                QCOMPARE(QMetaType::fromName("Quorvex::" + name.toLatin1()).id(), type.id());
                const auto converter = SVariantConvert::sVariantToStringFunction(type.id());
                QVERIFY2(converter && converter(QVariant(), {}, {}).isEmpty(), qPrintable(name));
            }
        };
        check(Bool_T::instance(), MetadataFlags_T::instance(), BinaryUnit_T::instance(),
            SIPrefix_T::instance(), SILengthUnit_T::instance(), SCSLengthUnit_T::instance(),
            ConcurrenceMode_T::instance(), SpecialFolder_T::instance(),
            OperatingSystemType_T::instance(), CpuType_T::instance(), CpuFeatureFlags_T::instance(),
            ByteOrder_T::instance());
    }

    void keys()
    {
        QCOMPARE(printed(Bool::True), string("True"));
        QCOMPARE(printed(SpecialFolder::DataLocation), string("AppLocalDataLocation"));
        QCOMPARE(printed(CpuType(-12345), QLocale(QLocale::German)), string("-12.345"));
        QCOMPARE(printed(CpuFeatureFlags(~quint64(0))), string("18446744073709551615"));
        QCOMPARE(printed(MetadataFlags::KillOnCopy | MetadataFlags::KillOnSave), string("3"));
        QCOMPARE(printed(OperatingSystem::Linux), string("no converter"));

        const auto &systems = OperatingSystem_T::instance();
        QCOMPARE(systems.toString(OperatingSystem::macOS), string("OS_X"));
        QCOMPARE(systems.toString(OperatingSystem(0x80000FFF), QLocale::c()), string("2147487743"));
        QCOMPARE(systems.keys().size(), 60);
        QCOMPARE(Bool_T::instance().keys().join(u' '), string("False True"));
        QCOMPARE(Bool_TR::instance().keys(), Bool_T::instance().keys());
        QCOMPARE(Bool_TR::instance().headerPath(), string("enums/bool"));
        QVERIFY(MetadataFlags_T::instance().isFlags() && !Bool_T::instance().isFlags());
        const QStringList folders = SpecialFolder_T::instance().keys();
        QCOMPARE(folders.size(), 23);
        QVERIFY(folders.join(u' ').contains(string(" AppDataLocation AppLocalDataLocation ")));
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
        QCOMPARE(table.keysToValue(u' ' + QString(text).replace(u'|', string(" , "))), flags);
        const QVariant variant = QVariant::fromValue(flags);
        QCOMPARE(variant.toString(), text);
        QCOMPARE(QVariant(text).value<MetadataFlags>(), flags);
        QString printed;
        QDebug(&printed) << flags;
        QCOMPARE(printed.trimmed(), string("MetadataFlags(%1)").arg(text));
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
        QVERIFY(!Bool_T::instance().keyToValue(string("1")));
        QCOMPARE(OperatingSystem_T::instance().keyToValue(string("OS_X")), OperatingSystem::macOS);
        QVariant unit(string("MB"));
        QVERIFY(!unit.convert(QMetaType::fromType<BinaryUnit>()));
        QCOMPARE(Bool_TR::instance().wordsToValue(string(" wahr")), Bool::True);
        QCOMPARE(Bool_TR::instance().wordsToValue(string("False")), Bool::False);
        QVERIFY(!Bool_TR::instance().wordsToValue(string("Wahr,Falsch")));
    }

    void runtimeLoader()
    {
        auto *loader = new FruitLoader;
        for (ISEnumRuntimeLoader *one : {static_cast<FruitLoader *>(nullptr), loader, loader})
            SEnumRuntimeLoader::loaderRegister(one);
        QVERIFY(SEnumRuntimeLoader::loader(string("Fruit")) == loader);
        QVERIFY(!SEnumRuntimeLoader::loader(string("fruit")));
        const Fruits table;
        QCOMPARE(table.toString(Fruit::Pear) + table.toString(Fruit(7)), string("PearPlum"));
        QCOMPARE(table.keys().constLast(), string("Plum"));
        QCOMPARE(table.keysToValue(string("Plum")), Fruit(7));

        Translator translator("Fruit");
        TavexApplication::translationRegister(&translator);
        QCOMPARE(FruitLoader::loads, 1);
        TavexApplication::init(QLocale(QLocale::Italian));
        QCOMPARE(FruitLoader::loads, 2);
        const QStringList missing = TavexApplication::missingCatalogues();
        QVERIFY(missing.contains(string("none")));
        QVERIFY(missing.contains(string("Fruit")));
        QVERIFY(!missing.contains(string("Bool")));
        QCOMPARE(translator.etr(string("Plum")), string("Pflaume"));

        // A destroyed translator leaves nothing behind.
        TavexApplication::translationRegister(std::make_unique<Translator>().get());
        TavexApplication::translationRegister(static_cast<SEnumTranslatorBase *>(nullptr));
        TavexApplication::init(QLocale(QLocale::German));
    }

    void translatorLooksUpInOrder()
    {
        const QString folder = string(":/translations");
        Translator translator;
        const auto etr = [&](const char *key, auto... options) {
            return translator.etr(string(key), options...).toLatin1();
        };
        QCOMPARE(etr(" True\t"), "Wahr");
        QCOMPARE(etr("True", TranslateFallback), "True");
        QCOMPARE(etr("True", EnumTranslationOptions{}), "True");
        QCOMPARE(etr("True", NoKeyFallback), "");
        QCOMPARE(etr("Maybe", Translator::defaultOptions() | NoKeyFallback), "");
        QVERIFY(!translator.contains(string("Maybe")) && translator.contains(string("True")));
        QCOMPARE(translator.etr(string("False| Maybe |A,,B").split(u'|')).join(u'|'),
            string("Falsch|Maybe|A, , B"));

        // The catalogue goes before the run-time text, the run-time fallback before English.
        translator.insert(string("True"), string("run time"), string("fallback"));
        QCOMPARE(etr("True"), "Wahr");
        QCOMPARE(etr("True", TranslateFallback), "fallback");
        translator.insert(string("Maybe"), QString(), string("fallback"));
        QCOMPARE(etr("Maybe"), "fallback");
        translator.insert(string("Maybe"), string("run time"), QString());
        QCOMPARE(etr("Maybe"), "run time");
        QVERIFY(translator.remove(string("Maybe")) && !translator.remove(string("Maybe")));

        QVERIFY(translator.useTranslation(string("a {T:Bool} b"), QLocale(QLocale::German)));
        QVERIFY(translator.useTranslation(string("{T:All}")));
        QVERIFY(!translator.useTranslation(string("{T:All}"), QLocale(QLocale::Dutch)));
        QVERIFY(!translator.useTranslation(string("{t:all} {T:bool} {T:BinaryUnit}")));

        // A load empties the run-time texts, and tells what is missing.
        QVERIFY(translator.load(QLocale(QLocale::French, QLocale::Canada), folder));
        QCOMPARE(etr("True", TranslateFallback), "True");
        QVERIFY(translator.load(QLocale(string("en")), folder));
        QVERIFY(!translator.load(QLocale(QLocale::German), string(":/nowhere")));
        QVERIFY(!translator.load(QLocale(QLocale::Japanese), folder));
        QCOMPARE(etr("True"), "True");
    }

    void writeTranslatorXML()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(string("a.ts")));
        for (const char *document : {"longer than the next", "<TS>\xC3\xA4</TS>"})
            QVERIFY(SEnumHelper::writeTranslatorXML(file.fileName(), string(document)));
        QVERIFY(file.open(QIODevice::ReadOnly) && file.readAll() == "<TS>\xC3\xA4</TS>");
        QVERIFY(!SEnumHelper::writeTranslatorXML(folder.filePath(string("no/a.ts")), {}));
        QVERIFY(!SEnumHelper::writeTranslatorXML(static_cast<QIODevice *>(nullptr), {}));
        QVERIFY(!SEnumHelper::writeTranslatorXML(QString(), {}));
        QBuffer device;
        QVERIFY(SEnumHelper::writeTranslatorXML(&device, string("x")) && !device.isOpen());
        QCOMPARE(device.data(), "x");
    }

private:
    BoolLoader *m_loader = new BoolLoader;
};

QTEST_GUILESS_MAIN(TestEnums)
#include "tst_enums.moc"
