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
    static constexpr SEnumKey<Fruit> rows[] = {{Fruit::Apple, "Apple"}, {Fruit::Pear, "Pear"}};
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
        QTest::addColumn<int>("keys");
        const auto row =
            [](const char *name, QMetaType type, const auto &table) {
                using Enum = typename std::remove_cvref_t<decltype(table)>::Enum;
                QTest::newRow(name)
                    << type
                    << std::is_unsigned_v<std::underlying_type_t<Enum>> << int(table.keys().size());
            };
        row("Bool", QMetaType::fromType<Bool>(), Bool_T::instance());
        row("MetadataFlags", QMetaType::fromType<MetadataFlags>(), MetadataFlags_T::instance());
        row("BinaryUnit", QMetaType::fromType<BinaryUnit>(), BinaryUnit_T::instance());
        row("SIPrefix", QMetaType::fromType<SIPrefix>(), SIPrefix_T::instance());
        row("SILengthUnit", QMetaType::fromType<SILengthUnit>(), SILengthUnit_T::instance());
        row("SCSLengthUnit", QMetaType::fromType<SCSLengthUnit>(), SCSLengthUnit_T::instance());
        row("ConcurrenceMode", QMetaType::fromType<ConcurrenceMode>(),
            ConcurrenceMode_T::instance());
        row("SpecialFolder", QMetaType::fromType<SpecialFolder>(), SpecialFolder_T::instance());
        row("OperatingSystemType", QMetaType::fromType<OperatingSystemType>(),
            OperatingSystemType_T::instance());
        row("CpuType", QMetaType::fromType<CpuType>(), CpuType_T::instance());
        row("CpuFeatureFlags", QMetaType::fromType<CpuFeatureFlags>(),
            CpuFeatureFlags_T::instance());
        row("ByteOrder", QMetaType::fromType<ByteOrder>(), ByteOrder_T::instance());
    }
    void metaTypes()
    {
        QFETCH(QMetaType, type);
        QFETCH(bool, isUnsigned);
        QFETCH(int, keys);
        // Known by name before anything in this program asked for the id.
        const QByteArray name = QByteArray("Quorvex::") + QTest::currentDataTag();
        QCOMPARE(QMetaType::fromName(name).id(), type.id());
        QVERIFY(type.flags().testFlag(QMetaType::IsEnumeration));
        QCOMPARE(type.flags().testFlag(QMetaType::IsUnsignedEnumeration), isUnsigned);
        QVERIFY(!type.metaObject());
        QVERIFY(SVariantConvert::isSVariantToStringRegistered(type.id()));
        QVERIFY(keys >= 2);
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

    // Values that arithmetic or files depend on.
    void values()
    {
        QCOMPARE(int(BinaryUnit::YiB), 80);
        QCOMPARE(int(SIPrefix::Yocto), -24);
        QCOMPARE(int(SILengthUnit::CentiMeter), -2);
        QCOMPARE(int(SCSLengthUnit::Mile), 5280 * int(SCSLengthUnit::Foot));
        QCOMPARE(MetadataFlags::Volatile,
            MetadataFlags::KillOnCopy | MetadataFlags::KillOnSave
                | MetadataFlags::KillOnSpaceTransform | MetadataFlags::KillOnChanges
                | MetadataFlags::KillOnPhysicalChange);
        QCOMPARE(int(SpecialFolder::ColorFolder), 102);
        QCOMPARE(quint32(OperatingSystem::Windows_11), 0x800000D0U);
        QCOMPARE(int(OperatingSystemType::Symbian), 8);
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
