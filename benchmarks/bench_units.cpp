// The unit conversion beside the bare formula, which does not look at signs and limits.

#include "harness.h"

#include <tavex/SUnitConvert>

#include <QRandomGenerator>

#include <cmath>

using namespace Quorvex;

namespace {

template <typename T, typename Unit>
struct Quantity
{
    T value;
    Unit from;
    Unit to;
    double distance;
};

/// Values that fit T in all units, half of them to be converted upwards. The units are \a step
/// apart.
template <typename T, typename Unit>
std::vector<Quantity<T, Unit>> quantities(int step)
{
    constexpr int Count = 64;
    QRandomGenerator random(1);
    std::vector<Quantity<T, Unit>> result;
    for (int i = 0; i < Count; ++i) {
        const T value = std::is_integral_v<T> ? T(random.bounded(-2048, 2048))
                                              : T((random.generateDouble() - 0.5) * 1e6);
        const int from = step * random.bounded(1, 7);
        const int distance = i % 2 ? step : -step;
        result.push_back({value, Unit(from), Unit(from + distance), double(distance)});
    }
    return result;
}

void units(const Bench::Topic &topic)
{
    const auto binary = [&]<typename T>(const char *name, T) {
        using Q = Quantity<T, BinaryUnit>;
        topic.compare(
            name, quantities<T, BinaryUnit>(10),
            [](const Q &q) { return SUnitConvert::binaryUnits(q.value, q.from, q.to); },
            Bench::Peer{"v / std::pow(2.0, d)",
                [](const Q &q) { return T(q.value / std::pow(2.0, q.distance)); }});
    };
    binary("binaryUnits(double)", double());
    binary("binaryUnits(int)", int());

    // To smaller units it multiplies, because negative powers of ten are not exact.
    const auto scale = [](double value, double distance) {
        return distance > 0 ? value / std::pow(10.0, distance) : value * std::pow(10.0, -distance);
    };
    const auto decimal = [&]<typename T>(const char *name, T) {
        using Q = Quantity<T, SIPrefix>;
        topic.compare(
            name, quantities<T, SIPrefix>(3),
            [](const Q &q) { return SUnitConvert::siPrefixes(q.value, q.from, q.to); },
            Bench::Peer{"v / std::pow(10.0, d)",
                [=](const Q &q) { return T(scale(q.value, q.distance)); }});
    };
    decimal("siPrefixes(double)", double());
    decimal("siPrefixes(int)", int());

    using Length = Quantity<double, SILengthUnit>;
    topic.compare(
        "toSCSLength(double)", quantities<double, SILengthUnit>(3),
        [](const Length &q) {
            return SUnitConvert::toSCSLength(q.value, q.from, SCSLengthUnit::Foot);
        },
        Bench::Peer{"v * pow(10.0, d) / 2.54 / 12", [](const Length &q) {
                        return q.value * std::pow(10.0, double(q.from) + 2) / 2.54 / 12;
                    }});
}

const Bench::Registration registration("units", &units);

} // namespace
