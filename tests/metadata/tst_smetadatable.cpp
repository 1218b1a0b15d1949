#include <tavex/SMetaDateTime>
#include <tavex/SMetaDouble>
#include <tavex/SMetaInt32>
#include <tavex/SMetadatable>

#include <QDateTime>
#include <QRandomGenerator>
#include <QTest>

#include <limits>
#include <map>
#include <set>

using namespace Quorvex;
using Interfaces::IMetadata;

namespace {

/// A value that counts the living and tells its id and flags apart by instance, so that one class
/// stands for many.
class Counted : public SMetaVariant
{
public:
    Counted(quint64 kind, int number, MetadataFlags flags = MetadataFlags::None)
        : SMetaVariant(number)
        , m_kind(kind)
        , m_flags(flags)
    {
        alive.insert(this);
    }
    Counted(const Counted &other)
        : SMetaVariant(other)
        , m_kind(other.m_kind)
        , m_flags(other.m_flags)
    {
        alive.insert(this);
    }
    Counted &operator=(const Counted &) = delete;
    ~Counted() override { alive.erase(this); }

    [[nodiscard]] Counted *clone() const override { return new Counted(*this); }
    [[nodiscard]] quint64 id() const override { return m_kind; }
    [[nodiscard]] MetadataFlags flags() override { return m_flags; }
    [[nodiscard]] int number() const { return value().toInt(); }
    void setNumber(int number) { SMetaVariant::operator=(Counted(m_kind, number)); }

    inline static std::set<const Counted *> alive;

private:
    quint64 m_kind;
    MetadataFlags m_flags;
};

bool isAlive(const IMetadata *value)
{
    return Counted::alive.contains(static_cast<const Counted *>(value));
}

int numberOf(const IMetadata *value)
{
    return static_cast<const Counted *>(value)->number();
}

/// Hears of changes and rejects negative numbers.
class Owner : public SMetadatable
{
public:
    using SMetadatable::SMetadatable;
    using SMetadatable::operator=;

    std::vector<quint64> changes;

protected:
    void onMetadataChanged(const quint64 &id) override { changes.push_back(id); }
    [[nodiscard]] bool isMetadataValid(const IMetadata *value) const override
    {
        const auto *const counted = dynamic_cast<const Counted *>(value);
        return !counted || counted->number() >= 0;
    }
};

/// Clones itself as something else.
class Odd : public Counted
{
public:
    using Counted::Counted;
    class Other : public Interfaces::ICloneable
    {
    public:
        [[nodiscard]] Other *clone() const override { return new Other; }
    };
};

} // namespace

class TestSMetadatable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCOMPARE(Counted::alive.size(), 0U); }

    void clonesWithoutOwnership()
    {
        Owner owner;
        Counted value(1, 5);
        QVERIFY(owner.setMetadata(&value, false));
        IMetadata *const stored = owner.metadata(1);
        QVERIFY(stored && stored != &value && stored->equalsTo(&value));
        QVERIFY(owner.setMetadata(&value, false));
        QCOMPARE(owner.metadata(1), stored);
        QCOMPARE(owner.changes.size(), 1U);
        QCOMPARE(Counted::alive.size(), 2U);

        value.setNumber(6);
        QVERIFY(owner.setMetadata(&value, false));
        QCOMPARE(numberOf(owner.metadata(1)), 6);
        QCOMPARE(owner.changes.size(), 2U);
        QCOMPARE(owner.metadataCount(), 1);
        QCOMPARE(Counted::alive.size(), 2U);
    }

    void takesOver()
    {
        Owner owner;
        auto *const first = new Counted(1, 5);
        QVERIFY(owner.setMetadata(first, true));
        QCOMPARE(owner.metadata(1), first);

        // The stored one again, in both ways.
        QVERIFY(owner.setMetadata(first, true) && owner.setMetadata(first, false));
        QCOMPARE(owner.metadata(1), first);
        QCOMPARE(owner.changes.size(), 1U);
        QCOMPARE(Counted::alive.size(), 1U);

        // An equal one belongs to the owner, is not stored, and can be used for a while.
        auto *const equal = new Counted(1, 5);
        QVERIFY(owner.setMetadata(equal, true) && owner.setMetadata(equal, true));
        QCOMPARE(owner.metadata(1), first);
        QCOMPARE(owner.changes.size(), 1U);
        QVERIFY(isAlive(first) && isAlive(equal));
        for (int i = 0; i < 10; ++i)
            QVERIFY(owner.setMetadata(new Counted(1, 5), true));
        QCOMPARE(Counted::alive.size(), 2U);

        // Another one replaces both.
        auto *const other = new Counted(1, 6);
        QVERIFY(owner.setMetadata(other, true));
        QCOMPARE(owner.metadata(1), other);
        QCOMPARE(owner.changes.size(), 2U);
        QCOMPARE(Counted::alive.size(), 1U);

        // One handed over while equal that has changed since takes the place.
        auto *const changed = new Counted(1, 6);
        QVERIFY(owner.setMetadata(changed, true));
        changed->setNumber(7);
        QVERIFY(owner.setMetadata(changed, true));
        QCOMPARE(owner.metadata(1), changed);
        QCOMPARE(Counted::alive.size(), 1U);

        QVERIFY(owner.setMetadata(new Counted(1, 7), true));
        owner.removeMetadata(1);
        QVERIFY(!owner.hasMetadata(1));
        QCOMPARE(Counted::alive.size(), 0U);
        owner.removeMetadata(1);
        QVERIFY(owner.setMetadata(new Counted(1, 7), true));
        QVERIFY(owner.setMetadata(new Counted(1, 7), true));
        owner.clearMetadata();
        QCOMPARE(Counted::alive.size(), 0U);
    }

    void rejects()
    {
        Owner owner;
        QVERIFY(!owner.setMetadata(nullptr, true) && !owner.setMetadata(nullptr, false));
        Counted negative(1, -1);
        QVERIFY(!owner.setMetadata(&negative, true) && !owner.setMetadata(&negative, false));
        owner.copyMetadata({&negative, nullptr}, MetadataFlags::None);
        QCOMPARE(owner.metadataCount(), 0);
        QVERIFY(owner.changes.empty());
        QVERIFY(!owner.metadata(1));
    }

    // Such a value is not even equal to itself.
    void notANumber()
    {
        Owner owner;
        auto *const nan = new SMetaDouble(std::numeric_limits<double>::quiet_NaN());
        for (const bool takeOwnership : {true, true, false})
            QVERIFY(owner.setMetadata(nan, takeOwnership));
        QCOMPARE(owner.metadata(SMetaDouble::uniqueId()), nan);
        QCOMPARE(owner.changes.size(), 3U);
        owner.copyMetadata({nan, nan}, MetadataFlags::None);
        QCOMPARE(owner.metadataCount(), 1);
        QVERIFY(owner == owner && owner != Owner(owner));
    }

    void masks()
    {
        Owner source;
        const MetadataFlags flags[] = {MetadataFlags::None, MetadataFlags::KillOnCopy,
            MetadataFlags::KillOnSave | MetadataFlags::KillOnChanges, MetadataFlags::Volatile};
        for (quint64 kind = 0; kind < 4; ++kind)
            source.setMetadata(new Counted(kind, 1, flags[kind]), true);
        const auto kept = [&source](MetadataFlags mask) {
            Owner target;
            target.copyMetadata(source.metadataList(), mask);
            QString kinds;
            for (const IMetadata *value : target.metadataList())
                kinds += QString::number(value->id());
            return kinds;
        };
        QCOMPARE(kept(MetadataFlags::None), QStringLiteral("0123"));
        QCOMPARE(kept(MetadataFlags::KillOnCopy), QStringLiteral("02"));
        QCOMPARE(kept(MetadataFlags::KillOnChanges), QStringLiteral("01"));
        QCOMPARE(kept(MetadataFlags::KillOnSpaceTransform), QStringLiteral("012"));
        QCOMPARE(kept(MetadataFlags::Volatile), QStringLiteral("0"));
        QCOMPARE(Owner(source).metadataCount(), 4);
    }

    void copiesAndCompares()
    {
        Owner a;
        Owner b;
        QVERIFY(a == b);
        for (int i = 0; i < 20; ++i) {
            a.setMetadata(new Counted(quint64(i) * 7 % 20, i), true);
            b.setMetadata(new Counted(quint64(19 - i) * 7 % 20, 19 - i), true);
        }
        QVERIFY(a == b);
        const SMetadatable &same = a;
        a = same;
        a = static_cast<Interfaces::IMetadatable *>(&a);
        QCOMPARE(a.metadataCount(), 20);

        SMetadatable copy(b);
        QVERIFY(copy == a && copy.metadata(3) != b.metadata(3));
        SMetadatable viaPointer(static_cast<Interfaces::IMetadatable *>(&b));
        QVERIFY(viaPointer == a);
        b.setMetadata(new Counted(3, 100), true);
        QVERIFY(copy == a && b != a);
        copy = b;
        QVERIFY(copy == b);

        // The same number of values, but of other kinds.
        b.removeMetadata(3);
        b.setMetadata(new Counted(99, 0), true);
        QVERIFY(b != a && a != b);

        // A derived class narrows what it takes.
        SMetadatable all;
        all.setMetadata(new Counted(1, -1), true);
        all.setMetadata(new Counted(2, 1), true);
        b = all;
        QCOMPARE(b.metadataCount(), 1);
        b = static_cast<Interfaces::IMetadatable *>(nullptr);
        QCOMPARE(b.metadataCount(), 0);
    }

    // Thousands of random operations beside a plain model; after each, exactly those live that
    // should.
    void ownershipIsExact()
    {
        struct Slot
        {
            int number = 0;
            bool hasSpare = false;
        };
        QRandomGenerator random(20240229);
        Owner owner;
        std::map<quint64, Slot> model;
        for (int step = 0; step < 20000; ++step) {
            const auto kind = quint64(random.bounded(40));
            const int number = random.bounded(-1, 3);
            const auto slot = model.find(kind);
            const bool isEqual = slot != model.end() && slot->second.number == number;
            switch (random.bounded(100)) {
            case 0:
                owner.clearMetadata();
                model.clear();
                break;
            case 1: {
                const Owner copy(owner);
                QVERIFY(copy == owner);
                owner = copy;
                for (auto &[id, value] : model)
                    value.hasSpare = false;
                break;
            }
            case 2:
                owner.copyMetadata(owner.metadataList(), MetadataFlags::None);
                break;
            default:
                if (random.bounded(4) == 0) {
                    owner.removeMetadata(kind);
                    model.erase(kind);
                } else if (slot != model.end() && random.bounded(4) == 0) {
                    QVERIFY(owner.setMetadata(owner.metadata(kind), random.bounded(2) == 0));
                } else {
                    auto value = std::make_unique<Counted>(kind, number);
                    const bool take = random.bounded(2) == 0;
                    QCOMPARE(owner.setMetadata(value.get(), take), number >= 0);
                    if (number < 0)
                        break;
                    if (take)
                        static_cast<void>(value.release());
                    if (!isEqual)
                        model[kind] = {number, false};
                    else if (take)
                        slot->second.hasSpare = true;
                }
            }
            std::size_t living = model.size();
            for (const auto &[id, value] : model) {
                living += value.hasSpare ? 1 : 0;
                QVERIFY(owner.hasMetadata(id));
                QCOMPARE(numberOf(owner.metadata(id)), value.number);
            }
            QCOMPARE(std::size_t(owner.metadataCount()), model.size());
            QCOMPARE(Counted::alive.size(), living);
        }
    }
};

QTEST_GUILESS_MAIN(TestSMetadatable)
#include "tst_smetadatable.moc"
