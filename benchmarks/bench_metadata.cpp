// The metadata container beside the two ways that Qt has of attaching values to an object.

#include "harness.h"

#include <tavex/SMetaVariant>
#include <tavex/SMetadatable>

#include <QObject>
#include <QVariantMap>

#include <array>
#include <memory>
#include <typeinfo>
#include <utility>

using namespace Quorvex;

namespace {

/// One class for each number: a container holds one value of each.
template <std::size_t>
class Value : public SMetaVariant
{
public:
    Value(int number)
        : SMetaVariant(number)
    {
    }
    [[nodiscard]] Value *clone() const override { return new Value(*this); }
    [[nodiscard]] quint64 id() const override { return uniqueId(); }
    [[nodiscard]] static quint64 uniqueId()
    {
        static const quint64 id = typeid(Value).hash_code();
        return id;
    }
};

constexpr std::size_t Most = 32;

using Make = SMetaVariant *(*)(int);
using Id = quint64 (*)();

template <std::size_t... Index>
constexpr std::array<Make, Most> makers(std::index_sequence<Index...>)
{
    return {[](int number) -> SMetaVariant * { return new Value<Index>(number); }...};
}

template <std::size_t... Index>
constexpr std::array<Id, Most> ids(std::index_sequence<Index...>)
{
    return {&Value<Index>::uniqueId...};
}

constexpr auto Makers = makers(std::make_index_sequence<Most>());
constexpr auto Ids = ids(std::make_index_sequence<Most>());

/// The names under which Qt keeps the values.
struct Names
{
    Names()
    {
        for (std::size_t i = 0; i < Most; ++i) {
            bytes[i] = "value" + QByteArray::number(int(i));
            texts[i] = QString::fromLatin1(bytes[i]);
        }
    }
    std::array<QByteArray, Most> bytes;
    std::array<QString, Most> texts;
};

void fill(SMetadatable &container, std::size_t count, int number)
{
    for (std::size_t i = 0; i < count; ++i)
        container.setMetadata(Makers[i](number + int(i)), true);
}

void fill(QObject &object, const Names &names, std::size_t count, int number)
{
    for (std::size_t i = 0; i < count; ++i)
        object.setProperty(names.bytes[i].constData(), number + int(i));
}

void fill(QVariantMap &map, const Names &names, std::size_t count, int number)
{
    for (std::size_t i = 0; i < count; ++i)
        map.insert(names.texts[i], number + int(i));
}

int numberOf(const Interfaces::IMetadata *value)
{
    return static_cast<const SMetaVariant *>(value)->value().toInt();
}

void measure(const Bench::Topic &topic, std::size_t count)
{
    const Names names;
    // Two numbers in turn, so that setting always changes the value.
    const std::vector<int> numbers{1, 2};
    const auto name = [count](const char *what) {
        return QByteArray(what) + ' ' + QByteArray::number(int(count));
    };

    topic.compare(
        name("fill a new one").constData(), numbers,
        [&](int number) {
            SMetadatable container;
            fill(container, count, number);
            return container.metadataCount();
        },
        Bench::Peer{"QObject's properties",
            [&](int number) {
                QObject object;
                fill(object, names, count, number);
                return object.dynamicPropertyNames().size();
            }},
        Bench::Peer{"QVariantMap", [&](int number) {
                        QVariantMap map;
                        fill(map, names, count, number);
                        return map.size();
                    }});

    SMetadatable container;
    QObject object;
    QVariantMap map;
    fill(container, count, 0);
    fill(object, names, count, 0);
    fill(map, names, count, 0);

    topic.compare(
        name("set").constData(), numbers,
        [&](int number) {
            fill(container, count, number);
            return number;
        },
        Bench::Peer{"QObject's properties",
            [&](int number) {
                fill(object, names, count, number);
                return number;
            }},
        Bench::Peer{"QVariantMap", [&](int number) {
                        fill(map, names, count, number);
                        return number;
                    }});

    fill(container, count, 0);
    fill(object, names, count, 0);
    fill(map, names, count, 0);
    topic.compare(
        name("get").constData(), numbers,
        [&](int sum) {
            for (std::size_t i = 0; i < count; ++i)
                sum += numberOf(container.metadata(Ids[i]()));
            return sum;
        },
        Bench::Peer{"QObject's properties",
            [&](int sum) {
                for (std::size_t i = 0; i < count; ++i)
                    sum += object.property(names.bytes[i].constData()).toInt();
                return sum;
            }},
        Bench::Peer{"QVariantMap", [&](int sum) {
                        for (std::size_t i = 0; i < count; ++i)
                            sum += map.value(names.texts[i]).toInt();
                        return sum;
                    }});

    topic.compare(
        name("iterate").constData(), numbers,
        [&](int sum) {
            for (const Interfaces::IMetadata *value : container.metadataList())
                sum += numberOf(value);
            return sum;
        },
        Bench::Peer{"QObject's properties",
            [&](int sum) {
                for (const QByteArray &property : object.dynamicPropertyNames())
                    sum += object.property(property.constData()).toInt();
                return sum;
            }},
        Bench::Peer{"QVariantMap", [&](int sum) {
                        for (const QVariant &value : std::as_const(map))
                            sum += value.toInt();
                        return sum;
                    }});
}

void metadata(const Bench::Topic &topic)
{
    for (const std::size_t count : {1U, 8U, 32U})
        measure(topic, count);

    SMetadatable container;
    fill(container, 8, 0);
    const std::vector<int> once{0};
    topic.compare(
        "copy 8", once, [&](int) { return SMetadatable(container).metadataCount(); },
        Bench::Peer{"8 clones", [&](int) {
                        std::array<std::unique_ptr<Interfaces::ICloneable>, 8> clones;
                        qsizetype count = 0;
                        for (const Interfaces::IMetadata *value : container.metadataList())
                            clones[std::size_t(count++)].reset(value->clone());
                        return count;
                    }});
}

const Bench::Registration registration("metadata", &metadata);

} // namespace
