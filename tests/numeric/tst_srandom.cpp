#include "common.h"

#include <tavex/numeric/srandom_p.h>

#include <QtEndian>

#include <numeric>
#include <random>

namespace RandomLanes = Quorvex::RandomLanes;

namespace {

constexpr uint Modulus = 0x7FFFFFFF;

/// One step as Schrage computes it, with the division that the library does without.
uint schrage(uint state)
{
    const uint s = state != 0 ? state : 123459876;
    const uint high = s / 127773;
    const uint next = 16807 * (s - high * 127773) - 2836 * high;
    return static_cast<int>(next) < 0 ? next + Modulus : next;
}

static_assert(!std::is_invocable_v<decltype([](auto r) -> decltype(r.defaultSeed(0)) { return 0; }),
              SRandom>);

} // namespace

class TestSRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sequence()
    {
        std::minstd_rand0 standard(SRandom::legacySeed());
        SRandom random(SRandom::legacySeed());
        for (int i = 0; i < 100000; ++i)
            QCOMPARE(uint(random.next()), uint(standard()));
        // Every state, also those that the sequence cannot reach.
        for (quint64 state = 0; state <= 0xFFFFFFFF; state += 16381) {
            SRandom step{uint(state)};
            const uint expected = schrage(uint(state));
            VERIFY_ALL(uint(step.next()) == expected, step == SRandom(expected));
        }
    }

    // All fills give the serial sequence, whatever the seed, the size and the alignment.
    void fills()
    {
        constexpr qsizetype Count = 301;
        QList<uint> seeds{0, 1, 123459876, Modulus - 1, Modulus, Modulus + 1, 0x80000001,
            2 * Modulus, 0xFFFFFFFF, SRandom::legacySeed()};
        QRandomGenerator generator(4);
        for (int i = 0; i < 10; ++i)
            seeds.append(generator.generate());
        for (const uint seed : seeds) {
            QList<uint> states{seed};
            QByteArray expected(4 * Count, '\0');
            for (qsizetype i = 0; i < Count; ++i) {
                states.append(schrage(states.at(i)));
                qToLittleEndian(states.at(i + 1), expected.data() + 4 * i);
            }
            for (qsizetype size = 0; size <= Count; ++size) {
                const auto check = [&](auto array, double unit) {
                    SRandom random(5);
                    random.seed(seed);
                    random.fill(array);
                    QVERIFY2(random == SRandom(states.at(size)), QByteArray::number(seed));
                    for (qsizetype i = 0; i < size; ++i)
                        QVERIFY(array[i] == static_cast<int>(states.at(i + 1)) / unit);
                };
                check(QList<int>(size), 1);
                check(SArray<int>(size), 1);
                check(QList<double>(size), 2147483647.0);
                check(SArray<double>(size), 2147483647.0);
                for (const RandomLanes::Fill fill : RandomLanes::fills()) {
                    QByteArray bytes(4 * size + 1, 'x');
                    uint state = seed;
                    if (seed % Modulus == 0)
                        break;
                    const qsizetype count = fill(state, bytes.data() + 1, size);
                    VERIFY_ALL(count <= size, size - count < 64, state == states.at(count));
                    QVERIFY(bytes.mid(1, 4 * count) == expected.left(4 * count));
                }
            }
            for (qsizetype size = 0; size < 4 * Count - 64; ++size) {
                QByteArray bytes(4 * Count, 'x');
                const qsizetype start = 1 + size * 7 % 64;
                SRandom::fillData(bytes.data() + start, size, seed);
                QVERIFY(bytes.mid(start, size) == expected.left(size));
                VERIFY_ALL(bytes.at(start - 1) == 'x', bytes.at(start + size) == 'x');
            }
        }
        const QList<int> copy(5);
        QList<int> list = copy;
        SRandom(9).fill(list);
        QCOMPARE(copy, QList<int>(5));
        QByteArray nothing;
        SRandom::fillByteArray(nothing, 1);
        SRandom::fillData(nullptr, 8, 1);
        SRandom::fillData(nothing.data(), -8, 1);
    }

    // Large fills go past the caches, where the place allows it.
    void largeFills()
    {
        QByteArray bytes(4 * RandomLanes::StreamedCount + 4096, 'x');
        for (const int start : {0, 4, 30, 31, 32}) {
            const qsizetype size = bytes.size() - start - 3;
            SRandom::fillData(bytes.data() + start, size, 77);
            SRandom random(77);
            QByteArray expected(size + 4, 'x');
            for (qsizetype i = 0; i < size; i += 4)
                qToLittleEndian(random.next(), expected.data() + i);
            expected.resize(size);
            QVERIFY2(bytes.mid(start, size) == expected, QByteArray::number(start));
            QVERIFY(bytes.endsWith("xxx"));
        }
    }

    void bounded()
    {
        // As a generator of the standard library it is the one that it says; neither gives 0.
        SRandom random(Modulus);
        std::minstd_rand0 standard(123459876);
        for (int i = 0; i < 1000; ++i)
            QCOMPARE(random(), uint(standard()));
        std::uniform_int_distribution<int> dice(1, 6);
        QCOMPARE(dice(random), dice(standard));

        for (const auto &[lowest, highest] : {std::pair(0, 1), {-3, 4}, {0, Max<int>},
                 {Min<int>, Max<int>}, {-1, Max<int>}, {Max<int> - 1, Max<int>}}) {
            const double width = double(highest) - lowest;
            double sum = 0;
            for (int i = 0; i < 20000; ++i) {
                const int number = random.bounded(lowest, highest);
                QVERIFY(number >= lowest);
                QVERIFY(number < highest);
                sum += (number - double(lowest)) / width;
            }
            QVERIFY(std::abs(sum / 20000 - (width - 1) / width / 2) < 0.01);
        }
        const SRandom before = random;
        QCOMPARE(random.bounded(5, 5), 5);
        QCOMPARE(random.bounded(-5), 0);
        QCOMPARE(random.bounded(-0.5), 0.0);
        QVERIFY(random == before);
        QVERIFY(random.bounded(0.5) < 0.5);
    }

    void rangesAndSeeds()
    {
        SRandom random(3);
        QCOMPARE(random.nextDouble(5.0, 5.0), 5.0);
        QVERIFY(random == SRandom(3));
        const double next = 50421 / 2147483647.0;
        QCOMPARE(random.nextDouble(), next);
        QCOMPARE(SRandom(3).nextDouble(-4.0, 6.0), next - 4);
        QCOMPARE(SRandom(3).nextDouble(1.0, 1 + 0x1p-20), std::fmod(next, 0x1p-20) + 1);

        QByteArray bytes(256, '\0');
        std::iota(bytes.begin(), bytes.end(), '\0');
        QCOMPARE(SRandom::defaultSeed(bytes), 0xCEED6F2DU);
        const auto now = static_cast<uint>(QDateTime::currentMSecsSinceEpoch());
        QVERIFY(SRandom::defaultSeed(nullptr, 5) - now < 60000);
        QVERIFY(SRandom::defaultSeed(QByteArray()) - now < 60000);
    }
};

QTEST_APPLESS_MAIN(TestSRandom)
#include "tst_srandom.moc"
