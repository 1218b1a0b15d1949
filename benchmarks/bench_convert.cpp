// Numbers to text and back beside QLocale's own calls.

#include "harness.h"

#include <tavex/SConvert>

#include <QRandomGenerator>

using namespace Quorvex;

namespace {

std::vector<int> numbers()
{
    constexpr int Count = 64;
    QRandomGenerator random(1);
    std::vector<int> result;
    result.reserve(Count);
    for (int i = 0; i < Count; ++i)
        result.push_back(static_cast<int>(random.generate()) >> random.bounded(31));
    return result;
}

void convert(const Bench::Topic &topic)
{
    // Not the default locale: where that is the system's, Qt asks the system at every number.
    const QLocale locale = QLocale::c();
    const std::vector<int> values = numbers();
    std::vector<double> reals;
    QStringList integerTexts;
    QStringList realTexts;
    for (const int value : values) {
        reals.push_back(value / 1000.0);
        integerTexts.append(locale.toString(value));
        realTexts.append(locale.toString(value / 1000.0, 'f', 3));
    }

    topic.compare(
        "toInt32(text, ok, locale)", integerTexts,
        [&](const QString &text) {
            bool ok = false;
            const int value = SConvert::toInt32(text, &ok, locale);
            return ok ? value : 0;
        },
        Bench::Peer{"QLocale::toInt", [&](const QString &text) {
                        bool ok = false;
                        const int value = locale.toInt(text, &ok);
                        return ok ? value : 0;
                    }});
    topic.compare(
        "toDouble(text, ok, locale)", realTexts,
        [&](const QString &text) {
            bool ok = false;
            const double value = SConvert::toDouble(text, &ok, locale);
            return ok ? value : 0;
        },
        Bench::Peer{"QLocale::toDouble", [&](const QString &text) {
                        bool ok = false;
                        const double value = locale.toDouble(text, &ok);
                        return ok ? value : 0;
                    }});
    topic.compare(
        "toString(int, locale)", values,
        [&](int value) { return SConvert::toString(value, locale); },
        Bench::Peer{"QLocale::toString", [&](int value) { return locale.toString(value); }});
    topic.compare(
        "toString(double, locale)", reals,
        [&](double value) { return SConvert::toString(value, locale); },
        Bench::Peer{"QLocale::toString", [&](double value) {
                        return locale.toString(value, 'g', QLocale::FloatingPointShortest);
                    }});
}

const Bench::Registration registration("convert", &convert);

} // namespace
