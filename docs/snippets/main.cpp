// Runs one example: snippets NAME [FILE]. Fails if the example does not write what is in FILE.

#include "snippets.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>

#include <map>

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    QLocale::setDefault(QLocale::c());
    const std::map<QString, void (*)(QTextStream &)> examples{
        {QStringLiteral("application"), application},
        {QStringLiteral("cache"), cache},
        {QStringLiteral("colour"), colour},
        {QStringLiteral("conversion"), conversion},
        {QStringLiteral("core"), core},
        {QStringLiteral("files"), files},
        {QStringLiteral("metadata"), metadata},
        {QStringLiteral("numbers"), numbers},
        {QStringLiteral("progress"), progress},
        {QStringLiteral("system"), system},
    };
    const QStringList arguments = QCoreApplication::arguments();
    const auto example = examples.find(arguments.value(1));
    if (example == examples.end())
        return 2;

    QString text;
    QTextStream out(&text);
    example->second(out);
    QTextStream(stdout) << text;
    if (arguments.size() < 3)
        return 0;
    QFile expected(arguments.at(2));
    return expected.open(QIODevice::ReadOnly | QIODevice::Text)
            && QString::fromUtf8(expected.readAll()) == text
        ? 0
        : 1;
}
