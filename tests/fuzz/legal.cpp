#include "fuzz.h"

#include <tavex/S3rdParty>

#include <QTemporaryFile>
#include <QUrl>
#include <QXmlStreamReader>

using Quorvex::S3rdParty;

/// The page's body has the tags that it is made with and no others, and links to web pages only.
int LLVMFuzzerTestOneInput(const uchar *data, std::size_t size)
{
    Input input(data, size);
    // Few names: what is registered stays.
    const QString names = QStringLiteral("<>&\"'%\\\n");
    const QString name = names.mid(input.number<uchar>() % names.size(), 2);
    const QString site = input.text();
    const auto version = input.number<int>();
    QTemporaryFile licence;
    check(licence.open());
    licence.write(input.bytes(qsizetype(size)));
    licence.close();
    S3rdParty::registerModule(name, licence.fileName(), site, version);
    check(S3rdParty::site(name) == site && S3rdParty::version(name) == version);

    const QString page = S3rdParty::legalInformation();
    const QString body = page.mid(page.indexOf(QStringLiteral("<body>"))).chopped(8);
    const QStringList allowed =
        QStringLiteral("body h1 h2 p table thead tbody tr th td a section pre").split(u' ');
    QXmlStreamReader reader(body);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        check(allowed.contains(reader.name()));
        const QString target = reader.attributes().value(QStringLiteral("href")).toString();
        check(target.isEmpty() || target.startsWith(QStringLiteral("#licence-"))
            || target.startsWith(QStringLiteral("http"), Qt::CaseInsensitive));
    }
    check(!reader.hasError());
    return 0;
}
