// Shows the checksums of files in a window that speaks the languages of the library.

#include "languages.h"
#include "text.h"
#include "window.h"

#include <tavex/SConvert>
#include <tavex/TavexApplication>
#include <tavex/TavexInfo>

#include <QApplication>
#include <QCommandLineParser>

using namespace Quorvex;

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("desktop"));
    QCoreApplication::setApplicationVersion(SConvert::toString(TavexInfo::version(), QLocale::c()));
    for (const char *catalogue : {"tavex", "inventory", "desktop"})
        TavexApplication::translationRegister(QLatin1String(catalogue));
    setLanguage(languageLocale(languageArgument(QCoreApplication::arguments())));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("main", "Shows the CRC-32 checksums of files in a window."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({QStringLiteral("lang"), Text::tr("Language of the output, such as de or fr."),
        QStringLiteral("LANG")});
    parser.addPositionalArgument(QStringLiteral("FILE"),
        QCoreApplication::translate("main", "The files to begin with."),
        QStringLiteral("[FILE...]"));
    parser.process(application);

    Window window;
    window.show();
    window.addFiles(parser.positionalArguments());
    return QApplication::exec();
}
