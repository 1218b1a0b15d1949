#include <tavex/system/ssysinfo.h>

#include <tavex/system/platform_p.h>
#include <tavex/system/scpuinfo.h>

#include <QSysInfo>

#include <algorithm>

namespace Quorvex {
namespace {

constexpr quint32 NamedBit = 0x80000000;
constexpr quint32 MacMask = 0x3F000;
constexpr quint32 IosBit = 0x100000;
constexpr quint32 FirstOtherFamily = 0x1000000;

constexpr quint32 plainValue(OperatingSystem os)
{
    return static_cast<quint32>(os) & ~NamedBit;
}

/// The first key of the value, or nothing: of aliases, the first is the current name.
QString keyOf(quint32 value)
{
    const auto rows = OperatingSystem_T::rows();
    const auto row = std::ranges::find(
        rows, static_cast<OperatingSystem>(value), &SEnumKey<OperatingSystem>::value);
    return row == rows.end() ? QString() : QString::fromUtf16(row->key);
}

struct Day
{
    int year;
    int month;
    int day;

    operator QDate() const { return {year, month, day}; }
};

constexpr Day NoEnd{9999, 12, 31};

QDate windows10EndOfLife(int build, bool isLongTermServicing)
{
    struct Row
    {
        int lastBuild;
        Day end;
        Day longTermEnd;
    };
    static constexpr Row rows[] = {
        {10240, {2017, 5, 9}, {2025, 10, 14}},
        {10586, {2017, 10, 10}, {2017, 10, 10}},
        {14393, {2019, 4, 9}, {2026, 10, 13}},
        {15063, {2019, 10, 8}, {2019, 10, 8}},
        {16299, {2020, 10, 13}, {2020, 10, 13}},
        {17134, {2020, 11, 10}, {2020, 11, 10}},
        {17763, {2021, 5, 11}, {2029, 1, 9}},
        {18362, {2020, 12, 8}, {2020, 12, 8}},
        {18363, {2022, 5, 10}, {2022, 5, 10}},
        {19041, {2021, 12, 14}, {2021, 12, 14}},
        {19042, {2023, 5, 9}, {2023, 5, 9}},
        {19043, {2022, 12, 13}, {2022, 12, 13}},
    };
    for (const Row &row : rows) {
        if (build <= row.lastBuild)
            return isLongTermServicing ? row.longTermEnd : row.end;
    }
    return NoEnd;
}

} // namespace

OperatingSystem SSysInfo::operatingSystem(bool named)
{
    return operatingSystem(named, QOperatingSystemVersion::current(), QSysInfo::kernelType());
}

OperatingSystem SSysInfo::operatingSystem(
    bool named, const QOperatingSystemVersion &version, const QString &kernelType)
{
    using Version = QOperatingSystemVersion;
    const auto family = [&] {
        switch (version.type()) {
        case Version::Windows:
            if (version >= Version(Version::Windows, 10, 0, 22000))
                return OperatingSystem::Windows_11;
            if (version >= Version::Windows10)
                return OperatingSystem::Windows_10;
            if (version >= Version::Windows8_1)
                return OperatingSystem::Windows_8_1;
            if (version >= Version::Windows8)
                return OperatingSystem::Windows_8;
            if (version >= Version::Windows7)
                return OperatingSystem::Windows_7;
            return OperatingSystem::Windows;
        case Version::MacOS:
            return OperatingSystem::macOS;
        case Version::IOS:
            return OperatingSystem::iOS;
        case Version::Android:
            return OperatingSystem::Android;
        default:
            break;
        }
        if (kernelType == QLatin1String("linux"))
            return OperatingSystem::Linux;
        if (kernelType == QLatin1String("freebsd"))
            return OperatingSystem::FreeBSD;
        if (kernelType == QLatin1String("openbsd"))
            return OperatingSystem::OpenBSD;
        if (kernelType == QLatin1String("netbsd"))
            return OperatingSystem::NetBSD;
        return OperatingSystem::Unix;
    }();
    return static_cast<OperatingSystem>(static_cast<quint32>(family) | (named ? NamedBit : 0));
}

OperatingSystemType SSysInfo::operatingSystemType(const OperatingSystem &os)
{
    const quint32 value = plainValue(os);
    switch (static_cast<OperatingSystem>(value)) {
    case OperatingSystem::Linux:
        return OperatingSystemType::Linux;
    case OperatingSystem::Android:
        return OperatingSystemType::Android;
    case OperatingSystem::FreeBSD:
    case OperatingSystem::OpenBSD:
    case OperatingSystem::NetBSD:
        return OperatingSystemType::BSD_;
    case OperatingSystem::AIX:
    case OperatingSystem::HP_UX:
    case OperatingSystem::Solaris:
    case OperatingSystem::QNX:
    case OperatingSystem::Haiku:
    case OperatingSystem::Unix:
        return OperatingSystemType::Unix;
    case OperatingSystem::Symbian:
        return OperatingSystemType::Symbian;
    default:
        break;
    }
    if (value >= FirstOtherFamily)
        return {};
    if ((value & IosBit) != 0)
        return OperatingSystemType::iOS;
    if ((value & (Windows9xMask | WindowsNtMask | WindowsCeMask)) != 0)
        return OperatingSystemType::Windows;
    return (value & MacMask) != 0 ? OperatingSystemType::macOS : OperatingSystemType{};
}

QString SSysInfo::operatingSystemTypeName(const OperatingSystemType &type)
{
    const QString key = OperatingSystemType_T::instance().toString(type);
    // Two further types of applications, whose names have a slash that no key can have.
    const int value = static_cast<int>(type);
    const QLatin1Char space(value == 9 || value == 10 ? '/' : ' ');
    return OperatingSystemType_TR::instance().etr(key).replace(QLatin1Char('_'), space).trimmed();
}

QString SSysInfo::operatingSystemName(const OperatingSystem &os, bool marketing)
{
    const quint32 value = plainValue(os);
    switch (static_cast<OperatingSystem>(value)) {
    case OperatingSystem::HP_UX:
        return QStringLiteral("HP-UX");
    case OperatingSystem::OS_2:
        return QStringLiteral("OS/2");
    case OperatingSystem::OS_400:
        return QStringLiteral("OS/400");
    case OperatingSystem::Windows_CE__NET:
        return QStringLiteral("Windows CE .NET");
    default:
        break;
    }
    QString name = marketing ? keyOf(value | NamedBit) : QString();
    if (name.isEmpty())
        name = keyOf(value);
    if (name.isEmpty())
        return OperatingSystem_T::instance().toString(os);
    for (qsizetype i = 1; i + 1 < name.size(); ++i) {
        // Between digits of a version there is a dot.
        if (name.at(i) == QLatin1Char('_'))
            name[i] = QLatin1Char(name.at(i - 1).isDigit() && name.at(i + 1).isDigit() ? '.' : ' ');
    }
    return name;
}

bool SSysInfo::runsWindowsOf(quint32 line)
{
    return isWindows() && (static_cast<quint32>(operatingSystem(false)) & line) != 0;
}

bool SSysInfo::isOs_64bit()
{
    return Platform::isKernel64Bit();
}

ByteOrder SSysInfo::byteOrder()
{
    return int(QSysInfo::ByteOrder) == int(QSysInfo::BigEndian) ? ByteOrder::BigEndian
                                                                : ByteOrder::LittleEndian;
}

int SSysInfo::cpuCount()
{
    return SCpuInfo::threads();
}

QDate SSysInfo::endOfLife(const OperatingSystem &os)
{
    return endOfLife(os, microVersion(), windowsProductName());
}

QDate SSysInfo::endOfLife(const OperatingSystem &os, int build, const QString &productName)
{
    const quint32 value = plainValue(os);
    const auto liesWithin = [=](quint32 mask) { return value != 0 && (value & ~mask) == 0; };
    if (liesWithin(Windows9xMask) || liesWithin(WindowsCeMask))
        return {};
    switch (static_cast<OperatingSystem>(value)) {
    case OperatingSystem::Windows_4_0:
    case OperatingSystem::Windows_5_0:
    case OperatingSystem::Windows_6_2:
        return {};
    case OperatingSystem::Windows_5_1:
        return Day{2014, 4, 8};
    case OperatingSystem::Windows_6_0:
        return Day{2017, 4, 11};
    case OperatingSystem::Windows_6_1:
        return Day{2020, 1, 14};
    case OperatingSystem::Windows_6_3:
        return Day{2023, 1, 10};
    case OperatingSystem::Windows_10_0:
        return windows10EndOfLife(build,
            productName.contains(QLatin1String("LTSB"))
                || productName.contains(QLatin1String("LTSC")));
    case OperatingSystem::Windows_11_0:
        return build > 22000 ? NoEnd : Day{2024, 10, 5};
    case OperatingSystem::macOS_10_12:
        return Day{2019, 10, 7};
    case OperatingSystem::macOS_10_13:
        return Day{2020, 12, 31};
    case OperatingSystem::macOS_10_14:
        return Day{2021, 12, 31};
    case OperatingSystem::macOS_10_15:
        return Day{2022, 12, 31};
    case OperatingSystem::macOS_11_0:
        return Day{2023, 12, 31};
    case OperatingSystem::macOS_12_0:
        return Day{2024, 12, 31};
    default:
        return NoEnd;
    }
}

bool SSysInfo::isSupported()
{
    const QDate end = endOfLife(operatingSystem(false));
    return end.isValid() && end > QDate::currentDate();
}

QString SSysInfo::windowsProductName()
{
    return Platform::windowsText(Platform::WindowsText::ProductName);
}

} // namespace Quorvex
