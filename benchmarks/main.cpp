// Measures the library beside other code that does the same, topic by topic.

#include "harness.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <cmath>
#include <cstdlib>

namespace {

/// What the user asked for.
struct Options
{
    QStringList topics;
    QString json;
    bool quick = false;
};

/// \a text is written to stderr; the result is that of a wrong command line.
[[noreturn]] void refuse(const QString &text)
{
    QTextStream(stderr) << "bench: " << text << '\n';
    std::exit(2);
}

Options parse(const QStringList &arguments)
{
    const QString topics = Bench::topics().join(QStringLiteral(", "));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Measures the library beside other code that does the same (peers). Each line of\n"
        "the table gives the median times of both and their ratio: above 1, ours is\n"
        "faster. Peers in brackets do other work and give the scale."));
    parser.addPositionalArgument(QStringLiteral("topic"),
        QStringLiteral("What to measure: %1. All without a topic.").arg(topics),
        QStringLiteral("[TOPIC...]"));
    const QCommandLineOption help(
        {QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this text."));
    const QCommandLineOption json(QStringLiteral("json"),
        QStringLiteral("Also write the rows to FILE, as a JSON list with times in nanoseconds."),
        QStringLiteral("FILE"));
    const QCommandLineOption quick(QStringLiteral("quick"),
        QStringLiteral("Measure only for a moment, to see that the benchmarks work."));
    parser.addOptions({help, json, quick});

    if (!parser.parse(arguments))
        refuse(parser.errorText());
    if (parser.isSet(help)) {
        QTextStream(stdout) << parser.helpText();
        std::exit(0);
    }
    Options options{parser.positionalArguments(), parser.value(json), parser.isSet(quick)};
    for (const QString &topic : std::as_const(options.topics)) {
        if (!Bench::topics().contains(topic))
            refuse(QStringLiteral("unknown topic '%1'; the topics are %2").arg(topic, topics));
    }
    if (parser.isSet(json) && options.json.isEmpty())
        refuse(QStringLiteral("--json needs the name of a file"));
    if (options.topics.isEmpty())
        options.topics = Bench::topics();
    return options;
}

/// \a number with three significant digits.
QString digits(double number)
{
    const double magnitude = std::floor(std::log10(number));
    return QString::number(number, 'f', static_cast<int>(qBound(0.0, 2 - magnitude, 4.0)));
}

QString timeText(double nanoseconds)
{
    struct Unit
    {
        double size;
        QString name;
    };
    static const Unit units[] = {
        {1e9, QStringLiteral(" s")}, {1e6, QStringLiteral(" ms")}, {1e3, QStringLiteral(" µs")}};
    for (const Unit &unit : units) {
        // A number that rounds up to 1000 belongs to the next unit.
        if (nanoseconds >= 0.9995 * unit.size)
            return digits(nanoseconds / unit.size) + unit.name;
    }
    return digits(nanoseconds) + QStringLiteral(" ns");
}

QString line(const QStringList &cells)
{
    return cells.at(0).leftJustified(11) + cells.at(1).leftJustified(26)
        + cells.at(2).rightJustified(8) + QStringLiteral("  ") + cells.at(3).leftJustified(25)
        + cells.at(4).rightJustified(10) + cells.at(5).rightJustified(8) + QLatin1Char('\n');
}

QJsonObject toJson(const Bench::Row &row)
{
    return {{QStringLiteral("topic"), row.topic}, {QStringLiteral("case"), row.name},
        {QStringLiteral("ours_ns"), row.ours}, {QStringLiteral("peer"), row.peer},
        {QStringLiteral("peer_ns"), row.peerTime}, {QStringLiteral("ratio"), row.ratio()}};
}

} // namespace

int main(int argc, char *argv[])
{
    // The help text calls the program as its users do.
    char name[] = "./bench";
    argv[0] = name;
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("bench"));
    const Options options = parse(QCoreApplication::arguments());

    // Opened before all that takes time, so that a bad name is known at once.
    QFile json(options.json);
    if (!options.json.isEmpty() && !json.open(QIODevice::WriteOnly))
        Bench::Topic::fail(options.json + QStringLiteral(": ") + json.errorString());

    Bench::Effort effort;
    if (options.quick)
        effort = {3, 0.001};

    QTextStream out(stdout);
    out << line({QStringLiteral("topic"), QStringLiteral("case"), QStringLiteral("ours"),
        QStringLiteral("peer"), QStringLiteral("peer time"), QStringLiteral("ratio")});
    out.flush();

    QJsonArray rows;
    const auto show = [&](const Bench::Row &row) {
        out << line({row.topic, row.name, timeText(row.ours), row.peer, timeText(row.peerTime),
            digits(row.ratio())});
        out.flush();
        rows.append(toJson(row));
    };
    for (const QString &topic : options.topics)
        Bench::run(topic, effort, show);

    if (!options.json.isEmpty()) {
        json.write(QJsonDocument(rows).toJson());
        if (!json.flush())
            Bench::Topic::fail(options.json + QStringLiteral(": ") + json.errorString());
    }
    return 0;
}
