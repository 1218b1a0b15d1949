#include <tavex/system/sshellcommandseeker.h>

#include <QStandardPaths>

namespace Quorvex {

QString SShellCommandSeeker::find(const QString &name)
{
    return QStandardPaths::findExecutable(name);
}

bool SShellCommandSeeker::exists(const QString &name)
{
    return !find(name).isEmpty();
}

} // namespace Quorvex
