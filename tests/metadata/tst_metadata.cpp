#include "common.h"
#include "samples.h"

#include <array>
#include <set>
using namespace Quorvex::Interfaces;
using Sample::Own;

namespace {

template <typename... Parts>
bool casts(IMetadata *value)
{
    ICloneable *const first = value;
    return ((dynamic_cast<Parts *>(first) == static_cast<Parts *>(value)
                && dynamic_cast<IMetadata *>(static_cast<Parts *>(value)) == value)
        && ...);
}

template <typename T, typename Scalar, typename List>
void holds(const QString &name)
{
    for (const T value : {Min<T>, T(0), Max<T>}) {
        Scalar scalar(value);
        QCOMPARE(scalar.value(), value);
        QCOMPARE(scalar.name(), "SMeta"_s + name);
        List list(value);
        QCOMPARE(list.value(), QList<T>(1, value));
        QCOMPARE(list.name(), "SMetaList"_s + name);
        VERIFY_ALL(!scalar.isEmpty(), !list.isEmpty(), List(QList<T>()).isEmpty());
    }
}

/// A value that counts the living and has an id by instance, so that one class stands for many. The
/// id is also its flags.
class Counted : public SMetaVariant
{
public:
    Counted(quint64 kind, int number)
        : SMetaVariant(number)
        , m_kind(kind)
    {
        alive.insert(this);
    }
    Q_DISABLE_COPY(Counted)
    ~Counted() override { alive.erase(this); }

    [[nodiscard]] Counted *clone() const override { return new Counted(m_kind, number()); }
    [[nodiscard]] quint64 id() const override { return m_kind; }
    [[nodiscard]] MetadataFlags flags() override { return MetadataFlags(m_kind); }
    [[nodiscard]] int number() const { return value().toInt(); }
    void setNumber(int number) { SMetaVariant::operator=(Counted(m_kind, number)); }

    inline static std::set<const IMetadata *> alive;

private:
    quint64 m_kind;
};

/// A kind of number with an id of its own.
class Width : public SMetaKind<Width, SMetaInt32>
{
public:
    using SMetaKind::SMetaKind;
};

/// Records changes, rejects negative numbers and can hide its values.
class Owner : public SMetadatable
{
public:
    using SMetadatable::SMetadatable;
    using SMetadatable::operator=;

    [[nodiscard]] QList<IMetadata *> metadataList() const override
    {
        return isHiding ? QList<IMetadata *>() : SMetadatable::metadataList();
    }

    std::vector<quint64> changes;
    bool isHiding = false;

protected:
    void onMetadataChanged(const quint64 &id) override { changes.push_back(id); }
    [[nodiscard]] bool isMetadataValid(const IMetadata *value) const override
    {
        return !(static_cast<const SMetaVariant *>(value)->value().toDouble() < 0);
    }
};

} // namespace

class TestMetadata : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(Counted::alive.size(), 0U); }

    void acrossModules()
    {
        QLibrary module(QStringLiteral(PLUGIN_FILE));
        module.setLoadHints(QLibrary::ResolveAllSymbolsHint); // Its symbols stay its own.
        const auto makeValue =
            reinterpret_cast<IMetadata *(*)(std::size_t)>(module.resolve("makeValue"));
        QVERIFY2(makeValue, qPrintable(module.errorString()));
        const Sample::Values ours = Sample::values();
        for (std::size_t i = 0; i < ours.size(); ++i) {
            const std::unique_ptr<IMetadata> theirs(makeValue(i));
            const std::unique_ptr<ICloneable> clone(theirs->clone());
            auto *const copy = dynamic_cast<IMetadata *>(clone.get());
            VERIFY_ALL(copy, copy != theirs.get());
            for (IMetadata *const value : {ours[i].get(), theirs.get(), copy}) {
                QVERIFY((casts<ICloneable, IFormattable, IEquatable, IIdentifiable>(value)));
                VERIFY_ALL(!value->isSameTypeAs(nullptr), !value->equalsTo(nullptr));
                for (std::size_t k = 0; k < ours.size(); ++k) {
                    const QList<bool> same{value->id() == ours[k]->id(),
                        value->isSameTypeAs(ours[k].get()), value->equalsTo(ours[k].get()),
                        ours[k]->equalsTo(value)};
                    COMPARE_ROW(
                        value->name() + u' ' + ours[k]->name(), same, QList<bool>(4, k == i));
                }
                const bool isStamp = dynamic_cast<SMetaDateTime *>(value);
                QCOMPARE(value->flags(), isStamp ? MetadataFlags::Volatile : MetadataFlags::None);
            }
        }
    }

    void numbers()
    {
#define CHECK_CLASSES(T, Name) holds<T, SMeta##Name, SMetaList##Name>(QStringLiteral(#Name));
        FOR_EACH_NUMBER(CHECK_CLASSES)
        QVERIFY(SMetaDouble(0.1 + 0.2) != SMetaDouble(0.3));
        static_assert(!std::is_constructible_v<SMetaBool, const char *>);
        QCOMPARE(SMetaListInt32({1, -2, 3}).toString(QLocale::c()), "1, -2, 3"_s);
        QCOMPARE(SMetaListDouble({1.5, 2}).toString(QLocale::German), "1,5; 2"_s);
        QCOMPARE(SMetaDouble(0.0001).toString(QLocale::English), "0.0001"_s);
        QCOMPARE(SMetaInt32(1e10).value(), Max<int>);
        QCOMPARE(SMetaUInt8(-3.9).value(), quint8(0));
        QCOMPARE(SMetaListInt32({}).size() + SMetaListBool({}).size(), 0);

        // Through its base a value can be assigned that the class does not hold.
        SMetaInt32 number(1);
        static_cast<SMetaVariant &>(number) = Own<SMetaVariant>("42"_s);
        QCOMPARE(number.value(), 42);
        static_cast<SMetaVariant &>(number) = Own<SMetaVariant>(-3.9e9);
        QCOMPARE(number.value(), SConvert::toInt32(QVariant(-3.9e9)));
        QVERIFY(Own<SMetaVariant>(QVariant()).isEmpty());
    }

    void texts()
    {
        // Null stands for bytes that are no text.
        const std::tuple<QByteArray, const char *, const char *> rows[] = {
            {"\xC3\xA9", "", "\u00E9"}, {QByteArray("\xFF\xFE\0", 3), "", nullptr},
            {"a\xC3", "", nullptr}, {"\xC0\x80", "", nullptr}, {"\xFF", "iso-8859-1", "\u00FF"},
            {QByteArray("\0a", 2), "UTF-16BE", "a"}, {"a", "no-such", nullptr},
            {QByteArray("\0a\0", 3), "UTF-16BE", nullptr},
            {QByteArray("\xD8\0\0a", 4), "UTF-16BE", nullptr},
            {QByteArray("a\0\0", 3), "UTF-32LE", nullptr},
            {QByteArray("\xFF\xFE\0\0a\0\0\0", 8), "UTF-32", "a"},
            {QByteArray("\x3D\xD8\0\0\0\xDE\0\0", 8), "UTF-32LE", nullptr}};
        for (const auto &[bytes, encoding, text] : rows) {
            const QString binary = "Binary data [len: %1 bytes]"_s.arg(bytes.size());
            COMPARE_ROW(bytes.toHex() + encoding,
                Own<SMetaByteArray>(bytes).toString(string(encoding)),
                text ? string(text) : binary);
        }
        Own<SMetaJsonDocument> json(QJsonDocument(QJsonObject{{"a"_s, 1}}));
        for (const char *format : {"{other}", " {indent} "})
            QCOMPARE(json.toString(string(format)), "{\"a\":1}"_s);
        for (const char *format : {"{indent}", "{json:indent}"})
            QVERIFY(json.toString(string(format)).contains(QLatin1Char('\n')));

        Own<SMetaByteArray> bytes{QByteArray()};
        VERIFY_ALL(bytes.isNull(), bytes.isEmpty(), Own<SMetaByteArray>("").isEmpty());
        Own<SMetaJsonDocument> none{QJsonDocument()};
        VERIFY_ALL(none.isNull(), none.isEmpty(), !json.isNull(), !json.isEmpty());
        QCOMPARE(bytes.name() + none.name(), "SMetaByteArraySMetaJsonDocument"_s);
        VERIFY_ALL(Own<SMetaString>(QString()).isNull(), Own<SMetaString>(""_s).isEmpty());
        QCOMPARE(Own<SMetaString>("a"_s).toString(), "a"_s);
        const QDateTime noon(QDate(2024, 2, 29), QTime(12, 0), Qt::OffsetFromUTC, 3600);
        QCOMPARE(
            Own<SMetaDateTime>(noon).toString("HH:mm"_s), noon.toLocalTime().toString("HH:mm"_s));
        QVERIFY(Own<SMetaDateTime>(QDateTime(QDate(2023, 2, 29), QTime(12, 0))).isEmpty());
    }

    void refusesNullAndKeepsNaN()
    {
        Owner owner;
        VERIFY_ALL(!owner.setMetadata(nullptr, true), !owner.setMetadata(nullptr, false));
        // NaN is not equal to itself.
        auto *const nan = new SMetaDouble(std::numeric_limits<double>::quiet_NaN());
        for (const bool takeOwnership : {true, true, false})
            QVERIFY(owner.setMetadata(nan, takeOwnership));
        QCOMPARE(owner.metadata(SMetaDouble::uniqueId()), nan);
        Counted negative(1, -1);
        owner.copyMetadata({nan, nullptr, &negative, nan}, MetadataFlags::None);
        QCOMPARE(owner.metadataCount(), 1);
        VERIFY_ALL(owner == owner, owner != Owner(owner));
    }

    void masks()
    {
        Owner source;
        for (quint64 kind = 0; kind < 4; ++kind)
            source.setMetadata(new Counted(kind, 1), true);
        using Kinds = std::vector<quint64>;
        for (const auto &[mask, kept] :
            {std::pair(0, Kinds{0, 1, 2, 3}), {1, {0, 2}}, {2, {0, 1}}, {7, {0}}}) {
            Owner target;
            target.copyMetadata(source.metadataList(), MetadataFlags(mask));
            QCOMPARE(target.changes, kept);
        }
    }

    void copiesAndCompares()
    {
        SMetadatable all;
        all.setMetadata(new Counted(1, -1), true);
        all.setMetadata(new Counted(2, 1), true);
        auto *const source = static_cast<Interfaces::IMetadatable *>(&all);
        SMetadatable copy(source);
        VERIFY_ALL(copy == all, copy.metadata(1) != all.metadata(1));
        copy = static_cast<Interfaces::IMetadatable *>(&copy);
        QVERIFY(copy == all);
        copy.removeMetadata(1);
        VERIFY_ALL(copy != all, all != copy, !copy.hasMetadata(1), copy.hasMetadata(2));
        copy.setMetadata(new Counted(3, -1), true); // As many values, but of other kinds.
        VERIFY_ALL(copy != all, all != copy);

        Owner owner; // A derived class narrows what it takes.
        owner = source;
        QCOMPARE(owner.changes, std::vector<quint64>{2});
        owner.isHiding = true; // A copy sees what an assignment sees.
        QCOMPARE(SMetadatable(owner).metadataCount(), 0);
        owner = static_cast<Interfaces::IMetadatable *>(nullptr);
        QCOMPARE(owner.metadataCount(), 0);
    }

    void movesWithoutClones()
    {
        SMetadatable source;
        auto *const positive = new Counted(1, 1);
        source.setMetadata(std::unique_ptr<IMetadata>(positive));
        source.setMetadata(std::make_unique<Counted>(2, -1));
        SMetadatable moved(std::move(source));
        // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
        QCOMPARE(source.metadataCount(), 0);
        Owner owner;
        owner.setMetadata(std::make_unique<Counted>(3, 1));
        owner = std::move(moved);
        QCOMPARE(owner.metadataList(), QList<IMetadata *>{positive});
        QCOMPARE(owner.changes, (std::vector<quint64>{3, 1}));
        QVERIFY(!owner.setMetadata(std::make_unique<Counted>(4, -1)));
        QVERIFY(!owner.setMetadata(nullptr));
        QCOMPARE(Counted::alive, std::set<const IMetadata *>{positive});
    }

    void kinds()
    {
        Owner owner;
        owner.setMetadata(new SMetaInt32(1), true);
        owner.setMetadata(std::make_unique<Width>(2));
        const SMetadatable copy(owner);
        QCOMPARE(copy.metadata<SMetaInt32>()->value(), 1);
        const Width *const width = copy.metadata<Width>();
        QVERIFY(width);
        QVERIFY(!copy.metadata<SMetaBool>());
        // A constant value has what the interfaces declare without const.
        QCOMPARE(width->name() + width->displayName(), "WidthWidth"_s);
        QCOMPARE(width->toString() + width->toString(QLocale::c()), "22"_s);
        QCOMPARE(width->flags(), MetadataFlags::None);
    }

    // Random operations beside a plain model: after each, exactly the values of the model exist.
    void ownershipIsExact()
    {
        struct Slot
        {
            Counted *value = nullptr;
            std::set<Counted *> spares; // Handed over while an equal one was stored.
        };
        QRandomGenerator random(20240229);
        Owner owner;
        std::array<Slot, 40> model;
        const auto stored = [&](quint64 id) { return static_cast<Counted *>(owner.metadata(id)); };
        for (int step = 0; step < 20000; ++step) {
            const auto kind = quint64(random.bounded(int(model.size())));
            Slot &slot = model[kind];
            std::vector<quint64> changes;
            owner.changes.clear();
            const int operation = random.bounded(400);
            if (operation < 4) {
                owner.clearMetadata();
                model = {};
            } else if (operation < 8) {
                const SMetadatable copy(owner);
                QVERIFY(copy == owner);
                owner = copy;
                for (quint64 id = 0; id < model.size(); ++id) {
                    if (model[id].value)
                        changes.push_back(id);
                    model[id] = {stored(id), {}};
                }
            } else if (operation < 100) {
                owner.removeMetadata(kind);
                slot.value = nullptr;
            } else {
                // The stored value, a spare, which may have changed since, or a new one.
                Counted *value = operation < 200 ? slot.value
                    : slot.spares.empty()        ? nullptr
                                                 : *slot.spares.begin();
                const bool isNew = !value || operation >= 300;
                if (isNew)
                    value = new Counted(kind, 0);
                if (value != slot.value)
                    value->setNumber(random.bounded(-1, 3));
                const int number = value->number();
                const bool take = random.bounded(2) == 0;
                const std::unique_ptr<Counted> own(
                    isNew && (!take || number < 0) ? value : nullptr);
                const bool replaces =
                    number >= 0 && (!slot.value || slot.value->number() != number);
                QCOMPARE(owner.setMetadata(value, take), number >= 0);
                if (replaces) {
                    QCOMPARE(stored(kind) == value, take);
                    if (slot.value)
                        slot.spares.clear();
                    slot.value = stored(kind);
                    slot.spares.erase(slot.value);
                    QCOMPARE(slot.value->number(), number);
                    changes.push_back(kind);
                } else if (isNew && !own) {
                    slot.spares.insert(value);
                }
            }
            std::set<const IMetadata *> living;
            for (quint64 id = 0; id < model.size(); ++id) {
                QCOMPARE(stored(id), model[id].value);
                living.insert(model[id].value);
                living.insert(model[id].spares.begin(), model[id].spares.end());
            }
            living.erase(nullptr);
            QCOMPARE(Counted::alive, living);
            QCOMPARE(owner.changes, changes);
        }
    }
};

QTEST_GUILESS_MAIN(TestMetadata)
#include "tst_metadata.moc"
