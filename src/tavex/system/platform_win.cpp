#include <tavex/system/platform_p.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QSettings>
#include <QStandardPaths>
#include <QStringBuilder>
#include <QUuid>

#include <array>
#include <bit>
#include <memory>
#include <new>
#include <vector>

// Windows 7 and later.
#ifndef _WIN32_WINNT
#define _WIN32_WINNT 0x0601
#endif
#define SECURITY_WIN32
#include <windows.h>

#include <icm.h>
#include <psapi.h>
#include <security.h>
#include <shlobj.h>
#include <winioctl.h>

namespace Quorvex::Platform {
namespace {

QString registryText(const char *path, const char *name)
{
    return QSettings(QLatin1String(path), QSettings::NativeFormat)
        .value(QLatin1String(name))
        .toString();
}

LPCWSTR wide(const QString &text)
{
    return reinterpret_cast<LPCWSTR>(text.utf16());
}

struct HandleCloser
{
    void operator()(HANDLE handle) const
    {
        if (handle != INVALID_HANDLE_VALUE)
            CloseHandle(handle);
    }
};
using Handle = std::unique_ptr<void, HandleCloser>;

/// How many records of the kind \a relation the system has.
int relationCount(LOGICAL_PROCESSOR_RELATIONSHIP relation)
{
    DWORD size = 0;
    GetLogicalProcessorInformationEx(relation, nullptr, &size);
    std::vector<std::byte> buffer(size);
    using Record = SYSTEM_LOGICAL_PROCESSOR_INFORMATION_EX;
    auto *first = reinterpret_cast<Record *>(buffer.data());
    if (size == 0 || !GetLogicalProcessorInformationEx(relation, first, &size))
        return 1;
    int count = 0;
    for (DWORD at = 0; at < size; ++count)
        at += reinterpret_cast<const Record *>(buffer.data() + at)->Size;
    return qMax(count, 1);
}

/// The folder at which the volume of \a path is mounted, with "/"; empty if there is none.
QString volumeRoot(const QString &path)
{
    std::array<wchar_t, 32768> root;
    if (!GetVolumePathNameW(wide(QDir::toNativeSeparators(path)), root.data(), DWORD(root.size())))
        return {};
    return QDir::fromNativeSeparators(QString::fromWCharArray(root.data()));
}

Volume describe(const QString &rootPath)
{
    const QString native = QDir::toNativeSeparators(rootPath);
    const UINT type = GetDriveTypeW(wide(native));
    if (type == DRIVE_NO_ROOT_DIR)
        return {};
    Volume volume{rootPath, {}, {}, type != DRIVE_REMOTE};
    if (!volume.isLocal)
        return volume;
    std::array<wchar_t, MAX_PATH + 1> text;
    if (GetVolumeInformationW(
            wide(native), nullptr, 0, nullptr, nullptr, nullptr, text.data(), DWORD(text.size())))
        volume.type = QString::fromWCharArray(text.data());
    if (GetVolumeNameForVolumeMountPointW(wide(native), text.data(), DWORD(text.size())))
        volume.device = QString::fromWCharArray(text.data());
    return volume;
}

bool control(HANDLE device, DWORD code, void *input = nullptr, DWORD inputSize = 0)
{
    DWORD returned = 0;
    return DeviceIoControl(device, code, input, inputSize, nullptr, 0, &returned, nullptr);
}

/// \a path in a form that may have more than 260 characters.
QString longPath(const QString &path)
{
    QString text = QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
    if (text.startsWith(QLatin1String("\\\\")))
        text.replace(0, 1, QStringLiteral("\\\\?\\UNC"));
    else
        text.prepend(QStringLiteral("\\\\?\\"));
    return text;
}

/// Whether these are the attributes of a directory, and not of a link to one.
bool isDirectory(DWORD attributes)
{
    return (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT))
        == FILE_ATTRIBUTE_DIRECTORY;
}

/// Opens the directory at \a path, which cannot be removed while it is open. INVALID_HANDLE_VALUE
/// if there is something else.
Handle openDirectory(const QString &path)
{
    Handle directory(
        CreateFileW(wide(path), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
            OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    BY_HANDLE_FILE_INFORMATION information;
    if (directory.get() != INVALID_HANDLE_VALUE
        && (!GetFileInformationByHandle(directory.get(), &information)
            || !isDirectory(information.dwFileAttributes)))
        directory.reset(INVALID_HANDLE_VALUE);
    return directory;
}

} // namespace

QString windowsText(WindowsText text)
{
    switch (text) {
    case WindowsText::CommonDataFolder: {
        std::array<wchar_t, MAX_PATH> path{};
        const bool isKnown = SHGetFolderPathW(nullptr, CSIDL_COMMON_APPDATA, nullptr,
                                 SHGFP_TYPE_CURRENT, path.data())
            == S_OK;
        return isKnown ? QString::fromWCharArray(path.data()) : QString();
    }
    case WindowsText::CommonAppData:
        return registryText("HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion"
                            "\\Explorer\\Shell Folders",
            "Common AppData");
    case WindowsText::LocalAppData:
        return registryText("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion"
                            "\\Explorer\\Shell Folders",
            "Local AppData");
    case WindowsText::ProductName:
        return registryText(
            "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion", "ProductName");
    }
    return {};
}

QString temporaryFolder()
{
    return QDir::tempPath();
}

QString runtimeFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

QString colorFolder()
{
    std::array<wchar_t, 260> path{};
    DWORD bytes = sizeof(path);
    if (!GetColorDirectoryW(nullptr, path.data(), &bytes))
        return {};
    return QString::fromWCharArray(path.data()).trimmed();
}

QString userDisplayName()
{
    std::array<wchar_t, 200> name{};
    ULONG length = name.size();
    if (!GetUserNameExW(NameDisplay, name.data(), &length))
        return {};
    return QString::fromWCharArray(name.data(), qMin(length, ULONG(name.size())));
}

QString absolutePath(const QString &path)
{
    // Windows itself resolves ".." by the text of the path.
    return path.isEmpty() || path.contains(QChar::Null)
        ? QString()
        : QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

bool linkDirectory(const QString &link, const QString &folder)
{
    constexpr int Timeout = 30000;
    const QString quote(QLatin1Char('"'));
    if (link.isEmpty() || folder.isEmpty() || (link + folder).contains(quote)
        || (link + folder).contains(QChar::Null))
        return false;
    // Always in quotation marks: QProcess would leave them out of a path without blanks, and the
    // shell would then run what follows an ampersand in it.
    const QStringList arguments{QStringLiteral("/c mklink /j"),
        quote + QDir::toNativeSeparators(link) + quote,
        quote + QDir::toNativeSeparators(folder) + quote};
    QProcess process;
    process.setProgram(QStringLiteral("cmd"));
    process.setNativeArguments(arguments.join(QLatin1Char(' ')));
    process.start(QIODevice::ReadWrite);
    if (!process.waitForStarted(Timeout))
        return false;
    if (!process.waitForFinished(Timeout)) {
        process.kill(); // QProcess logs if it is destroyed while the program runs.
        process.waitForFinished();
        return false;
    }
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

QString findProgram(const QString &name)
{
    const QString path = QDir::fromNativeSeparators(name);
    if (name.isEmpty() || name.contains(QChar::Null))
        return {};
    // With an empty list Qt searches those of PATH.
    return QStandardPaths::findExecutable(
        path, path.contains(QLatin1Char('/')) ? QStringList{QDir::currentPath()} : QStringList());
}

bool removeFolder(const QString &path)
{
    if (QDir(path).isRoot())
        return false;
    QDirIterator entries(
        path, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        const QString name = entries.next();
        const QFileInfo info(name);
        const bool isLink = info.isSymLink() || info.isJunction(); // QDir would follow the latter.
        if (info.isDir() && !isLink)
            (void)removeFolder(name);
        else if (!QFile::remove(name) && !QDir().rmdir(name) && !isLink)
            // It may be read-only.
            (void)(QFile::setPermissions(name, QFile::ReadUser | QFile::WriteUser)
                && QFile::remove(name));
    }
    return QDir().rmdir(path);
}

void callInChildren(void (*)()) { }

std::optional<QByteArray> readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    try {
        QByteArray data(file.size(), Qt::Uninitialized);
        if (file.read(data.data(), data.size()) != data.size())
            return std::nullopt;
        return data;
    } catch (const std::bad_alloc &) {
        return std::nullopt;
    }
}

bool makePrivateDirectory(const QString &path)
{
    return QDir(QString()).mkpath(path); // It inherits who may use it from the one above.
}

bool openFile(QFile &file, const QString &path)
{
    file.setFileName(path);
    return file.open(QIODevice::ReadOnly);
}

NewFile::~NewFile()
{
    if (!m_path.isEmpty())
        DeleteFileW(wide(longPath(m_path)));
    HandleCloser()(reinterpret_cast<HANDLE>(m_file));
    if (!m_path.isEmpty())
        RemoveDirectoryW(wide(longPath(newFilesFolder(m_directory))));
}

bool NewFile::create(const QString &directory)
{
    m_directory = directory;
    return createNamed();
}

bool NewFile::createNamed()
{
    // Another writer removes the folder when it finds it empty. Meanwhile anything done there may
    // fail, and this one tries again.
    constexpr int MaxTries = 100;

    const QString folderPath = newFilesFolder(m_directory);
    const QString nativePath = longPath(folderPath);
    for (int i = 0; i < MaxTries; ++i) {
        if (!CreateDirectoryW(wide(nativePath), nullptr) && GetLastError() == ERROR_PATH_NOT_FOUND)
            return false;
        const Handle folder = openDirectory(nativePath);
        if (folder.get() != INVALID_HANDLE_VALUE) {
            const QString path =
                folderPath % QLatin1Char('/') % QUuid::createUuid().toString(QUuid::WithoutBraces);
            // It shares everything so that it can be moved. While it is open, no other process
            // removes it.
            const HANDLE file = CreateFileW(wide(longPath(path)), GENERIC_WRITE,
                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, CREATE_NEW, 0,
                nullptr);
            if (file != INVALID_HANDLE_VALUE) {
                m_path = path;
                m_file = reinterpret_cast<std::intptr_t>(file);
                return true;
            }
        } else {
            // Something else has the name. A link is removed and not followed: its target is not
            // the cache's.
            const DWORD attributes = GetFileAttributesW(wide(nativePath));
            if (attributes != INVALID_FILE_ATTRIBUTES && !isDirectory(attributes)
                && !DeleteFileW(wide(nativePath)))
                RemoveDirectoryW(wide(nativePath));
        }
        Sleep(i < MaxTries / 2 ? 0 : 1);
    }
    const DWORD error = GetLastError();
    RemoveDirectoryW(wide(nativePath));
    SetLastError(error);
    return false;
}

bool NewFile::write(const QByteArray &data) const
{
    constexpr qsizetype Most = 1 << 30;
    for (qsizetype done = 0; done < data.size();) {
        DWORD count = 0;
        const auto size = static_cast<DWORD>(qMin(data.size() - done, Most));
        if (!WriteFile(
                reinterpret_cast<HANDLE>(m_file), data.constData() + done, size, &count, nullptr)
            || count == 0)
            return false;
        done += count;
    }
    return true;
}

bool NewFile::open(QFile &device) const
{
    device.setFileName(m_path);
    return device.open(QIODevice::WriteOnly | QIODevice::ExistingOnly);
}

bool NewFile::moveTo(const QString &path)
{
    if (!MoveFileExW(wide(longPath(m_path)), wide(longPath(path)), MOVEFILE_REPLACE_EXISTING))
        return false;
    m_path.clear();
    RemoveDirectoryW(wide(longPath(newFilesFolder(m_directory))));
    return true;
}

void removeAbandonedFiles(const QString &directory)
{
    const QString path = longPath(newFilesFolder(directory));
    {
        const Handle folder = openDirectory(path);
        if (folder.get() == INVALID_HANDLE_VALUE)
            return;
        WIN32_FIND_DATAW entry;
        const HANDLE search = FindFirstFileW(wide(path + QLatin1String("\\*")), &entry);
        if (search != INVALID_HANDLE_VALUE) {
            do {
                // Sharing nothing, this fails while anybody has the file open.
                const Handle file(CreateFileW(
                    wide(path % QLatin1Char('\\') % QString::fromWCharArray(entry.cFileName)),
                    DELETE, 0, nullptr, OPEN_EXISTING,
                    FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
            } while (FindNextFileW(search, &entry));
            FindClose(search);
        }
    }
    RemoveDirectoryW(wide(path));
}

bool isKernel64Bit()
{
    return QProcessEnvironment::systemEnvironment().contains(QStringLiteral("ProgramW6432"));
}

int affinityProcessors()
{
    // A mask covers one group of up to 64 processors. A process in several groups may use all.
    std::array<USHORT, 64> groups;
    USHORT groupCount = groups.size();
    if (GetProcessGroupAffinity(GetCurrentProcess(), &groupCount, groups.data()) && groupCount > 1)
        return qMax(static_cast<int>(GetActiveProcessorCount(ALL_PROCESSOR_GROUPS)), 1);
    DWORD_PTR process = 0;
    DWORD_PTR system = 0;
    if (GetProcessAffinityMask(GetCurrentProcess(), &process, &system))
        return qMax(std::popcount(process), 1);
    return 1;
}

int quotaProcessors()
{
    return 0;
}

qint64 memoryLimit()
{
    return 0;
}

ProcessorTopology processorTopology()
{
    return {relationCount(RelationProcessorPackage), relationCount(RelationProcessorCore)};
}

Memory memory()
{
    Memory figures;
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof(status);
    if (GlobalMemoryStatusEx(&status)) {
        figures.total = static_cast<qint64>(status.ullTotalPhys);
        figures.available = static_cast<qint64>(status.ullAvailPhys);
    }
    PROCESS_MEMORY_COUNTERS counters{};
    if (K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters)))
        figures.processUse = static_cast<qint64>(counters.WorkingSetSize);
    return figures;
}

Volume volumeOf(const QString &path)
{
    if (path.isEmpty() || path.contains(QChar::Null))
        return {};
    const QString absolute = QDir::fromNativeSeparators(QDir(path).absolutePath());
    if (absolute.startsWith(QLatin1String("//"))) // A share, whose server must not be asked.
        return {absolute.section(QLatin1Char('/'), 0, 3) + QLatin1Char('/'), {}, {}, false};
    const QString drive = absolute.left(3);
    if (GetDriveTypeW(wide(QDir::toNativeSeparators(drive))) == DRIVE_REMOTE)
        return {drive, {}, {}, false};
    if (GetFileAttributesW(wide(QDir::toNativeSeparators(absolute))) == INVALID_FILE_ATTRIBUTES)
        return {};
    const QString root = volumeRoot(absolute);
    return root.isEmpty() ? Volume() : describe(root);
}

QList<Volume> volumes()
{
    QList<Volume> list;
    const DWORD drives = GetLogicalDrives();
    for (int i = 0; i < 26; ++i) {
        if (!(drives >> i & 1))
            continue;
        const Volume volume =
            describe(QChar(static_cast<char16_t>(u'A' + i)) + QStringLiteral(":/"));
        if (!volume.rootPath.isEmpty())
            list.append(volume);
    }
    return list;
}

bool ejectVolume(const Volume &volume)
{
    const UINT type = GetDriveTypeW(wide(QDir::toNativeSeparators(volume.rootPath)));
    if (volume.device.isEmpty() || (type != DRIVE_REMOVABLE && type != DRIVE_CDROM))
        return false;
    QString device = volume.device;
    device.chop(1); // With the backslash the name stands for the root folder.
    const Handle file(CreateFileW(wide(device), GENERIC_READ | GENERIC_WRITE,
        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    if (file.get() == INVALID_HANDLE_VALUE)
        return false;
    PREVENT_MEDIA_REMOVAL prevent{};
    return control(file.get(), FSCTL_LOCK_VOLUME) && control(file.get(), FSCTL_DISMOUNT_VOLUME)
        && control(file.get(), IOCTL_STORAGE_MEDIA_REMOVAL, &prevent, sizeof(prevent))
        && control(file.get(), IOCTL_STORAGE_EJECT_MEDIA);
}

} // namespace Quorvex::Platform
