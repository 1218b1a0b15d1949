#include <tavex/system/sshellcommandseeker.h>

#include <tavex/system/platform_p.h>

namespace Quorvex {

QString SShellCommandSeeker::find(const QString &name)
{
    return Platform::findProgram(name);
}

bool SShellCommandSeeker::exists(const QString &name)
{
    return !find(name).isEmpty();
}

} // namespace Quorvex
