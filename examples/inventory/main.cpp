// Lists the files of a folder with their sizes and checksums, in the language of the user.

#include "inventory.h"
#include "sysinfo.h"

#include <tavex/S3rdParty>
#include <tavex/SConvert>
#include <tavex/SLocale>
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

#include <algorithm>

using namespace Quorvex;

QString tr(const char *text, int n)
{
    return QCoreApplication::translate("inventory", text, nullptr, n);
}

namespace {

/// How many columns of a terminal \a text takes: Chinese characters take two.
qsizetype displayWidth(const QString &text)
{
    return text.size()
        + std::ranges::count_if(text, [](QChar c) { return c.script() == QChar::Script_Han; });
}

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
};

/// The text of --lang before anything else: the help text is in that language, too.
QString languageArgument(const QStringList &arguments)
{
    const QString option = QStringLiteral("--lang");
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        if (arguments.at(i) == option && i + 1 < arguments.size())
            return arguments.at(i + 1);
        if (arguments.at(i).startsWith(option + QLatin1Char('=')))
            return arguments.at(i).mid(option.size() + 1);
    }
    return {};
}

/// The locale that the user named, or else the system's. Where that is the bare C locale, the
/// program speaks English, whose catalogue knows the plural forms.
QLocale languageLocale(const QString &name)
{
    const QLocale locale = name.isEmpty() ? QLocale::system() : SLocale(name).locale();
    return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

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
        tr("Language of the output, such as de or fr."), QStringLiteral("LANG"));
    const QCommandLineOption json(QStringLiteral("json"), tr("Write JSON instead of text."));
    const QCommandLineOption sysinfo(
        QStringLiteral("sysinfo"), tr("Show the system, its volumes and the user's folders."));
    const QCommandLineOption legal(QStringLiteral("legal"),
        tr("Write the licences of the components to this file, as a web page."),
        QStringLiteral("FILE"));
    QCommandLineOption defaultFolder(
        QStringLiteral("default-folder"), {}, QStringLiteral("FOLDER"));
    defaultFolder.setFlags(QCommandLineOption::HiddenFromHelp);
    defaultFolder.setDefaultValue(QStringLiteral("."));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        tr("Lists every file below a folder with its size and its CRC-32 checksum."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({lang, json, sysinfo, legal, defaultFolder});
    parser.addPositionalArgument(
        QStringLiteral("FOLDER"), tr("The folder to list."), QStringLiteral("[FOLDER]"));
    parser.process(arguments);

    const QStringList folders = parser.positionalArguments();
    if (folders.size() > 1)
        parser.showHelp(2);
    return {folders.value(0, parser.value(defaultFolder)), parser.value(legal), parser.isSet(json),
        parser.isSet(sysinfo)};
}

/// Writes the records one by one, as text.
class TextReport
{
public:
    explicit TextReport(const QLocale &locale)
        : m_locale(locale)
    {
        writeLine(tr("Size"), tr("CRC-32"), tr("Path"));
    }

    void add(const FileRecord &record)
    {
        if (!record.crc) {
            m_out.flush();
            m_err << tr("Cannot read %1: %2").arg(record.path, record.error) << Qt::endl;
            return;
        }
        writeLine(readableSize(record.size, m_locale), crcText(*record.crc), record.path);
    }

    void finish(int count, qint64 bytes, int failures)
    {
        m_out << '\n' << tr("%n file(s), %1", count).arg(readableSize(bytes, m_locale)) << '\n';
        if (failures > 0)
            m_out << tr("%n file(s) could not be read.", failures) << '\n';
    }

private:
    void writeLine(const QString &size, const QString &crc, const QString &path)
    {
        m_out << rightAligned(size, 12) << "  " << crc.leftJustified(8) << "  " << path << '\n';
    }

    QTextStream m_out{stdout};
    QTextStream m_err{stderr};
    QLocale m_locale;
};

/// Collects the records and writes them as one JSON document.
class JsonReport
{
public:
    void add(const FileRecord &record)
    {
        QJsonObject file{
            {QStringLiteral("path"), record.path}, {QStringLiteral("size"), record.size}};
        if (record.crc)
            file.insert(QStringLiteral("crc32"), crcText(*record.crc));
        else
            file.insert(QStringLiteral("error"), record.error);
        m_files.append(file);
    }

    void finish(int count, qint64 bytes, int failures) const
    {
        const QJsonObject report{{QStringLiteral("files"), m_files},
            {QStringLiteral("count"), count}, {QStringLiteral("bytes"), bytes},
            {QStringLiteral("unreadable"), failures}};
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
    QTextStream(stderr) << tr("Cannot write %1: %2").arg(fileName, file.errorString()) << '\n';
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

/// Lists the folder through \a report; the exit status is 1 if a file could not be read.
template <typename Report>
int list(const QString &folder, Report report)
{
    int count = 0;
    int failures = 0;
    qint64 bytes = 0;
    const QStringList paths = findFiles(folder);
    for (const QString &path : paths) {
        const FileRecord record = examine(folder, path);
        report.add(record);
        if (record.crc) {
            ++count;
            bytes += record.size;
        } else {
            ++failures;
        }
    }
    report.finish(count, bytes, failures);
    return failures > 0 ? 1 : 0;
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
        QTextStream(stderr) << tr("%1 is not a folder that can be read.").arg(options.folder)
                            << '\n';
        return 2;
    }
    if (options.json)
        return list(options.folder, JsonReport());
    return list(options.folder, TextReport(QLocale()));
}
