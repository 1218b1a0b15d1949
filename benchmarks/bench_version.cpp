// Reading a version beside what an application would write for it.

#include "harness.h"

#include <tavex/SConvert>

#include <QRegularExpression>

using namespace Quorvex;

namespace {

void version(const Bench::Topic &topic)
{
    const QStringList texts{QStringLiteral("1.2.3"), QStringLiteral("10.20.30"),
        QStringLiteral("2.0.12-rc1"), QStringLiteral("Version 6.4.2 of the library"),
        QStringLiteral("release 7"), QStringLiteral("built with 12.2.0 on day 3")};

    // Not the default locale: where that is the system's, Qt asks the system at every number.
    const QLocale locale = QLocale::c();
    // As in the default format, the dots stand for any character.
    const QRegularExpression pattern(QStringLiteral("([0-9]{1,2}).([0-9]{1,2}).([0-9]{1,2})"));
    pattern.optimize();
    topic.compare(
        "SConvert::toVersion(text)", texts,
        [&](const QString &text) { return SConvert::toVersion(text, locale); },
        Bench::Peer{"QRegularExpression", [&](const QString &text) {
                        const QRegularExpressionMatch match = pattern.match(text);
                        if (!match.hasMatch())
                            return SVersion();
                        return SVersion(match.capturedView(1).toInt(),
                            match.capturedView(2).toInt(), match.capturedView(3).toInt());
                    }});
}

const Bench::Registration registration("version", &version);

} // namespace
