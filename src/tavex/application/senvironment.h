#pragma once

#include <tavex/core/export.h>
#include <tavex/core/sversion.h>
#include <tavex/enums/specialfolder.h>

#include <QString>

namespace Quorvex {

/// The environment that the application runs in: special folders, user, line endings, versions of
/// Qt, and names for temporary files.
///
/// Folders have "/" as separator and are otherwise as Qt or an environment variable has them: they
/// are not cleaned, since a link may stand before a "..", and may end in "/". All members may be
/// called from any thread, but not while another changes environment variables.
class TAVEX_EXPORT SEnvironment
{
public:
    /// The path of \a folder: with \a writable the one to write to, otherwise the first one to look
    /// in, which mostly is the same. Empty if there is none, and for an unknown value. No folder is
    /// created, and only TempLocation is sure to exist.
    ///
    /// Values below 100 are those of QStandardPaths, with two differences under Linux: TempLocation
    /// is the first of the variable TMPDIR, "/tmp" and "/var/tmp" that is absolute and a folder,
    /// and RuntimeLocation is empty if another user could enter the folder. The others are:
    /// - RootLocation: empty with \a writable;
    /// - CommonDataLocation: the same as GenericDataLocation if the system has no such folder, or
    ///   with \a writable if the user may not write to it;
    /// - ColorFolder: \a writable changes nothing; under Linux the folder "color/icc" below the
    ///   first data folder that has one.
    [[nodiscard]] static QString getFolder(SpecialFolder folder, bool writable);

    /// The name of \a folder for people, in the language of Qt's own catalogue; empty for
    /// ColorFolder and for an unknown value.
    [[nodiscard]] static QString getFolderDisplayName(SpecialFolder folder);

#define TAVEX_FOLDER_SHORTCUT(name, Folder)                                                        \
    [[nodiscard]] static QString name(bool writable)                                               \
    {                                                                                              \
        return getFolder(SpecialFolder::Folder, writable);                                         \
    }
    /// The same as getFolder() for the folder of that name.
    /// @{
    TAVEX_FOLDER_SHORTCUT(desktopFolder, DesktopLocation)
    TAVEX_FOLDER_SHORTCUT(documentsFolder, DocumentsLocation)
    TAVEX_FOLDER_SHORTCUT(fontsFolder, FontsLocation)
    TAVEX_FOLDER_SHORTCUT(applicationsFolder, ApplicationsLocation)
    TAVEX_FOLDER_SHORTCUT(musicFolder, MusicLocation)
    TAVEX_FOLDER_SHORTCUT(moviesFolder, MoviesLocation)
    TAVEX_FOLDER_SHORTCUT(picturesFolder, PicturesLocation)
    TAVEX_FOLDER_SHORTCUT(tempFolder, TempLocation)
    TAVEX_FOLDER_SHORTCUT(homeFolder, HomeLocation)
    TAVEX_FOLDER_SHORTCUT(dataFolder, DataLocation)
    TAVEX_FOLDER_SHORTCUT(appLocalDataLocation, AppLocalDataLocation)
    TAVEX_FOLDER_SHORTCUT(cacheFolder, CacheLocation)
    TAVEX_FOLDER_SHORTCUT(genericDataFolder, GenericDataLocation)
    TAVEX_FOLDER_SHORTCUT(runtimeFolder, RuntimeLocation)
    TAVEX_FOLDER_SHORTCUT(configFolder, ConfigLocation)
    TAVEX_FOLDER_SHORTCUT(downloadFolder, DownloadLocation)
    TAVEX_FOLDER_SHORTCUT(genericCacheFolder, GenericCacheLocation)
    TAVEX_FOLDER_SHORTCUT(genericConfigFolder, GenericConfigLocation)
    TAVEX_FOLDER_SHORTCUT(appDataLocation, AppDataLocation)
    TAVEX_FOLDER_SHORTCUT(appConfigLocation, AppConfigLocation)
    TAVEX_FOLDER_SHORTCUT(rootFolder, RootLocation)
    TAVEX_FOLDER_SHORTCUT(commonDataFolder, CommonDataLocation)
    TAVEX_FOLDER_SHORTCUT(colorFolder, ColorFolder)
    /// @}
#undef TAVEX_FOLDER_SHORTCUT

    /// Two folders as the registry of Windows lists them for old programs; empty elsewhere.
    /// @{
    [[nodiscard]] static QString commonApplicationDataFolderLegacy();
    [[nodiscard]] static QString localApplicationDataFolderLegacy();
    /// @}

    /// The variable USERNAME; empty where it is not set, as is usual outside Windows.
    [[nodiscard]] static QString userName();

    /// The user's name for people, as the account has it; userName() where it has none.
    [[nodiscard]] static QString fullUserName();

    /// The line ending of files of that system: "\r\n", "\n" and, before Mac OS X, "\r".
    /// @{
    [[nodiscard]] static QString rawWindowsNewLine();
    [[nodiscard]] static QString rawUnixNewLine();
    [[nodiscard]] static QString rawMacNewLine();
    /// @}
    /// "\n" on every system: \a native changes nothing, so that files are the same everywhere.
    [[nodiscard]] static QString newLine(bool native);

    /// The Qt that the library was built with, and the one that it runs with, which may be newer.
    /// @{
    [[nodiscard]] static SVersion qtCompiledVersion();
    [[nodiscard]] static QString qtCompiledVersionString();
    [[nodiscard]] static SVersion qtRuntimeVersion();
    [[nodiscard]] static QString qtRuntimeVersionString();
    /// @}

    /// A path in \a folder, or in the temporary folder if \a folder is blank, that no other call
    /// gives. Nothing is made there. Empty if there is no temporary folder.
    [[nodiscard]] static QString tempUniqueFileName(const QString &folder);

    /// The same for a folder, which is made, for this user only, with all folders above it; empty
    /// if that fails.
    [[nodiscard]] static QString tempUniqueFolder(const QString &folder);
};

} // namespace Quorvex
