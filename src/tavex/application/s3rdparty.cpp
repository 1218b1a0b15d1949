#include <tavex/application/s3rdparty.h>

#include <QList>

#include <algorithm>
#include <mutex>

namespace Quorvex {
namespace {

struct Module
{
    QString name;
    QString licensePath;
    QString site;
    SVersion version;
};

struct Registry
{
    std::mutex mutex;
    QList<Module> modules;
};

Registry &registry()
{
    static Registry registry;
    return registry;
}

/// A copy of the component \a name, or an empty one.
Module find(const QString &name)
{
    Registry &r = registry();
    const std::scoped_lock lock(r.mutex);
    const auto module = std::ranges::find(r.modules, name, &Module::name);
    return module == r.modules.end() ? Module() : *module;
}

} // namespace

void S3rdParty::registerModule(
    const QString &name, const QString &licensePath, const QString &site, const SVersion &version)
{
    if (name.isEmpty())
        return;
    Registry &r = registry();
    const std::scoped_lock lock(r.mutex);
    const Module added{name, licensePath, site, version};
    const auto module = std::ranges::find(r.modules, name, &Module::name);
    if (module == r.modules.end())
        r.modules.append(added);
    else
        *module = added;
}

QStringList S3rdParty::modules()
{
    Registry &r = registry();
    const std::scoped_lock lock(r.mutex);
    QStringList names;
    for (const Module &module : std::as_const(r.modules))
        names.append(module.name);
    return names;
}

bool S3rdParty::isRegistered(const QString &name)
{
    return !find(name).name.isEmpty();
}

QString S3rdParty::licensePath(const QString &name)
{
    return find(name).licensePath;
}

QString S3rdParty::site(const QString &name)
{
    return find(name).site;
}

SVersion S3rdParty::version(const QString &name)
{
    return find(name).version;
}

QString S3rdParty::qtSite()
{
    return QStringLiteral("https://www.qt.io");
}

} // namespace Quorvex
