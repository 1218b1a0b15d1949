#include "snippets.h"

#include <tavex/SConvert>
#include <tavex/SCpuInfo>
#include <tavex/SMemoryInfo>
#include <tavex/SShellCommandSeeker>
#include <tavex/SStorageInfo>
#include <tavex/SSysInfo>

#include <QDir>

using namespace Quorvex;

void system(QTextStream &out)
{
    //! [example]
    out << SSysInfo::prettyProductName() << ", "
        << SSysInfo::operatingSystemTypeName(SSysInfo::operatingSystemType()) << '\n';
    out << SCpuInfo::brand() << ": " << SCpuInfo::cores() << " cores, " << SCpuInfo::threads()
        << " threads for this process\n";
    out << SMemoryInfo::available() / 1024 / 1024 << " MiB free\n";

    const SStorageInfo volume(QDir::homePath());
    if (volume.isValid() && volume.isLocal())
        out << volume.rootPath() << ": " << SConvert::toString(volume.freeBytes()) << " bytes\n";
    if (SShellCommandSeeker::exists(QStringLiteral("git")))
        out << SShellCommandSeeker::find(QStringLiteral("git")) << '\n';
    //! [example]
}
