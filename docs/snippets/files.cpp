#include "snippets.h"

#include <tavex/SDir>
#include <tavex/SEnvironment>
#include <tavex/SFileHelper>
#include <tavex/STemporaryFile>

#include <QBuffer>
#include <QFileInfo>

using namespace Quorvex;

void files(QTextStream &out)
{
    //! [files]
    // A folder of our own that is deleted at the end of the process.
    const QString folder = SEnvironment::tempUniqueFolder(QString());
    SFileHelper::deleteFolderOnExit(folder);

    const QString name = folder + QStringLiteral("/report.tar.gz");
    STemporaryFile file(name); // Deleted with the object.
    QBuffer source;
    source.setData("twelve bytes");
    if (SFileHelper::copyDevice(&file, &source, 65536))
        out << QFileInfo(name).size() << " bytes\n";

    const QString free = SFileHelper::uniqueEnumeratedName(name);
    out << QFileInfo(free).fileName() << '\n';
    //! [files]

    //! [paths]
    const QString path = SDir::toUnipath(QStringLiteral("D:\\scans\\2026\\may\\page 17.tif"));
    out << SDir::pathShortener(path, 12) << '\n';
    out << SDir::removeWrongChars(QStringLiteral("who? me: yes")) << '\n';
    //! [paths]
}
