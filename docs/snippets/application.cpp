#include "snippets.h"

#include <tavex/Bool>
#include <tavex/S3rdParty>
#include <tavex/SEnvironment>
#include <tavex/TavexApplication>

#include <QCoreApplication>

using namespace Quorvex;

void application(QTextStream &out)
{
    //! [start]
    TavexApplication::infoRegister(QStringLiteral("Album"), QStringLiteral("Example"),
        QStringLiteral("1.4.0"), QStringLiteral("1204"), QStringLiteral("3f2a91c"));
    TavexApplication::translationRegister(QStringLiteral("album")); // album_de.qm and so on
    TavexApplication::init(QLocale(QStringLiteral("de_AT")));
    for (QTranslator *translator : TavexApplication::translations())
        QCoreApplication::installTranslator(translator);
    //! [start]

    //! [use]
    out << Bool_TR::instance().etr(QStringLiteral("True")) << '\n';
    out << TavexApplication::flagIconName(QLocale()) << '\n';

    S3rdParty::registerModule(QStringLiteral("Codec"), QStringLiteral(":/CODEC_LICENSE"),
        QStringLiteral("https://example.org"), SVersion(1, 2, 0));
    out << S3rdParty::modules().join(QStringLiteral(", ")) << '\n';

    const QString data = SEnvironment::appDataLocation(true);
    out << data.endsWith(QStringLiteral("/Example/Album")) << '\n';
    //! [use]

    //! [switch]
    const QList<QTranslator *> earlier = TavexApplication::translations();
    for (QTranslator *translator : earlier)
        QCoreApplication::removeTranslator(translator);
    TavexApplication::init(QLocale(QLocale::Swedish));
    for (QTranslator *translator : TavexApplication::translations().mid(earlier.size()))
        QCoreApplication::installTranslator(translator);
    out << Bool_TR::instance().etr(QStringLiteral("True")) << '\n'; // Sant
    //! [switch]
}
