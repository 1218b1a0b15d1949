#include "snippets.h"

#include <tavex/SEnvironment>
#include <tavex/SFileHelper>
#include <tavex/SNvCache>

using namespace Quorvex;

void cache(QTextStream &out)
{
    //! [example]
    // Without a folder the cache lies below the user's cache folder.
    const QString folder = SEnvironment::tempUniqueFolder(QString());
    SFileHelper::deleteFolderOnExit(folder);
    {
        SNvCache thumbnails(QStringLiteral("thumbnails"), folder);
        if (!thumbnails.insert(QStringLiteral("cat.jpg"), QByteArray("48x48")))
            out << "not stored\n";
        out << thumbnails.count() << " value\n";
    }
    // Later, or in another process: the value is there, but keys() begins empty.
    SNvCache thumbnails(QStringLiteral("thumbnails"), folder);
    out << thumbnails.value(QStringLiteral("cat.jpg")) << ", " << thumbnails.count() << " values\n";
    out << thumbnails.value(QStringLiteral("dog.jpg")).size() << " bytes\n";
    //! [example]
}
