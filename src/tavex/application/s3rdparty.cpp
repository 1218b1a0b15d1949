#include <tavex/application/s3rdparty.h>

#include <tavex/convert/sconvert.h>
#include <tavex/core/startup_p.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <mutex>
#include <vector>

namespace Quorvex {
namespace {

struct Module
{
    QString name;
    QString licensePath;
    QString site;
    SVersion version;
};

/// A std::vector, because threads get copies, and copies of a QList would share their memory.
using Modules = std::vector<Module>;

struct Registry
{
    std::mutex mutex;
    Modules modules;
};

Registry &registry()
{
    static constinit Lasting<Registry> registry;
    return registry.get();
}

Modules allModules()
{
    Registry &r = registry();
    const std::scoped_lock lock(r.mutex);
    return r.modules;
}

/// A copy of the component \a name, or an empty one.
Module find(const QString &name)
{
    Registry &r = registry();
    const std::scoped_lock lock(r.mutex);
    const auto module = std::ranges::find(r.modules, name, &Module::name);
    return module == r.modules.end() ? Module() : *module;
}

QString tr(const char *text)
{
    return QCoreApplication::translate("S3rdParty", text).toHtmlEscaped();
}

/// \a text without what HTML does not have: control characters but tabulators and line feeds,
/// which stand for all ends of lines; halves of characters; and code points that are none.
QString pageText(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    const QList<uint> characters = text.toUcs4(); // With U+FFFD for halves.
    QString result;
    result.reserve(text.size());
    for (const char32_t c : characters) {
        const bool isBlank = c == '\n' || c == '\t';
        const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
        if (isBlank || (!isControl && !QChar::isNonCharacter(c)))
            result += QChar::fromUcs4(c);
    }
    return result;
}

/// The text of the licence in the file \a path; empty if that has nothing to read.
QString readLicence(const QString &path)
{
    QFile file(path);
    if (path.contains(QChar::Null) || !QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const QString text = pageText(QString::fromUtf8(file.readAll()));
    return text.trimmed().isEmpty() ? QString() : text;
}

/// The first line that is not blank: licences begin with their names. Of a long one only the first
/// words.
QString licenceName(const QString &text)
{
    constexpr qsizetype Most = 80;
    QString name = text.trimmed().section(QLatin1Char('\n'), 0, 0).trimmed();
    if (name.size() <= Most)
        return name;
    name.truncate(name.at(Most - 1).isHighSurrogate() ? Most - 1 : Most);
    const qsizetype blank = name.lastIndexOf(QLatin1Char(' '));
    return name.left(blank > Most / 2 ? blank : name.size()) + QChar(0x2026);
}

/// A link, if \a site is the address of a web page, and else the text alone.
QString siteHtml(const QString &site)
{
    const QString scheme = QUrl(site).scheme();
    const QString text = site.toHtmlEscaped();
    const bool isWebPage = scheme == QStringLiteral("https") || scheme == QStringLiteral("http");
    return isWebPage ? QStringLiteral("<a href=\"%1\">%1</a>").arg(text) : text;
}

QString versionText(const SVersion &version)
{
    return version.isValid() && !version.isNull() ? SConvert::toString(version) : QString();
}

} // namespace

void S3rdParty::registerModule(
    const QString &name, const QString &licensePath, const QString &site, const SVersion &version)
{
    if (name.isEmpty())
        return;
    Registry &r = registry();
    const std::scoped_lock lock(r.mutex);
    const Module added{name, licensePath, site, version};
    const auto module = std::ranges::find(r.modules, name, &Module::name);
    if (module == r.modules.end())
        r.modules.push_back(added);
    else
        *module = added;
}

QStringList S3rdParty::modules()
{
    QStringList names;
    for (const Module &module : allModules())
        names.append(module.name);
    return names;
}

bool S3rdParty::isRegistered(const QString &name)
{
    return !find(name).name.isEmpty();
}

QString S3rdParty::licensePath(const QString &name)
{
    return find(name).licensePath;
}

QString S3rdParty::site(const QString &name)
{
    return find(name).site;
}

SVersion S3rdParty::version(const QString &name)
{
    return find(name).version;
}

QString S3rdParty::qtSite()
{
    return QStringLiteral("https://www.qt.io");
}

QString S3rdParty::legalInformation()
{
    const QString page = QStringLiteral(R"(<!DOCTYPE html>
<html lang="%1">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>%2</title>
<style>
:root { color-scheme: light dark; }
body { max-width: 46rem; margin: 2.5rem auto; padding: 0 1.25rem; line-height: 1.5; overflow-wrap: anywhere; font-family: system-ui, sans-serif; }
h1 { margin-bottom: .25rem; }
table { width: 100%; margin: 1.5rem 0; border-collapse: collapse; }
th, td { padding: .45em .75em .45em 0; text-align: start; vertical-align: top; border-bottom: 1px solid rgba(136, 136, 136, .4); }
pre { padding: 1rem; overflow-x: auto; white-space: pre-wrap; font-size: .8rem; background: rgba(136, 136, 136, .07); border-radius: .4rem; }
</style>
</head>
<body>
<h1>%2</h1>
<p>%3</p>
<table>
<thead><tr><th>%4</th><th>%5</th><th>%6</th><th>%7</th></tr></thead>
<tbody>
%8</tbody>
</table>
%9</body>
</html>
)");
    const QString row = QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td><td>%4</td></tr>\n");
    const QString link = QStringLiteral("<a href=\"#licence-%1\">%2</a>");
    const QString section = QStringLiteral(
        "<section id=\"licence-%1\">\n<h2>%2</h2>\n<pre lang=\"\">\n%3</pre>\n</section>\n");

    QString rows;
    QString sections;
    int count = 0;
    for (const Module &module : allModules()) {
        const QString number = QString::number(++count);
        const QString name = pageText(module.name).toHtmlEscaped();
        const QString text = readLicence(module.licensePath);
        QString licence = tr("The text of this licence is not available.");
        if (!text.isEmpty()) {
            licence = link.arg(number, licenceName(text).toHtmlEscaped());
            sections += section.arg(number, name, text.toHtmlEscaped());
        }
        rows +=
            row.arg(name, versionText(module.version), siteHtml(pageText(module.site)), licence);
    }

    // Catalogues translate this to the tag of their own language, whatever the default locale is.
    const QString language = tr("en");
    return page.arg(language, tr("Legal information"),
        tr("This program uses the components listed below, each under its own licence."),
        tr("Component"), tr("Version"), tr("Website"), tr("Licence"), rows, sections);
}

} // namespace Quorvex
