// The random numbers beside the generator of the standard library that gives the same ones.

#include "harness.h"

#include <tavex/SRandom>
#include <tavex/numeric/srandom_p.h>

#include <QByteArrayView>

#include <algorithm>
#include <array>
#include <cstring>
#include <random>

using namespace Quorvex;

namespace {

template <typename Generator>
quint64 sumOf(Generator generator)
{
    quint64 sum = 0;
    for (int i = 0; i < 1024; ++i)
        sum += static_cast<quint64>(generator());
    return sum;
}

/// What the standard generator writes into \a numbers.
template <typename T>
QByteArrayView standardFill(QList<T> &numbers, uint seed)
{
    std::minstd_rand0 generator(seed);
    std::generate(numbers.begin(), numbers.end(), [&]() -> T {
        if constexpr (std::is_floating_point_v<T>)
            return static_cast<T>(generator()) / static_cast<T>(2147483647);
        else
            return static_cast<T>(generator());
    });
    return {
        reinterpret_cast<const char *>(numbers.constData()), numbers.size() * qsizetype(sizeof(T))};
}

template <typename T>
void compareLists(const Bench::Topic &topic, const char *name)
{
    QList<T> list((1 << 20) / sizeof(T));
    QList<T> standard(list.size());
    topic.compare(
        name, std::array{SRandom::legacySeed()},
        [&](uint seed) {
            SRandom(seed).fill(list);
            return QByteArrayView(reinterpret_cast<const char *>(list.constData()), 1 << 20);
        },
        Bench::Peer{"std::minstd_rand0", [&](uint seed) { return standardFill(standard, seed); }});
}

void random(const Bench::Topic &topic)
{
    const std::array seeds{SRandom::legacySeed()};
    topic.compare(
        "next(), 1024 times", seeds,
        [](uint seed) {
            return sumOf([random = SRandom(seed)]() mutable { return random.next(); });
        },
        Bench::Peer{"std::minstd_rand0", [](uint seed) { return sumOf(std::minstd_rand0(seed)); }});

    QByteArray bytes;
    const auto fillData = [&](uint seed) {
        SRandom::fillData(bytes.data(), bytes.size(), seed);
        return QByteArrayView(bytes);
    };
    QList<int> standard((1 << 20) / sizeof(int));
    const Bench::Peer peer{
        "std::minstd_rand0", [&](uint seed) { return standardFill(standard, seed); }};
    bytes.resize(1 << 20);
    topic.compare("fillData() 1 MiB", seeds, fillData, peer);
    if (!RandomLanes::fills().empty()) {
        // The narrowest vectors, as on a processor that has no wider ones.
        const auto narrow = [&, fill = RandomLanes::fills().back()](uint seed) {
            fill(seed, bytes.data(), bytes.size() / 4);
            return QByteArrayView(bytes);
        };
        topic.compare("SSE2 only, 1 MiB", seeds, narrow, peer);
    }
    bytes.resize(64 << 20);
    standard.resize((64 << 20) / sizeof(int));
    topic.compare("fillData() 64 MiB", seeds, fillData, peer,
        Bench::Yardstick{"(memset)", [&](uint seed) {
                             return std::memset(
                                 standard.data(), static_cast<int>(seed & 0xFF), 64U << 20);
                         }});
    compareLists<int>(topic, "fill(QList<int> &) 1 MiB");
    compareLists<double>(topic, "fill(QList<double> &) 1 MiB");
}

const Bench::Registration registration("random", &random);

} // namespace
