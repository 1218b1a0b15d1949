#pragma once

#include <QtGlobal>

#include <atomic>
#include <memory>
#include <mutex>

/// \file
/// The home of what lives as long as the library.

namespace Quorvex {

/// What a Lasting is whatever its type.
class LastingBase
{
public:
    Q_DISABLE_COPY_MOVE(LastingBase)

    /// Destroys all that was made, the latest first. For the composition root, when the library is
    /// unloaded: what is needed even later is made anew and stays.
    static void destroyAll();

protected:
    using Destroy = void (*)(void *object);

    constexpr explicit LastingBase(Destroy destroy) noexcept
        : m_destroy(destroy)
    {
    }
    ~LastingBase() = default;

    [[nodiscard]] void *object() const noexcept { return m_object.load(std::memory_order_acquire); }

    /// Keeps \a made, unless another thread was faster. Returns what is kept.
    void *keep(void *made);

private:
    std::atomic<void *> m_object = nullptr;
    Destroy m_destroy;
    LastingBase *m_earlier = nullptr; ///< What was kept before this one.
};

/// An object that is made at first use and lives until the library is unloaded. That is after the
/// program's own globals are destroyed, which may therefore use it to their end, unlike a
/// function-local static. It costs nothing at load:
///
///     static constinit Lasting<Registry> registry;
///     return registry.get();
///
/// No thread waits for another one to make it. Several may do so at once, and one of the objects is
/// kept: making it must have no effect on anything else, and must not need it.
template <typename T>
class Lasting : public LastingBase
{
public:
    constexpr Lasting() noexcept
        : LastingBase([](void *object) { delete static_cast<T *>(object); })
    {
    }

    T &get()
    {
        return get([] { return std::make_unique<T>(); });
    }

    /// \a make returns a std::unique_ptr.
    template <typename Make>
    T &get(Make make)
    {
        if (T *const existing = peek())
            return *existing;
        std::unique_ptr<T> made = make();
        void *const kept = keep(made.get());
        if (kept == made.get())
            static_cast<void>(made.release());
        return *static_cast<T *>(kept);
    }

    /// Null before the first use, and once it is destroyed.
    [[nodiscard]] T *peek() const noexcept { return static_cast<T *>(object()); }
};

/// The lock under which tables and words are loaded. Whoever loads calls runtime loaders, which may
/// use or register anything again: there is one lock for everything that does, which the thread
/// that has it may take again, and no other lock is held meanwhile.
inline std::recursive_mutex &loadLock()
{
    static constinit Lasting<std::recursive_mutex> lock;
    return lock.get();
}

} // namespace Quorvex
