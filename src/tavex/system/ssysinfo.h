#pragma once

#include <tavex/core/export.h>
#include <tavex/enums/byteorder.h>
#include <tavex/enums/operatingsystem.h>
#include <tavex/enums/operatingsystemtype.h>

#include <QDate>
#include <QOperatingSystemVersion>
#include <QString>

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
    [[nodiscard]] static OperatingSystemType operatingSystemType();

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
    [[nodiscard]] static QString operatingSystemCodeName();

    /// Whether the running system is of that family. The lines of Windows cannot be told apart on a
    /// version that is not known: all three are then true.
    /// @{
    [[nodiscard]] static bool isWindows();
    [[nodiscard]] static bool isWindows9x();
    [[nodiscard]] static bool isWindowsNT();
    [[nodiscard]] static bool isWindowsCE();
    [[nodiscard]] static bool isMac();
    [[nodiscard]] static bool isiOs();
    [[nodiscard]] static bool isAndroid();
    [[nodiscard]] static bool isBSD();
    [[nodiscard]] static bool isBeOS();
    [[nodiscard]] static bool isLinux();
    [[nodiscard]] static bool isOS2();
    [[nodiscard]] static bool isOS400();
    [[nodiscard]] static bool isSymbian();
    /// @}
    /// Whether it is a Unix other than those that have a predicate of their own.
    [[nodiscard]] static bool isUnix();

    /// Whether the system, not only the process, is a 64-bit one.
    [[nodiscard]] static bool isOs_64bit();
    /// The opposite of isOs_64bit().
    [[nodiscard]] static bool isOs_32bit();

    /// The components of QOperatingSystemVersion::current(); -1 where Qt knows none, as under
    /// Linux.
    /// @{
    [[nodiscard]] static int majorVersion();
    [[nodiscard]] static int minorVersion();
    [[nodiscard]] static int microVersion();
    /// @}

    /// The functions of the same names of QSysInfo.
    /// @{
    [[nodiscard]] static QString kernelType();
    [[nodiscard]] static QString kernelVersion();
    [[nodiscard]] static QString productType();
    [[nodiscard]] static QString productVersion();
    [[nodiscard]] static QString prettyProductName();
    [[nodiscard]] static QString buildAbi();
    [[nodiscard]] static QString buildCpuArchitecture();
    [[nodiscard]] static QString currentCpuArchitecture();
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
    static QString windowsProductName();
};

} // namespace Quorvex
