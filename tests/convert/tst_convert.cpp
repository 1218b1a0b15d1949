#include "common.h"
#include "laws.h"

class TestConvert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void locales()
    {
        const std::tuple<const char *, const char *, const char *> rows[] = {
            {"de_DE", "de_DE", "de"}, {"fil_PH", "fil_PH", "fil"}, {"C", "C", "C"},
            {"tlh", "tlh", "tlh"}, {"TLH", "tlh", "tlh"}, {"no such locale", "C", "C"}};
        for (const auto &[name, full, language] : rows) {
            const SLocale locale(string(name));
            const QStringList names{locale.name(), locale.name(true), SLocale::lcName(locale, true),
                SLocale::lcName(locale)};
            COMPARE_ROW(name, names.join(u' '),
                "%1 %2 %1 %3"_s.arg(
                    string(full), string(language), string(full).replace(u'_', u'-')));
            COMPARE_ROW(name, SLocale::isKlingon(locale), full == QByteArray("tlh"));
        }
        const QLocale german(QLocale::German);
        QCOMPARE(SLocale("tlh"_s).nativeLanguageName(), "tlhIngan Hol"_s);
        QCOMPARE(SLocale(german).nativeLanguageName(), "Deutsch"_s);

        const SLocale ungrouped(german, QLocale::OmitGroupSeparator);
        for (const SLocale &locale : {ungrouped, SLocale(ungrouped)})
            QCOMPARE(locale.locale().toString(12345), "12345"_s);
        QCOMPARE(SLocale(german).locale().toString(12345), "12.345"_s);
        VERIFY_ALL(ungrouped != SLocale(german), SLocale(german) == german);
        QCOMPARE(QDebug::toString(SLocale(german)), "SLocale(\"de_DE\")"_s);
    }

    // Scripts and number options come back too.
    void savedLocales()
    {
        QList<QLocale> locales = everyLocale();
        locales += SLocale("tlh"_s);
        for (const QLocale &locale : locales) {
            const SLocale saved(locale, QLocale::OmitGroupSeparator);
            QByteArray bytes;
            QDataStream writer(&bytes, QIODevice::WriteOnly);
            QDataStream reader(&bytes, QIODevice::ReadOnly);
            QVariant read;
            writer << QVariant::fromValue(saved);
            reader >> read;
            QVERIFY2(read.value<SLocale>() == saved, qPrintable(QDebug::toString(saved)));
            QCOMPARE(std::hash<SLocale>()(read.value<SLocale>()), qHash(saved));
        }
        SLocale kept(locales.last());
        QDataStream cut(QByteArray("\0\0\0\2", 4));
        cut >> kept;
        QVERIFY(SLocale::isKlingon(kept));
    }

    void converters()
    {
        using C = SVariantConvert;
        const C::Converter first = [](auto &, auto &, auto &) { return "1"_s; };
        const C::Converter second = [](auto &, auto &, auto &) { return "2"_s; };
        QVERIFY(!C::isSVariantToStringRegistered(QMetaType::Int));
        QVERIFY(!C::sVariantToStringFunction(QMetaType::Int));
        for (const C::Converter converter : {first, second, C::Converter()})
            C::sVariantToStringRegister(QMetaType::Int, converter);
        QVERIFY(C::sVariantToStringFunction(QMetaType::Int) == second);
        QVERIFY(C::isSVariantToStringRegistered(QMetaType::Int));
        // Finds races under the thread sanitizer, and a map that loses entries.
        const auto fill = [&](int begin) {
            for (int i = begin; i < 2000; i += 2) {
                C::sVariantToStringRegister(100000 + i, first);
                (void)C::isSVariantToStringRegistered(101999 - i);
            }
        };
        together([&] { fill(0); }, [&] { fill(1); });
        for (int i = 0; i < 2000; ++i)
            QVERIFY(C::sVariantToStringFunction(100000 + i) == first);
    }

    void binaryUnits()
    {
        using U = BinaryUnit;
        QCOMPARE(SUnitConvert::binaryUnits(1.0, U::GiB, U::MiB), 1024.0);
        QCOMPARE(SUnitConvert::toKiB(3000, U::Byte), 2);
        QCOMPARE(SUnitConvert::toKiB(-3000L, U::Byte), -2L);
        QCOMPARE(SUnitConvert::toKiB(1023U, U::Byte), 0U);
        QCOMPARE(SUnitConvert::toYiB(1.0F, U::Byte), 0x1p-80F);
        // A double could not hold this value; between equal units it stays exact.
        QCOMPARE(SUnitConvert::toBytes(Max<qint64> - 1, U::Byte), Max<qint64> - 1);

        QCOMPARE(SUnitConvert::toBytes(1, U::YiB), Max<int>);
        QCOMPARE(SUnitConvert::toBytes(-1, U::YiB), Min<int>);
        QCOMPARE(SUnitConvert::toBytes(static_cast<signed char>(1), U::KiB), Max<signed char>);
        QCOMPARE(SUnitConvert::toBytes(Max<quint64>, U::KiB), Max<quint64>);
        QCOMPARE(SUnitConvert::toBytes(qint64(1) << 53, U::KiB), Max<qint64>);
        QCOMPARE(SUnitConvert::toBytes(-(qint64(1) << 53), U::KiB), Min<qint64>);
        QCOMPARE(SUnitConvert::binaryUnits(0, U(2000), U::Byte), 0); // 0 times infinity.
        QCOMPARE(SUnitConvert::binaryUnits(5, U(Min<int>), U(Max<int>)), 0);
    }

    void autoBinaryUnits()
    {
        using U = BinaryUnit;
        const auto row = [](auto value, U unit, decltype(value) best, U bestUnit) {
            QCOMPARE(SUnitConvert::autoBinaryUnits(value, unit), bestUnit);
            QCOMPARE(value, best);
        };
        row(1048577.0, U::Byte, 1048577.0 / 1048576, U::MiB);
        row(1048576.0, U::Byte, 1024.0, U::KiB);
        row(1024.0, U::Byte, 1024.0, U::Byte);
        row(1536.0, U::Byte, 1.5, U::KiB);
        row(0.5, U::KiB, 0.5, U::KiB);
        row(-4096.0, U::Byte, -4096.0, U::Byte);
        row(0x1p100, U::Byte, 0x1p20, U::YiB);
        // The threshold is on the truncated number.
        row(5000, U::Byte, 4, U::KiB);
        row(1536, U::Byte, 1536, U::Byte);
    }

    void prefixesAndLengths()
    {
        QCOMPARE(SUnitConvert::siPrefixes(1.0, SIPrefix::Kilo, SIPrefix::Milli), 1e6);
        // A division by a power is exact where the product with its inverse is not.
        QVERIFY(SUnitConvert::toDeca(3.0, SIPrefix::Base) == 0.3);
        QVERIFY(SUnitConvert::toBaseUnit(0.3, SIPrefix::Deca) == 3.0);
        QCOMPARE(SUnitConvert::toKilo(-1999, SIPrefix::Base), -1);
        QCOMPARE(SUnitConvert::toYotta(1.0, SIPrefix::Yocto), 1.0 / std::pow(10.0, 48));
        QCOMPARE(SUnitConvert::toBaseUnit(Max<quint64>, SIPrefix::Deca), Max<quint64>);

        using U = SCSLengthUnit;
        QCOMPARE(SUnitConvert::toFoots(1.0F, U::Yard), 3.0F);
        QCOMPARE(SUnitConvert::toFoots(-23, U::Inch), -1);
        // The product wraps in the promoted type; only then is it cut to the type itself.
        QCOMPARE(SUnitConvert::toInches(70000, U::Mile), 140232704);
        QCOMPARE(SUnitConvert::toYards(Min<qint64>, U::Foot), 0);
        QCOMPARE(SUnitConvert::toInches(quint8(1), U::Mile), quint8(255));
        QCOMPARE(SUnitConvert::toMiles(short(-32768), U::Furlong), short(-4096));
        QCOMPARE(SUnitConvert::toMiles(Max<int>, U::Mile), Max<int>);
        for (const int none : {-1, 0})
            QCOMPARE(SUnitConvert::scsLengthUnits(Min<int>, U::Inch, U(none)), 0);
        QCOMPARE(SUnitConvert::scsLengthUnits(2, U::Yard, U::Foot), 6);

        using S = SILengthUnit;
        QCOMPARE(SUnitConvert::toSCSLength(100.0, S::CentiMeter, U::Inch), 100 / 2.54);
        QCOMPARE(SUnitConvert::toSCSLength(1, S::Meter, U::Foot), 3);
        QCOMPARE(SUnitConvert::toSCSLength(59, S::MilliMeter, U::Inch), 1);
        QCOMPARE(SUnitConvert::toSCSLength(quint8(3), S::Meter, U::Inch), quint8(100));
        QCOMPARE(SUnitConvert::toSILength(1.0, U::Inch, S::CentiMeter), 2.54);
        QCOMPARE(SUnitConvert::toSILength(1, U::Foot, S::MilliMeter), 304);
        QCOMPARE(SUnitConvert::toSILength(-1, U::Mile, S::KiloMeter), -1);
    }
};

QTEST_APPLESS_MAIN(TestConvert)
#include "tst_convert.moc"
