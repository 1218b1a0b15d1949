#include <tavex/core/startup_p.h>

#include <thread>
#include <utility>

namespace Quorvex {
namespace {

constinit LastingBase *latest = nullptr;

/// Locks the list. Not a std::mutex: some systems construct it at run time, which may be after the
/// first object is made.
class ListLock
{
public:
    Q_DISABLE_COPY_MOVE(ListLock)
    ListLock() noexcept
    {
        while (s_isTaken.test_and_set(std::memory_order_acquire))
            std::this_thread::yield();
    }
    ~ListLock() { s_isTaken.clear(std::memory_order_release); }

private:
    static inline constinit std::atomic_flag s_isTaken;
};

} // namespace

void *LastingBase::keep(void *made)
{
    const ListLock lock;
    if (void *const existing = object())
        return existing;
    m_earlier = std::exchange(latest, this);
    m_object.store(made, std::memory_order_release);
    return made;
}

void LastingBase::destroyAll()
{
    const auto takeLatest = [] {
        const ListLock lock;
        return latest ? std::exchange(latest, latest->m_earlier) : nullptr;
    };
    // Not under the lock: a destructor may use lasting objects, and make new ones.
    while (LastingBase *const last = takeLatest())
        last->m_destroy(last->m_object.exchange(nullptr, std::memory_order_acq_rel));
}

Startup::Startup(std::span<const Step> steps)
    : m_steps(steps)
{
    for (const Step &step : m_steps)
        step.load();
}

Startup::~Startup()
{
    LastingBase::destroyAll();
    for (auto step = m_steps.rbegin(); step != m_steps.rend(); ++step) {
        if (step->unload)
            step->unload();
    }
}

} // namespace Quorvex
