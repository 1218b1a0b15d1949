#include "sysinfo.h"

#include "text.h"

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
    for (const auto &row : CpuFeatureFlags_T::rows()) {
        if (testAnyFlag(SCpuInfo::features(), row.value))
            names.append(QString::fromUtf16(row.key));
    }
    return names;
}

QList<SystemFact> folders()
{
    QList<SystemFact> result;
    for (const auto &row : SpecialFolder_T::rows()) {
        const QString path = SEnvironment::getFolder(row.value, true);
        const QString name = SpecialFolder_T::instance().toString(row.value);
        if (!path.isEmpty() && name == QString::fromUtf16(row.key))
            result.append({name, path});
    }
    return result;
}

} // namespace

QList<SystemSection> describeSystem(const QLocale &locale)
{
    const auto size = [&](qint64 bytes) { return readableSize(bytes, locale); };

    SystemSection volumes{Text::tr("Volumes"), {}};
    for (const SStorageInfo &volume : SStorageInfo::volumes()) {
        QString space; // A server that is gone would be waited for.
        if (volume.isLocal())
            space =
                Text::tr("%1, %2 free").arg(size(volume.totalBytes()), size(volume.freeBytes()));
        volumes.facts.append(
            {QStringLiteral("%1 (%2)").arg(volume.rootPath(), volume.type()), space});
    }
    return {
        {{},
            {{Text::tr("Operating system"), SSysInfo::prettyProductName()},
                {Text::tr("Kernel"),
                    SSysInfo::kernelType() + QLatin1Char(' ') + SSysInfo::kernelVersion()},
                {Text::tr("User"), SEnvironment::fullUserName()},
                {Text::tr("Qt version"), SEnvironment::qtRuntimeVersionString()},
                {Text::tr("Processor"), SCpuInfo::brand()},
                {Text::tr("Processor type"), CpuType_T::instance().toString(SCpuInfo::type())},
                {Text::tr("Cores"), locale.toString(SCpuInfo::cores())},
                {Text::tr("Usable processors"), locale.toString(SCpuInfo::threads())},
                {Text::tr("Processor features"), featureNames().join(QLatin1Char(' '))},
                {Text::tr("Memory"),
                    Text::tr("%1, %2 available")
                        .arg(size(SMemoryInfo::total()), size(SMemoryInfo::available()))},
                {Text::tr("Usable memory"), size(SMemoryInfo::limit())}}},
        volumes,
        {Text::tr("Folders"), folders()},
    };
}

void writeSystem(QTextStream &out, const QLocale &locale)
{
    for (const SystemSection &section : describeSystem(locale)) {
        const bool isTitled = !section.title.isEmpty();
        if (isTitled)
            out << '\n' << section.title << '\n';
        for (const SystemFact &fact : section.facts)
            out << (isTitled ? "  " : "") << fact.label << ": " << fact.value << '\n';
    }
}

QByteArray systemAsJson()
{
    QJsonArray volumes;
    for (const SStorageInfo &volume : SStorageInfo::volumes()) {
        QJsonObject object{{QStringLiteral("path"), volume.rootPath()},
            {QStringLiteral("type"), volume.type()}, {QStringLiteral("local"), volume.isLocal()}};
        if (volume.isLocal()) {
            object.insert(QStringLiteral("bytes"), volume.totalBytes());
            object.insert(QStringLiteral("free"), volume.freeBytes());
        }
        volumes.append(object);
    }
    QJsonObject paths;
    for (const SystemFact &folder : folders())
        paths.insert(folder.label, folder.value);
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
        {QStringLiteral("memoryUsable"), SMemoryInfo::limit()},
        {QStringLiteral("volumes"), volumes}, {QStringLiteral("folders"), paths}};
    return QJsonDocument(system).toJson();
}
