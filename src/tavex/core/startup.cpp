#include <tavex/core/startup_p.h>

#include <thread>
#include <utility>

namespace Quorvex {
namespace {

constinit LastingBase *latest = nullptr;

/// One thread's turn to touch the list. A std::mutex is not made by the compiler everywhere, and
/// may thus not be there when the first object is.
class Turn
{
public:
    Q_DISABLE_COPY_MOVE(Turn)
    Turn() noexcept
    {
        while (s_isTaken.test_and_set(std::memory_order_acquire))
            std::this_thread::yield();
    }
    ~Turn() { s_isTaken.clear(std::memory_order_release); }

private:
    static inline constinit std::atomic_flag s_isTaken;
};

} // namespace

void *LastingBase::keep(void *made)
{
    const Turn turn;
    if (void *const existing = object())
        return existing;
    m_earlier = std::exchange(latest, this);
    m_object.store(made, std::memory_order_release);
    return made;
}

void LastingBase::destroyAll()
{
    const auto takeLatest = [] {
        const Turn turn;
        return latest ? std::exchange(latest, latest->m_earlier) : nullptr;
    };
    // In nobody's turn: a destructor may use, or make, what it needs.
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
