#include <tavex/application/senumruntimeloader.h>

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
    static Registry registry;
    return registry;
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
    Registry &r = registry();
    const std::scoped_lock lock(r.mutex);
    const auto found = std::ranges::find_if(
        r.loaders, [&](const LoaderPointer &entry) { return entry->name() == name; });
    return found == r.loaders.end() ? LoaderPointer() : *found;
}

} // namespace Quorvex
