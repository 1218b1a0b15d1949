// Key texts and converters beside Qt's own reflection of enumerations with the same keys.

#include "harness.h"

#include <tavex/BinaryUnit>
#include <tavex/SVariantConvert>
#include <tavex/SpecialFolder>

#include <QHash>
#include <QMetaEnum>
#include <QVariant>

#include <algorithm>

using namespace Quorvex;

// A class that moc reads cannot be in an unnamed namespace.
namespace QtPeer {

class Enums
{
    Q_GADGET

public:
    enum class SpecialFolder : qint32 { TAVEX_SpecialFolder_KEYS(TAVEX_ENUMERATOR) };
    Q_ENUM(SpecialFolder)
    enum class BinaryUnit : qint32 { TAVEX_BinaryUnit_KEYS(TAVEX_ENUMERATOR) };
    Q_ENUM(BinaryUnit)
};

} // namespace QtPeer

namespace {

template <typename Enum>
QString qtKey(Enum value)
{
    static const QMetaEnum reflection = QMetaEnum::fromType<Enum>();
    return QString::fromLatin1(reflection.valueToKey(static_cast<int>(value)));
}

/// The same value in the library's enumeration and in Qt's.
struct Unit
{
    QVariant ours;
    QVariant qt;
};

void keyTexts(const Bench::Topic &topic)
{
    std::vector<SpecialFolder> folders;
    for (const SEnumKey<SpecialFolder> &row : SpecialFolder_T::rows()) {
        // Of the value with two keys, Qt gives the first and the library the last.
        if (row.value != SpecialFolder::DataLocation)
            folders.push_back(row.value);
    }
    const QLocale locale = QLocale::c();
    topic.compare(
        "key text, 23 keys", folders,
        [&](SpecialFolder value) { return SpecialFolder_T::instance().toString(value, locale); },
        Bench::Peer{"QMetaEnum::valueToKey()", [](SpecialFolder value) {
                        return qtKey(static_cast<QtPeer::Enums::SpecialFolder>(value));
                    }});

    std::vector<BinaryUnit> units;
    for (const SEnumKey<BinaryUnit> &row : BinaryUnit_T::rows())
        units.push_back(row.value);
    topic.compare(
        "key text, 9 keys", units,
        [&](BinaryUnit value) { return BinaryUnit_T::instance().toString(value, locale); },
        Bench::Peer{"QMetaEnum::valueToKey()",
            [](BinaryUnit value) { return qtKey(static_cast<QtPeer::Enums::BinaryUnit>(value)); }});
}

void converters(const Bench::Topic &topic)
{
    std::vector<Unit> units;
    for (const SEnumKey<BinaryUnit> &row : BinaryUnit_T::rows()) {
        units.push_back({QVariant::fromValue(row.value),
            QVariant::fromValue(static_cast<QtPeer::Enums::BinaryUnit>(row.value))});
    }
    const auto qtText = [](const Unit &unit) {
        return qtKey(*static_cast<const QtPeer::Enums::BinaryUnit *>(unit.qt.constData()));
    };

    // The same table without a lock: the difference is the price of being thread-safe.
    QHash<int, SVariantConvert::Converter> table;
    for (int id = QMetaType::User + 1; QMetaType::isRegistered(id); ++id) {
        if (const auto converter = SVariantConvert::sVariantToStringFunction(id))
            table.insert(id, converter);
    }
    topic.compare(
        "converter look-up", units,
        [](const Unit &unit) {
            return SVariantConvert::sVariantToStringFunction(unit.ours.userType());
        },
        Bench::Peer{"QHash without a lock",
            [&](const Unit &unit) { return table.value(unit.ours.userType()); }},
        Bench::Yardstick{"(QMetaEnum::valueToKey())", qtText});

    const QLocale locale = QLocale::c();
    topic.compare(
        "look-up and conversion", units,
        [&](const Unit &unit) {
            const auto converter = SVariantConvert::sVariantToStringFunction(unit.ours.userType());
            return converter(unit.ours, QString(), locale);
        },
        Bench::Peer{"QMetaEnum::valueToKey()", qtText},
        Bench::Peer{"QVariant::toString()", [](const Unit &unit) { return unit.qt.toString(); }});
}

void enums(const Bench::Topic &topic)
{
    keyTexts(topic);
    converters(topic);
}

const Bench::Registration registration("enums", &enums);

} // namespace

#include "bench_enums.moc"
