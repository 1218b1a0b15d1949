#include <tavex/core/lasting_p.h>

#include <utility>

namespace Quorvex {
namespace {

constinit std::mutex mutex;
constinit LastingBase *latest = nullptr;

} // namespace

void *LastingBase::keep(void *made)
{
    const std::scoped_lock lock(mutex);
    if (void *const existing = object())
        return existing;
    m_earlier = std::exchange(latest, this);
    m_object.store(made, std::memory_order_release);
    return made;
}

void LastingBase::destroyAll()
{
    const auto takeLatest = [] {
        const std::scoped_lock lock(mutex);
        return latest ? std::exchange(latest, latest->m_earlier) : nullptr;
    };
    // Not under the lock: a destructor may use, or make, what it needs.
    while (LastingBase *const last = takeLatest())
        last->m_destroy(last->m_object.exchange(nullptr, std::memory_order_acq_rel));
}

} // namespace Quorvex
