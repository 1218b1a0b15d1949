#include <tavex/enums/senumruntimeloader.h>

#include <tavex/core/startup_p.h>

#include <QList>

#include <algorithm>
#include <mutex>

namespace Quorvex {
namespace {

using LoaderPointer = SSharedPointer<ISEnumRuntimeLoader>;

struct Registry
{
    std::mutex mutex;
    QList<LoaderPointer> loaders;
};

Registry &registry()
{
    static constinit Lasting<Registry> registry;
    return registry.get();
}

} // namespace

ISEnumRuntimeLoader::~ISEnumRuntimeLoader() = default;

void SEnumRuntimeLoader::loaderRegister(ISEnumRuntimeLoader *loader)
{
    if (!loader)
        return;
    Registry &r = registry();
    const std::scoped_lock lock(r.mutex);
    const bool known =
        std::ranges::any_of(r.loaders, [=](const LoaderPointer &entry) { return entry == loader; });
    if (!known)
        r.loaders.append(LoaderPointer(loader));
}

SSharedPointer<ISEnumRuntimeLoader> SEnumRuntimeLoader::loader(const QString &name)
{
    const auto all = [] {
        Registry &r = registry();
        const std::scoped_lock lock(r.mutex);
        return r.loaders;
    };
    // Not under the lock: name() is the application's code and may use this registry.
    const QList<LoaderPointer> loaders = all();
    const auto found = std::ranges::find_if(
        loaders, [&](const LoaderPointer &entry) { return entry->name() == name; });
    return found == loaders.end() ? LoaderPointer() : *found;
}

} // namespace Quorvex
