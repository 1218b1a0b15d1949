// Lists the files of a folder with their sizes and checksums, in the language of the user.

#include "inventory.h"
#include "sysinfo.h"
#include "terminal.h"
#include "text.h"

#include <tavex/S3rdParty>
#include <tavex/SConvert>
#include <tavex/SDir>
#include <tavex/SSafeNvCache>
#include <tavex/TavexApplication>
#include <tavex/TavexInfo>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QTextStream>

#include <csignal>

using namespace Quorvex;

namespace {

QString rightAligned(const QString &text, qsizetype width)
{
    return QString(qMax<qsizetype>(0, width - displayWidth(text)), QLatin1Char(' ')) + text;
}

/// What the user asked for.
struct Options
{
    QString folder;
    QString legalFile;
    bool json = false;
    bool sysinfo = false;
    bool useCache = true;
};

void setLanguage(const QString &name)
{
    TavexApplication::translationRegister(QStringLiteral("tavex"));
    TavexApplication::translationRegister(QStringLiteral("inventory"));
    TavexApplication::init(languageLocale(name));
    const auto translators = TavexApplication::translations();
    for (QTranslator *translator : translators)
        QCoreApplication::installTranslator(translator);
}

Options parse(const QStringList &arguments)
{
    const QCommandLineOption lang(QStringLiteral("lang"),
        Text::tr("Language of the output, such as de or fr."), QStringLiteral("LANG"));
    const QCommandLineOption json(QStringLiteral("json"), Text::tr("Write JSON instead of text."));
    const QCommandLineOption sysinfo(QStringLiteral("sysinfo"),
        Text::tr("Show the system, its volumes and the user's folders."));
    const QCommandLineOption legal(QStringLiteral("legal"),
        Text::tr("Write the licences of the components to this file, as a web page."),
        QStringLiteral("FILE"));
    const QCommandLineOption noCache(QStringLiteral("no-cache"),
        Text::tr("Read every file, even if its checksum is known from an earlier run."));
    QCommandLineOption defaultFolder(
        QStringLiteral("default-folder"), {}, QStringLiteral("FOLDER"));
    defaultFolder.setFlags(QCommandLineOption::HiddenFromHelp);
    defaultFolder.setDefaultValue(QStringLiteral("."));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        Text::tr("Lists every file below a folder with its size and its CRC-32 checksum."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({lang, json, noCache, sysinfo, legal, defaultFolder});
    parser.addPositionalArgument(
        QStringLiteral("FOLDER"), Text::tr("The folder to list."), QStringLiteral("[FOLDER]"));
    parser.process(arguments);

    const QStringList folders = parser.positionalArguments();
    if (folders.size() > 1)
        parser.showHelp(2);
    return {folders.value(0, parser.value(defaultFolder)), parser.value(legal), parser.isSet(json),
        parser.isSet(sysinfo), !parser.isSet(noCache)};
}

/// What came of an inventory.
struct Totals
{
    int files = 0; ///< Those whose checksum was found.
    qint64 bytes = 0;
    int cached = 0;
    int unreadable = 0;
    qsizetype skipped = 0; ///< Because the user stopped the program.
};

/// Writes the records one by one, as text, with paths that fit into \a terminalWidth.
class TextReport
{
public:
    TextReport(const QLocale &locale, std::optional<int> terminalWidth)
        : m_locale(locale)
        , m_cachedWidth(qMax(displayWidth(Text::tr("Cached")), displayWidth(Text::tr("yes"))))
    {
        // A shortened path loses at least ten characters and gains three dots, so a path that
        // exceeds its column by fewer is left whole.
        constexpr int Tolerance = 9;
        const int other = SizeWidth + CrcWidth + int(m_cachedWidth) + 6;
        if (terminalWidth)
            m_pathWidth = qMax(0, *terminalWidth - other - Tolerance);
        writeLine(Text::tr("Size"), Text::tr("CRC-32"), Text::tr("Cached"), Text::tr("Path"));
    }

    void add(const FileRecord &record)
    {
        if (!record.crc) {
            m_out.flush();
            m_err << Text::tr("Cannot read %1: %2").arg(record.path, record.error) << Qt::endl;
            return;
        }
        writeLine(readableSize(record.size, m_locale), crcText(*record.crc),
            record.cached ? Text::tr("yes") : QString(),
            SDir::pathShortener(record.path, m_pathWidth));
    }

    void flush() { m_out.flush(); }

    void finish(const Totals &totals)
    {
        m_out << '\n'
              << Text::tr("%n file(s), %1", nullptr, totals.files)
                     .arg(readableSize(totals.bytes, m_locale))
              << '\n';
        if (totals.cached > 0)
            m_out << Text::tr("%n file(s) had to be read; the cache knew the others.", nullptr,
                totals.files - totals.cached)
                  << '\n';
        if (totals.unreadable > 0)
            m_out << Text::tr("%n file(s) could not be read.", nullptr, totals.unreadable) << '\n';
        if (totals.skipped > 0)
            m_out << Text::tr("Stopped: %n file(s) were left out.", nullptr, int(totals.skipped))
                  << '\n';
    }

private:
    static constexpr int SizeWidth = 12;
    static constexpr int CrcWidth = 8;

    void writeLine(
        const QString &size, const QString &crc, const QString &cached, const QString &path)
    {
        m_out << rightAligned(size, SizeWidth) << "  " << crc.leftJustified(CrcWidth) << "  "
              << rightAligned(cached, m_cachedWidth) << "  " << path << '\n';
    }

    QTextStream m_out{stdout};
    QTextStream m_err{stderr};
    QLocale m_locale;
    qsizetype m_cachedWidth;
    int m_pathWidth = -1;
};

/// Collects the records and writes them as one JSON document.
class JsonReport
{
public:
    void add(const FileRecord &record)
    {
        QJsonObject file{
            {QStringLiteral("path"), record.path}, {QStringLiteral("size"), record.size}};
        if (record.crc) {
            file.insert(QStringLiteral("crc32"), crcText(*record.crc));
            file.insert(QStringLiteral("cached"), record.cached);
        } else {
            file.insert(QStringLiteral("error"), record.error);
        }
        m_files.append(file);
    }

    void flush() { }

    void finish(const Totals &totals) const
    {
        const QJsonObject report{{QStringLiteral("files"), m_files},
            {QStringLiteral("count"), totals.files}, {QStringLiteral("bytes"), totals.bytes},
            {QStringLiteral("cached"), totals.cached},
            {QStringLiteral("unreadable"), totals.unreadable},
            {QStringLiteral("skipped"), totals.skipped}};
        QTextStream(stdout) << QString::fromUtf8(QJsonDocument(report).toJson());
    }

private:
    QJsonArray m_files;
};

/// Writes the legal page; the exit status is 1 if that fails.
int writeLegalPage(const QString &fileName)
{
    QSaveFile file(fileName);
    const QByteArray page = S3rdParty::legalInformation().toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(page) == page.size() && file.commit())
        return 0;
    QTextStream(stderr) << Text::tr("Cannot write %1: %2").arg(fileName, file.errorString())
                        << '\n';
    return 1;
}

int showSystem(bool asJson)
{
    QTextStream out(stdout);
    if (asJson)
        out << QString::fromUtf8(systemAsJson());
    else
        writeSystem(out, QLocale());
    return 0;
}

volatile std::sig_atomic_t interrupted = 0;

/// The first Ctrl-C asks the program to stop, the second one ends it as if it had no handler.
void onInterrupt(int signal)
{
    interrupted = 1;
    std::signal(signal, SIG_DFL);
}

/// Lists the folder through \a report; the exit status is 1 if a file could not be read, and the
/// one that shells give to an interrupted program if the user stopped it.
template <typename Report>
int list(const Options &options, std::optional<int> terminalWidth, Report report)
{
    constexpr int Interrupted = 130;
    constexpr std::chrono::milliseconds Redraw(100);

    std::signal(SIGINT, &onInterrupt);
    std::optional<SSafeNvCache> cache;
    if (options.useCache)
        cache.emplace(QStringLiteral("checksums"));
    const QList<FoundFile> files = findFiles(options.folder);
    Examination examination(
        QFileInfo(options.folder).canonicalFilePath(), files, cache ? &*cache : nullptr);
    ProgressBar bar(terminalWidth);
    Totals totals;
    while (const auto records = examination.take(Redraw)) {
        if (!records->isEmpty())
            bar.clear();
        for (const FileRecord &record : *records) {
            report.add(record);
            if (record.crc) {
                ++totals.files;
                totals.bytes += record.size;
                totals.cached += record.cached ? 1 : 0;
            } else {
                ++totals.unreadable;
            }
        }
        report.flush();
        bar.draw(examination);
        if (interrupted)
            examination.stop();
    }
    bar.clear();
    totals.skipped = files.size() - totals.files - totals.unreadable;
    report.finish(totals);
    if (interrupted)
        return Interrupted;
    return totals.unreadable > 0 ? 1 : 0;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("inventory"));
    QCoreApplication::setApplicationVersion(SConvert::toString(TavexInfo::version(), QLocale::c()));
    setLanguage(languageArgument(QCoreApplication::arguments()));

    const Options options = parse(QCoreApplication::arguments());
    if (!options.legalFile.isEmpty())
        return writeLegalPage(options.legalFile);
    if (options.sysinfo)
        return showSystem(options.json);

    const QFileInfo folder(options.folder);
    if (!folder.isDir() || !folder.isReadable()) {
        QTextStream(stderr) << Text::tr("%1 is not a folder that can be read.").arg(options.folder)
                            << '\n';
        return 2;
    }
    const std::optional<int> width = terminalWidth();
    if (options.json)
        return list(options, width, JsonReport());
    return list(options, width, TextReport(QLocale(), width));
}
