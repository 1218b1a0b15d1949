#pragma once

#include <tavex/core/export.h>
#include <tavex/enums/byteorder.h>
#include <tavex/enums/operatingsystem.h>
#include <tavex/enums/operatingsystemtype.h>

#include <QDate>
#include <QOperatingSystemVersion>
#include <QString>
#include <QSysInfo>

namespace Quorvex {

/// The operating system that the process runs on. All members may be called from any thread.
class TAVEX_EXPORT SSysInfo
{
public:
    /// The running system: a version of Windows by its marketing name from Windows 7 on, otherwise
    /// a family. \a named sets bit 31 also where no marketing name is known; the result is then no
    /// key of the enumeration.
    [[nodiscard]] static OperatingSystem operatingSystem(bool named);

    /// The same for a system that describes itself by \a version and, where Qt knows no version of
    /// it, by \a kernelType, which is that of QSysInfo.
    [[nodiscard]] static OperatingSystem operatingSystem(
        bool named, const QOperatingSystemVersion &version, const QString &kernelType);

    /// The family of the running system.
    [[nodiscard]] static OperatingSystemType operatingSystemType()
    {
        return operatingSystemType(operatingSystem(false));
    }

    /// The family of \a os; a value without a key where the enumeration has none for it.
    [[nodiscard]] static OperatingSystemType operatingSystemType(const OperatingSystem &os);

    /// The words for \a type in the language of the default locale; a value without a key gives its
    /// number in decimal.
    [[nodiscard]] static QString operatingSystemTypeName(const OperatingSystemType &type);

    /// The name of \a os, which is not translated: with \a marketing the one that it is sold under
    /// ("Windows 10", "macOS Monterey"), otherwise the one with its version ("Windows 10.0",
    /// "macOS 12.0"). Where a system has only one of them, that one; a value without a key gives
    /// its number in decimal.
    [[nodiscard]] static QString operatingSystemName(const OperatingSystem &os, bool marketing);

    /// The marketing name of the running system.
    [[nodiscard]] static QString operatingSystemCodeName()
    {
        return operatingSystemName(operatingSystem(false), true);
    }

    /// Whether the running system is of that family. The lines of Windows cannot be told apart on a
    /// version that is not known: all three are then true.
    /// @{
    [[nodiscard]] static bool isWindows() { return runs(OperatingSystemType::Windows); }
    [[nodiscard]] static bool isWindows9x() { return runsWindowsOf(Windows9xMask); }
    [[nodiscard]] static bool isWindowsNT() { return runsWindowsOf(WindowsNtMask); }
    [[nodiscard]] static bool isWindowsCE() { return runsWindowsOf(WindowsCeMask); }
    [[nodiscard]] static bool isMac() { return runs(OperatingSystemType::macOS); }
    [[nodiscard]] static bool isiOs() { return runs(OperatingSystemType::iOS); }
    [[nodiscard]] static bool isAndroid() { return runs(OperatingSystem::Android); }
    [[nodiscard]] static bool isBSD() { return runs(OperatingSystemType::BSD_); }
    [[nodiscard]] static bool isBeOS() { return runs(OperatingSystem::Haiku); }
    [[nodiscard]] static bool isLinux() { return runs(OperatingSystem::Linux); }
    [[nodiscard]] static bool isOS2() { return runs(OperatingSystem::OS_2); }
    [[nodiscard]] static bool isOS400() { return runs(OperatingSystem::OS_400); }
    [[nodiscard]] static bool isSymbian() { return runs(OperatingSystem::Symbian); }
    /// @}
    /// Whether it is a Unix other than those that have a predicate of their own.
    [[nodiscard]] static bool isUnix() { return runs(OperatingSystemType::Unix); }

    /// Whether the system, not only the process, is a 64-bit one.
    [[nodiscard]] static bool isOs_64bit();
    /// The opposite of isOs_64bit().
    [[nodiscard]] static bool isOs_32bit() { return !isOs_64bit(); }

    /// The components of QOperatingSystemVersion::current(); -1 where Qt knows none, as under
    /// Linux.
    /// @{
    [[nodiscard]] static int majorVersion()
    {
        return QOperatingSystemVersion::current().majorVersion();
    }
    [[nodiscard]] static int minorVersion()
    {
        return QOperatingSystemVersion::current().minorVersion();
    }
    [[nodiscard]] static int microVersion()
    {
        return QOperatingSystemVersion::current().microVersion();
    }
    /// @}

    /// The functions of the same names of QSysInfo.
    /// @{
    [[nodiscard]] static QString kernelType() { return QSysInfo::kernelType(); }
    [[nodiscard]] static QString kernelVersion() { return QSysInfo::kernelVersion(); }
    [[nodiscard]] static QString productType() { return QSysInfo::productType(); }
    [[nodiscard]] static QString productVersion() { return QSysInfo::productVersion(); }
    [[nodiscard]] static QString prettyProductName() { return QSysInfo::prettyProductName(); }
    [[nodiscard]] static QString buildAbi() { return QSysInfo::buildAbi(); }
    [[nodiscard]] static QString buildCpuArchitecture() { return QSysInfo::buildCpuArchitecture(); }
    [[nodiscard]] static QString currentCpuArchitecture()
    {
        return QSysInfo::currentCpuArchitecture();
    }
    /// @}

    /// The machine's byte order.
    [[nodiscard]] static ByteOrder byteOrder();

    /// The same as SCpuInfo::threads().
    [[nodiscard]] static int cpuCount();

    /// The last day of support of \a os: invalid for a system that never had one that is known,
    /// 9999-12-31 where no end is known. For Windows 10 and 11 it is that of the running build and
    /// product.
    [[nodiscard]] static QDate endOfLife(const OperatingSystem &os);

    /// The same for build \a build of the product \a productName. Both only matter for Windows 10
    /// and 11; products with "LTSB" or "LTSC" in their names are supported for longer.
    [[nodiscard]] static QDate endOfLife(
        const OperatingSystem &os, int build, const QString &productName);

    /// Whether the last day of support of the running system is still to come.
    [[nodiscard]] static bool isSupported();

private:
    static constexpr quint32 Windows9xMask = 0xF;
    static constexpr quint32 WindowsNtMask = 0xF0;
    static constexpr quint32 WindowsCeMask = 0xF00;

    static bool runs(OperatingSystem os) { return operatingSystem(false) == os; }
    static bool runs(OperatingSystemType type) { return operatingSystemType() == type; }
    static bool runsWindowsOf(quint32 line);
    static QString windowsProductName();
};

} // namespace Quorvex
