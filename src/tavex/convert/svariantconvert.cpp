#include <tavex/convert/svariantconvert.h>

#include <tavex/core/startup_p.h>

#include <map>
#include <mutex>

namespace Quorvex {
namespace {

struct Registry
{
    std::mutex mutex;
    std::map<int, SVariantConvert::Converter> converters;
};

Registry &registry()
{
    static constinit Lasting<Registry> registry;
    return registry.get();
}

} // namespace

void SVariantConvert::sVariantToStringRegister(int typeId, Converter converter)
{
    if (!converter)
        return;
    Registry &r = registry();
    const std::scoped_lock lock(r.mutex);
    r.converters[typeId] = converter;
}

bool SVariantConvert::isSVariantToStringRegistered(int typeId)
{
    return sVariantToStringFunction(typeId) != nullptr;
}

SVariantConvert::Converter SVariantConvert::sVariantToStringFunction(int typeId)
{
    Registry &r = registry();
    const std::scoped_lock lock(r.mutex);
    const auto entry = r.converters.find(typeId);
    return entry == r.converters.end() ? nullptr : entry->second;
}

} // namespace Quorvex
