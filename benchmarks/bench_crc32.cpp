// The checksum beside a table-driven generic implementation and one that is hand-written in
// assembler for the processor at hand.

#include "harness.h"

#include <tavex/SCrc32>
#include <tavex/numeric/scrc32_p.h>

#include <QByteArray>
#include <QRandomGenerator>
#include <QtEndian>

#include <boost/crc.hpp>
#include <isa-l/crc.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

using namespace Quorvex;

namespace {

using Bytes = std::span<const char>;

template <uint Polynomial>
uint boostCrc(Bytes data)
{
    boost::crc_optimal<32, Polynomial, 0xFFFFFFFF, 0, false, false> crc;
    crc.process_bytes(data.data(), data.size());
    return crc.checksum();
}

/// Both what it takes and what it gives are the complement of the register.
uint isalCrc(Bytes data)
{
    return ~crc32_ieee(
        ~SCrc32::initValue(), reinterpret_cast<const unsigned char *>(data.data()), data.size());
}

/// Slicing-by-8: what there is without the processor's help. A call like those of the others.
[[gnu::noinline]] uint slicedCrc(Bytes data)
{
    static constexpr auto t = [] {
        std::array<std::array<uint, 256>, 8> tables{};
        for (uint k = 0; k < 8; ++k) {
            for (uint i = 0; i < 256; ++i) {
                uint entry = k == 0 ? i << 24 : tables[k - 1][i];
                for (int bit = 0; bit < 8; ++bit)
                    entry = entry << 1 ^ (entry >> 31 != 0 ? SCrc32::DefaultPolynomial : 0);
                tables[k][i] = entry;
            }
        }
        return tables;
    }();
    uint crc = SCrc32::initValue();
    std::size_t at = 0;
    for (; at + 8 <= data.size(); at += 8) {
        const uint a = crc ^ qFromBigEndian<uint>(&data[at]);
        const uint b = qFromBigEndian<uint>(&data[at + 4]);
        crc = t[7][a >> 24] ^ t[6][a >> 16 & 0xFF] ^ t[5][a >> 8 & 0xFF] ^ t[4][a & 0xFF]
            ^ t[3][b >> 24] ^ t[2][b >> 16 & 0xFF] ^ t[1][b >> 8 & 0xFF] ^ t[0][b & 0xFF];
    }
    for (; at < data.size(); ++at)
        crc = crc << 8 ^ t[0][crc >> 24 ^ static_cast<uchar>(data[at])];
    return crc;
}

/// The sum of all words: about as fast as one thread can look at every byte. It asks for the bytes
/// of the next page early, because the processor does not look ahead across pages by itself.
quint64 readWords(Bytes data)
{
    constexpr std::size_t Ahead = 4096;
    constexpr std::size_t CacheLine = 64;

    std::array<quint64, 16> sums{};
    for (std::size_t at = 0; at + sizeof sums <= data.size(); at += sizeof sums) {
        const std::size_t next = std::min(at + Ahead, data.size() - sizeof sums);
        __builtin_prefetch(data.data() + next);
        __builtin_prefetch(data.data() + next + CacheLine);
        std::array<quint64, 16> words;
        std::memcpy(words.data(), data.data() + at, sizeof words);
        for (std::size_t i = 0; i < sums.size(); ++i)
            sums[i] += words[i];
    }
    quint64 sum = 0;
    for (const quint64 part : sums)
        sum += part;
    return sum;
}

void crc32(const Bench::Topic &topic)
{
    constexpr uint Uncommon = 0x1EDC6F41;

    std::vector<quint32> words((64U << 20) / sizeof(quint32));
    QRandomGenerator(1).fillRange(words.data(), qsizetype(words.size()));
    const char *const bytes = reinterpret_cast<const char *>(words.data());

    SCrc32 crc;
    const auto update = [&](Bytes data) {
        return crc.update(SCrc32::initValue(), data.data(), data.size());
    };
    const Bench::Peer boost{"Boost.CRC", &boostCrc<SCrc32::DefaultPolynomial>};
    const Bench::Peer isal{"ISA-L", &isalCrc};
    const Bench::Peer sliced{"slicing-by-8", &slicedCrc};
    for (const auto &[name, size] : {std::pair{"update() 8 B", 8}, {"update() 12 B", 12},
             {"update() 16 B", 16}, {"update() 24 B", 24}, {"update() 32 B", 32},
             {"update() 47 B", 47}, {"update() 64 B", 64}})
        topic.compare(name, std::array{Bytes(bytes, std::size_t(size))}, update, isal, sliced);
    for (const auto &[name, size] : {std::pair{"update() 256 B", 256}, {"update() 1 KiB", 1 << 10},
             {"update() 64 KiB", 64 << 10}, {"update() 1 MiB", 1 << 20}})
        topic.compare(name, std::array{Bytes(bytes, std::size_t(size))}, update, isal, boost);
    topic.compare("update() 64 MiB", std::array{Bytes(bytes, 64U << 20)}, update, isal,
        Bench::Yardstick{"(reading the memory)", &readWords});

    const std::array page{Bytes(bytes, 64U << 10)};
    SCrc32 uncommon(Uncommon);
    topic.compare(
        "update() 64 KiB, uncommon", page,
        [&](Bytes data) { return uncommon.update(SCrc32::initValue(), data.data(), data.size()); },
        Bench::Yardstick{"(default polynomial)", update});
    const std::array arrays{QByteArray(bytes, 64 << 10)};
    const auto hashOf = [](uint polynomial) {
        return [=](const QByteArray &data) { return SCrc32::hash(data, polynomial); };
    };
    topic.compare("hash() 64 KiB, uncommon", arrays, hashOf(Uncommon),
        Bench::Peer{"Boost.CRC", &boostCrc<Uncommon>},
        Bench::Yardstick{"(default polynomial)", hashOf(SCrc32::DefaultPolynomial)});

    if (Crc32::folds().empty())
        return;
    // The narrowest vectors, as on a processor that has no wider ones.
    static constexpr auto constants =
        Crc32::foldConstants<Crc32::SlowMultiply>(SCrc32::DefaultPolynomial);
    const auto narrow = [fold = Crc32::folds().back()](Bytes data) {
        return fold(constants, SCrc32::initValue(), reinterpret_cast<const uchar *>(data.data()),
            data.size());
    };
    topic.compare("PCLMULQDQ only, 64 KiB", page, narrow, sliced);
    topic.compare("fold constants", std::array{Uncommon}, &Crc32::computeFoldConstants,
        Bench::Yardstick{"(1000 ns)", [](uint) { return 0; }});
}

const Bench::Registration registration("crc32", &crc32);

} // namespace
