// The checksum beside a table-driven generic implementation and one that is hand-written in
// assembler for the processor at hand.

#include "harness.h"

#include <tavex/SCrc32>

#include <QByteArray>
#include <QRandomGenerator>

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
    topic.compare("update() 16 B", std::array{Bytes(bytes, 16)}, update, boost, isal);
    topic.compare("update() 1 KiB", std::array{Bytes(bytes, 1U << 10)}, update, boost, isal);
    topic.compare("update() 64 KiB", std::array{Bytes(bytes, 64U << 10)}, update, boost, isal);
    topic.compare("update() 1 MiB", std::array{Bytes(bytes, 1U << 20)}, update, boost, isal);
    topic.compare("update() 64 MiB", std::array{Bytes(bytes, 64U << 20)}, update, boost, isal,
        Bench::Yardstick{"(reading the memory)", &readWords});

    const std::array arrays{QByteArray(bytes, 64 << 10)};
    const auto hashOf = [](uint polynomial) {
        return [=](const QByteArray &data) { return SCrc32::hash(data, polynomial); };
    };
    topic.compare("hash() 64 KiB", arrays, hashOf(SCrc32::DefaultPolynomial), boost, isal);
    topic.compare("hash() 64 KiB, uncommon", arrays, hashOf(Uncommon),
        Bench::Peer{"Boost.CRC", &boostCrc<Uncommon>});
}

const Bench::Registration registration("crc32", &crc32);

} // namespace
