#include <tavex/Tavex>

#include <QTest>
#include <QVariant>

#include <thread>
#include <vector>

using namespace Quorvex;

namespace {

template <typename E>
QString printed(E value, const QLocale &locale = QLocale::c())
{
    const QVariant variant = QVariant::fromValue(value);
    const auto converter = SVariantConvert::sVariantToStringFunction(variant.userType());
    return converter ? converter(variant, QStringLiteral("ignored"), locale)
                     : QStringLiteral("no converter");
}

enum class Fruit : quint8 { Apple, Pear = 200 };

/// An application's own key table.
class Fruit_T : public SEnumBase<Fruit>
{
public:
    Fruit_T()
        : SEnumBase(rows)
    {
        loadRuntimeKeys();
    }
    [[nodiscard]] QString name() const override { return QStringLiteral("Fruit"); }
    [[nodiscard]] bool isFlagSet() const override { return false; }

private:
    static constexpr SEnumKey<Fruit> rows[] = {{Fruit::Apple, u"Apple"}, {Fruit::Pear, u"Pear"}};
};

class FruitLoader : public ISEnumRuntimeLoader
{
public:
    void load(SEnumTranslatorBase *) override { }
    void loadKeys(ISEnum *keys) override
    {
        ++calls;
        QVERIFY(keys->addKey(7, QStringLiteral("Plum")));
        QVERIFY(!keys->addKey(7, QStringLiteral("Plum")));
        QVERIFY(!keys->addKey(8, QString()));
    }
    [[nodiscard]] QString name() const override { return QStringLiteral("Fruit"); }

    static inline int calls = 0;
};

} // namespace

class TestEnums : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The type's name, its flags, and what the converter prints of a value with and without a key.
    void metaTypes_data()
    {
        QTest::addColumn<QMetaType>("type");
        QTest::addColumn<bool>("isUnsigned");
        const auto row = [](const auto &table) {
            using Enum = typename std::remove_cvref_t<decltype(table)>::Enum;
            QTest::newRow(table.name().toLatin1().constData())
                << QMetaType::fromType<Enum>() << std::is_unsigned_v<std::underlying_type_t<Enum>>;
        };
        const auto rows = [&](const auto &...tables) { (row(tables), ...); };
        rows(Bool_T::instance(), MetadataFlags_T::instance(), BinaryUnit_T::instance(),
            SIPrefix_T::instance(), SILengthUnit_T::instance(), SCSLengthUnit_T::instance(),
            ConcurrenceMode_T::instance(), SpecialFolder_T::instance(),
            OperatingSystemType_T::instance(), CpuType_T::instance(), CpuFeatureFlags_T::instance(),
            ByteOrder_T::instance());
    }
    void metaTypes()
    {
        QFETCH(QMetaType, type);
        QFETCH(bool, isUnsigned);
        // Known by name before anything in this program asked for the id.
        const QByteArray name = QByteArray("Quorvex::") + QTest::currentDataTag();
        QCOMPARE(QMetaType::fromName(name).id(), type.id());
        QVERIFY(type.flags().testFlag(QMetaType::IsEnumeration));
        QCOMPARE(type.flags().testFlag(QMetaType::IsUnsignedEnumeration), isUnsigned);
        QVERIFY(!type.metaObject());
        QVERIFY(SVariantConvert::isSVariantToStringRegistered(type.id()));
        QVERIFY(SVariantConvert::sVariantToStringFunction(type.id())(QVariant(), {}, {}).isEmpty());
    }

    void text()
    {
        QCOMPARE(printed(Bool::True), QStringLiteral("True"));
        QCOMPARE(printed(Bool::False), QStringLiteral("False"));
        QCOMPARE(printed(SpecialFolder::DataLocation), QStringLiteral("AppLocalDataLocation"));
        QCOMPARE(printed(CpuType(12345)), QStringLiteral("12345"));
        QCOMPARE(printed(CpuType(-12345), QLocale(QLocale::German)), QStringLiteral("-12.345"));
        QCOMPARE(printed(CpuFeatureFlags(~quint64(0))), QStringLiteral("18446744073709551615"));
        QCOMPARE(
            printed(MetadataFlags::KillOnCopy | MetadataFlags::KillOnSave), QStringLiteral("3"));
        QCOMPARE(printed(OperatingSystem::Linux), QStringLiteral("no converter"));

        const auto &systems = OperatingSystem_T::instance();
        QCOMPARE(systems.toString(OperatingSystem::macOS), QStringLiteral("OS_X"));
        QCOMPARE(systems.toString(OperatingSystem(0x80000FFF), QLocale::c()),
            QStringLiteral("2147487743"));
        QCOMPARE(systems.keys().size(), 60);
        QCOMPARE(MetadataFlags::Volatile,
            MetadataFlags::KillOnCopy | MetadataFlags::KillOnSave
                | MetadataFlags::KillOnSpaceTransform | MetadataFlags::KillOnChanges
                | MetadataFlags::KillOnPhysicalChange);
    }

    void keyTables()
    {
        const Bool_T &table = Bool_T::instance();
        QCOMPARE(table.name(), QStringLiteral("Bool"));
        QCOMPARE(table.keys(), (QStringList{QStringLiteral("False"), QStringLiteral("True")}));
        QVERIFY(!table.isFlagSet());
        QVERIFY(
            MetadataFlags_T::instance().isFlagSet() && CpuFeatureFlags_T::instance().isFlagSet());
        const QStringList folders = SpecialFolder_T::instance().keys();
        QCOMPARE(folders.size(), 23);
        QVERIFY(folders.indexOf(QStringLiteral("AppDataLocation")) + 1
            == folders.indexOf(QStringLiteral("AppLocalDataLocation")));
    }

    void ownTableAndLoader()
    {
        SEnumRuntimeLoader::loaderRegister(nullptr);
        auto *loader = new FruitLoader;
        SEnumRuntimeLoader::loaderRegister(loader);
        SEnumRuntimeLoader::loaderRegister(loader);
        QVERIFY(SEnumRuntimeLoader::loader(QStringLiteral("Fruit")) == loader);
        QVERIFY(!SEnumRuntimeLoader::loader(QStringLiteral("fruit")));

        const Fruit_T table;
        QCOMPARE(FruitLoader::calls, 1);
        QCOMPARE(table.toString(Fruit::Pear), QStringLiteral("Pear"));
        QCOMPARE(table.toString(Fruit(7)), QStringLiteral("Plum"));
        QCOMPARE(table.keys().constLast(), QStringLiteral("Plum"));
        QCOMPARE(FruitLoader::calls, 1);
    }

    void firstUseOnManyThreads()
    {
        std::vector<std::thread> threads;
        threads.reserve(8);
        for (int i = 0; i < 8; ++i) {
            threads.emplace_back([] {
                QCOMPARE(SILengthUnit_T::instance().toString(SILengthUnit::Meter),
                    QStringLiteral("Meter"));
                QCOMPARE(printed(ByteOrder::LittleEndian), QStringLiteral("LittleEndian"));
            });
        }
        for (std::thread &thread : threads)
            thread.join();
    }
};

QTEST_APPLESS_MAIN(TestEnums)
#include "tst_enums.moc"
