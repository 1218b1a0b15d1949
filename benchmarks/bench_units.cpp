// The unit conversion beside the bare formula, which does not look at signs and limits.

#include "harness.h"

#include <tavex/SUnitConvert>

#include <QRandomGenerator>

#include <cmath>

using namespace Quorvex;

namespace {

template <typename T>
struct Quantity
{
    T value;
    BinaryUnit from;
    BinaryUnit to;
    double distance;
};

/// Values that fit T in all units, half of them to be converted upwards.
template <typename T>
std::vector<Quantity<T>> quantities()
{
    constexpr int Count = 64;
    QRandomGenerator random(1);
    std::vector<Quantity<T>> result;
    for (int i = 0; i < Count; ++i) {
        const T value = std::is_integral_v<T> ? T(random.bounded(-2048, 2048))
                                              : T((random.generateDouble() - 0.5) * 1e6);
        const auto from = static_cast<BinaryUnit>(10 * random.bounded(1, 7));
        const int step = i % 2 ? 10 : -10;
        const auto to = static_cast<BinaryUnit>(static_cast<int>(from) + step);
        result.push_back({value, from, to, double(step)});
    }
    return result;
}

template <typename T>
void compareUnits(const Bench::Topic &topic, const char *name)
{
    topic.compare(
        name, quantities<T>(),
        [](const Quantity<T> &q) { return SUnitConvert::binaryUnits(q.value, q.from, q.to); },
        Bench::Peer{"v / std::pow(2.0, d)",
            [](const Quantity<T> &q) { return T(q.value / std::pow(2.0, q.distance)); }});
}

void units(const Bench::Topic &topic)
{
    compareUnits<double>(topic, "binaryUnits(double)");
    compareUnits<int>(topic, "binaryUnits(int)");
}

const Bench::Registration registration("units", &units);

} // namespace
