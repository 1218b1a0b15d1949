#include <tavex/application/senvironment.h>

#include <tavex/convert/sconvert.h>
#include <tavex/system/platform_p.h>

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QStringList>
#include <QUuid>

#include <optional>

namespace Quorvex {
namespace {

std::optional<QStandardPaths::StandardLocation> standardLocation(SpecialFolder folder)
{
    // The largest number that Qt's enumeration can hold; a newer Qt may have given it a meaning.
    constexpr int Last = 31;
    const int value = static_cast<int>(folder);
    if (value < 0 || value > Last)
        return std::nullopt;
    return static_cast<QStandardPaths::StandardLocation>(value);
}

QString standardFolder(QStandardPaths::StandardLocation location, bool writable)
{
    return QDir::fromNativeSeparators(writable
            ? QStandardPaths::writableLocation(location)
            : QStandardPaths::standardLocations(location).value(0));
}

QString windowsFolder(Platform::WindowsText text)
{
    return QDir::fromNativeSeparators(Platform::windowsText(text));
}

} // namespace

QString SEnvironment::getFolder(SpecialFolder folder, bool writable)
{
    switch (folder) {
    case SpecialFolder::TempLocation:
        return QDir::fromNativeSeparators(Platform::temporaryFolder());
    case SpecialFolder::RuntimeLocation:
        return QDir::fromNativeSeparators(Platform::runtimeFolder());
    case SpecialFolder::RootLocation:
        return writable ? QString() : QDir::rootPath();
    case SpecialFolder::CommonDataLocation: {
        QString path = windowsFolder(Platform::WindowsText::CommonDataFolder);
        if (path.isEmpty() || (writable && !QFileInfo(path).isWritable()))
            return getFolder(SpecialFolder::GenericDataLocation, writable);
        return path;
    }
    case SpecialFolder::ColorFolder:
        return QDir::fromNativeSeparators(Platform::colorFolder());
    default:
        break;
    }
    const auto location = standardLocation(folder);
    return location ? standardFolder(*location, writable) : QString();
}

QString SEnvironment::getFolderDisplayName(SpecialFolder folder)
{
    if (folder == SpecialFolder::RootLocation)
        return QStringLiteral("Root");
    if (folder == SpecialFolder::CommonDataLocation)
        folder = SpecialFolder::GenericDataLocation;
    const auto location = standardLocation(folder);
    return location ? QStandardPaths::displayName(*location) : QString();
}

QString SEnvironment::commonApplicationDataFolderLegacy()
{
    return windowsFolder(Platform::WindowsText::CommonAppData);
}

QString SEnvironment::localApplicationDataFolderLegacy()
{
    return windowsFolder(Platform::WindowsText::LocalAppData);
}

QString SEnvironment::userName()
{
    return QProcessEnvironment::systemEnvironment().value(QStringLiteral("USERNAME"));
}

QString SEnvironment::fullUserName()
{
    const QString name = Platform::userDisplayName().trimmed();
    return name.isEmpty() ? userName() : name;
}

QString SEnvironment::rawWindowsNewLine()
{
    return QStringLiteral("\r\n");
}

QString SEnvironment::rawUnixNewLine()
{
    return QStringLiteral("\n");
}

QString SEnvironment::rawMacNewLine()
{
    return QStringLiteral("\r");
}

QString SEnvironment::newLine(bool)
{
    return rawUnixNewLine();
}

SVersion SEnvironment::qtCompiledVersion()
{
    return {QT_VERSION_MAJOR, QT_VERSION_MINOR, QT_VERSION_PATCH};
}

QString SEnvironment::qtCompiledVersionString()
{
    return SConvert::toString(qtCompiledVersion(), QLocale::c());
}

SVersion SEnvironment::qtRuntimeVersion()
{
    const QStringList parts = QString::fromLatin1(qVersion()).split(QLatin1Char('.'));
    const auto number = [&](qsizetype i) { return QLocale::c().toInt(parts.value(i)); };
    return {number(0), number(1), number(2)};
}

QString SEnvironment::qtRuntimeVersionString()
{
    return SConvert::toString(qtRuntimeVersion(), QLocale::c());
}

QString SEnvironment::tempUniqueFileName(const QString &folder)
{
    const QString base =
        folder.trimmed().isEmpty() ? getFolder(SpecialFolder::TempLocation, true) : folder;
    if (base.isEmpty())
        return {};
    return QDir::fromNativeSeparators(
        base + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces));
}

QString SEnvironment::tempUniqueFolder(const QString &folder)
{
    const QString path = tempUniqueFileName(folder);
    const bool isPath = !path.isEmpty() && !path.contains(QChar::Null);
    return isPath && Platform::makePrivateDirectory(path) ? path : QString();
}

} // namespace Quorvex
