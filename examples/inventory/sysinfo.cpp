#include "sysinfo.h"

#include "inventory.h"

#include <tavex/CpuFeatureFlags>
#include <tavex/CpuType>
#include <tavex/SCpuInfo>
#include <tavex/SEnvironment>
#include <tavex/SMemoryInfo>
#include <tavex/SStorageInfo>
#include <tavex/SSysInfo>
#include <tavex/SpecialFolder>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Quorvex;

namespace {

QStringList featureNames()
{
    QStringList names;
    for (const auto &row : CpuFeatureFlags_T::rows) {
        if (testAnyFlag(SCpuInfo::features(), row.value))
            names.append(QString::fromUtf16(row.key));
    }
    return names;
}

struct Folder
{
    QString name;
    QString path;
};

QList<Folder> folders()
{
    QList<Folder> result;
    for (const auto &row : SpecialFolder_T::rows) {
        const QString path = SEnvironment::getFolder(row.value, true);
        const QString name = SpecialFolder_T::instance().toString(row.value);
        if (!path.isEmpty() && name == QString::fromUtf16(row.key))
            result.append({name, path});
    }
    return result;
}

} // namespace

void writeSystem(QTextStream &out, const QLocale &locale)
{
    const auto line = [&](const char *label, const QString &value) {
        out << tr(label) << QStringLiteral(": ") << value << '\n';
    };
    const auto size = [&](qint64 bytes) { return readableSize(bytes, locale); };

    line("Operating system", SSysInfo::prettyProductName());
    line("Kernel", SSysInfo::kernelType() + QLatin1Char(' ') + SSysInfo::kernelVersion());
    line("User", SEnvironment::fullUserName());
    line("Qt version", SEnvironment::qtRuntimeVersionString());
    line("Processor", SCpuInfo::brand());
    line("Processor type", CpuType_T::instance().toString(SCpuInfo::type()));
    line("Cores", locale.toString(SCpuInfo::cores()));
    line("Usable processors", locale.toString(SCpuInfo::threads()));
    line("Processor features", featureNames().join(QLatin1Char(' ')));
    line("Memory",
        tr("%1, %2 available").arg(size(SMemoryInfo::total()), size(SMemoryInfo::available())));

    out << '\n' << tr("Volumes") << '\n';
    for (const SStorageInfo &volume : SStorageInfo::volumes()) {
        out << QStringLiteral("  %1 (%2): ").arg(volume.rootPath(), volume.type())
            << tr("%1, %2 free").arg(size(volume.totalBytes()), size(volume.freeBytes())) << '\n';
    }
    out << '\n' << tr("Folders") << '\n';
    for (const Folder &folder : folders())
        out << QStringLiteral("  %1: %2\n").arg(folder.name, folder.path);
}

QByteArray systemAsJson()
{
    QJsonArray volumes;
    for (const SStorageInfo &volume : SStorageInfo::volumes()) {
        volumes.append(QJsonObject{{QStringLiteral("path"), volume.rootPath()},
            {QStringLiteral("type"), volume.type()}, {QStringLiteral("local"), volume.isLocal()},
            {QStringLiteral("bytes"), volume.totalBytes()},
            {QStringLiteral("free"), volume.freeBytes()}});
    }
    QJsonObject paths;
    for (const Folder &folder : folders())
        paths.insert(folder.name, folder.path);
    const QJsonObject system{{QStringLiteral("system"), SSysInfo::prettyProductName()},
        {QStringLiteral("kernel"), SSysInfo::kernelVersion()},
        {QStringLiteral("user"), SEnvironment::fullUserName()},
        {QStringLiteral("qt"), SEnvironment::qtRuntimeVersionString()},
        {QStringLiteral("processor"), SCpuInfo::brand()},
        {QStringLiteral("processorType"), CpuType_T::instance().toString(SCpuInfo::type())},
        {QStringLiteral("cores"), SCpuInfo::cores()},
        {QStringLiteral("threads"), SCpuInfo::threads()},
        {QStringLiteral("features"), QJsonArray::fromStringList(featureNames())},
        {QStringLiteral("memory"), SMemoryInfo::total()},
        {QStringLiteral("memoryAvailable"), SMemoryInfo::available()},
        {QStringLiteral("volumes"), volumes}, {QStringLiteral("folders"), paths}};
    return QJsonDocument(system).toJson();
}
