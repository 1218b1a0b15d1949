#include <tavex/SUnitConvert>

#include <QTest>

#include <limits>

using namespace Quorvex;

namespace {

template <typename T>
constexpr T Max = (std::numeric_limits<T>::max)();
template <typename T>
constexpr T Min = (std::numeric_limits<T>::min)();

} // namespace

class TestSUnitConvert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void binaryUnits()
    {
        QCOMPARE(SUnitConvert::binaryUnits(1.0, BinaryUnit::GiB, BinaryUnit::MiB), 1024.0);
        QCOMPARE(SUnitConvert::binaryUnits(2048, BinaryUnit::Byte, BinaryUnit::KiB), 2);
        QCOMPARE(SUnitConvert::toKiB(3000, BinaryUnit::Byte), 2);
        QCOMPARE(SUnitConvert::toKiB(-3000L, BinaryUnit::Byte), -2L);
        QCOMPARE(SUnitConvert::toKiB(1023U, BinaryUnit::Byte), 0U);
        QCOMPARE(SUnitConvert::toYiB(1.0F, BinaryUnit::Byte), 0x1p-80F);
        // A double could not hold this value; between equal units it stays exact.
        QCOMPARE(SUnitConvert::toBytes(Max<qint64>, BinaryUnit::Byte), Max<qint64>);
    }

    void outOfRange()
    {
        QCOMPARE(SUnitConvert::toBytes(1, BinaryUnit::YiB), Max<int>);
        QCOMPARE(SUnitConvert::toBytes(-1, BinaryUnit::YiB), Min<int>);
        QCOMPARE(
            SUnitConvert::toBytes(static_cast<signed char>(1), BinaryUnit::KiB), Max<signed char>);
        QCOMPARE(SUnitConvert::toBytes(Max<quint64>, BinaryUnit::KiB), Max<quint64>);
        QCOMPARE(SUnitConvert::toBytes(qint64(1) << 53, BinaryUnit::KiB), Max<qint64>);
        QCOMPARE(SUnitConvert::toBytes(-(qint64(1) << 53), BinaryUnit::KiB), Min<qint64>);
        // 0 times infinity.
        QCOMPARE(SUnitConvert::binaryUnits(0, BinaryUnit(2000), BinaryUnit::Byte), 0);
        QCOMPARE(SUnitConvert::binaryUnits(5, BinaryUnit(Min<int>), BinaryUnit(Max<int>)), 0);
    }

    void autoBinaryUnits_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<BinaryUnit>("unit");
        QTest::addColumn<double>("best");
        QTest::addColumn<BinaryUnit>("bestUnit");
        QTest::newRow("just above")
            << 1048577.0 << BinaryUnit::Byte << 1048577.0 / 1048576 << BinaryUnit::MiB;
        QTest::newRow("exactly") << 1048576.0 << BinaryUnit::Byte << 1024.0 << BinaryUnit::KiB;
        QTest::newRow("1 KiB") << 1024.0 << BinaryUnit::Byte << 1024.0 << BinaryUnit::Byte;
        QTest::newRow("1.5 KiB") << 1536.0 << BinaryUnit::Byte << 1.5 << BinaryUnit::KiB;
        QTest::newRow("no smaller unit") << 0.5 << BinaryUnit::KiB << 0.5 << BinaryUnit::KiB;
        QTest::newRow("negative") << -4096.0 << BinaryUnit::Byte << -4096.0 << BinaryUnit::Byte;
        QTest::newRow("beyond") << 0x1p100 << BinaryUnit::Byte << 0x1p20 << BinaryUnit::YiB;
    }
    void autoBinaryUnits()
    {
        QFETCH(double, value);
        QFETCH(BinaryUnit, unit);
        QTEST(SUnitConvert::autoBinaryUnits(value, unit), "bestUnit");
        QTEST(value, "best");
    }

    // The threshold is on the truncated number.
    void autoBinaryUnitsOfIntegers()
    {
        int value = 5000;
        QCOMPARE(SUnitConvert::autoBinaryUnits(value, BinaryUnit::Byte), BinaryUnit::KiB);
        QCOMPARE(value, 4);
        value = 1536;
        QCOMPARE(SUnitConvert::autoBinaryUnits(value, BinaryUnit::Byte), BinaryUnit::Byte);
        QCOMPARE(value, 1536);
    }

    void prefixes()
    {
        QCOMPARE(SUnitConvert::siPrefixes(1.0, SIPrefix::Kilo, SIPrefix::Milli), 1e6);
        QCOMPARE(SUnitConvert::toKilo(-1999, SIPrefix::Base), -1);
        QCOMPARE(SUnitConvert::toYotta(1.0, SIPrefix::Yocto), 1.0 / std::pow(10.0, 48));
        QCOMPARE(SUnitConvert::toBaseUnit(Max<quint64>, SIPrefix::Deca), Max<quint64>);
    }

    void customaryLengths()
    {
        using U = SCSLengthUnit;
        QCOMPARE(SUnitConvert::toFoots(1.0F, U::Yard), 3.0F);
        QCOMPARE(SUnitConvert::toFoots(-23, U::Inch), -1);
        // Wraps as the promoted type does, and only then has to fit the type itself.
        QCOMPARE(SUnitConvert::toInches(70000, U::Mile), 140232704);
        QCOMPARE(SUnitConvert::toYards(Min<qint64>, U::Foot), 0);
        QCOMPARE(SUnitConvert::toInches(quint8(1), U::Mile), quint8(255));
        QCOMPARE(SUnitConvert::toMiles(short(-32768), U::Furlong), short(-4096));
        QCOMPARE(SUnitConvert::scsLengthUnits(Min<int>, U::Inch, U(-1)), 0);
    }

    void lengths()
    {
        using S = SILengthUnit;
        using U = SCSLengthUnit;
        QCOMPARE(SUnitConvert::toSCSLength(100.0, S::CentiMeter, U::Inch), 100 / 2.54);
        QCOMPARE(SUnitConvert::toSCSLength(1, S::Meter, U::Foot), 3);
        QCOMPARE(SUnitConvert::toSCSLength(1.0, S::Meter, U::Foot), 100 / 2.54 / 12);
        QCOMPARE(SUnitConvert::toSCSLength(59, S::MilliMeter, U::Inch), 1);
        QCOMPARE(SUnitConvert::toSCSLength(quint8(3), S::Meter, U::Inch), quint8(100));
        QCOMPARE(SUnitConvert::toSILength(1.0, U::Inch, S::CentiMeter), 2.54);
        QCOMPARE(SUnitConvert::toSILength(1, U::Foot, S::MilliMeter), 304);
        QCOMPARE(SUnitConvert::toSILength(-1, U::Mile, S::KiloMeter), -1);
    }
};

QTEST_APPLESS_MAIN(TestSUnitConvert)
#include "tst_sunitconvert.moc"
