#include "snippets.h"

#include <tavex/BinaryUnit>
#include <tavex/SArray>
#include <tavex/SCrc32>
#include <tavex/SRandom>
#include <tavex/SRectF>
#include <tavex/SUnitConvert>

using namespace Quorvex;

void numbers(QTextStream &out)
{
    //! [units]
    double size = 25'000'000;
    const BinaryUnit unit = SUnitConvert::autoBinaryUnits(size, BinaryUnit::Byte);
    out << QLocale::c().toString(size, 'f', 1) << ' ' << BinaryUnit_T::instance().toString(unit)
        << '\n';
    // An integer is truncated, a real is not.
    out << SUnitConvert::toKiB(1536, BinaryUnit::Byte) << ' '
        << SUnitConvert::toKiB(1536.0, BinaryUnit::Byte) << '\n';

    out << SUnitConvert::toSCSLength(42.195, SILengthUnit::KiloMeter, SCSLengthUnit::Mile)
        << " miles\n";
    //! [units]

    //! [checksum]
    SCrc32 crc;
    crc.update(QByteArray("1234"));
    crc.update(QByteArray("56789"));
    out << Qt::hex << crc.value() << ' ' << SCrc32::hash(QByteArray("123456789")) << Qt::dec
        << '\n';
    //! [checksum]

    //! [random]
    SRandom random(SRandom::legacySeed());
    QList<int> list(3);
    random.fill(list);
    out << list.at(0) << ' ' << list.at(1) << ' ' << list.at(2) << ", " << random.nextDouble()
        << '\n';
    //! [random]

    //! [values]
    const auto frame = SRectF::fromString(QStringLiteral("0; 0; 16.5; 9"));
    out << frame->toString(QLocale(QLocale::German)) << '\n';

    SArray<int> counts(3);
    counts[1] = 7;
    out << counts.at(1) << ' ' << counts.at(99) << '\n';
    //! [values]
}
