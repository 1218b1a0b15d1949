#pragma once

#include <QtGlobal>

#include <atomic>
#include <memory>
#include <span>

/// \file
/// What happens when the library is loaded and unloaded, and the home of what lives as long as it.

namespace Quorvex {

/// The part of Lasting that does not depend on its type.
class LastingBase
{
public:
    Q_DISABLE_COPY_MOVE(LastingBase)

    /// Destroys all objects, the latest first. One that is needed even later is made again and
    /// never destroyed.
    static void destroyAll();

protected:
    using Destroy = void (*)(void *object);

    constexpr explicit LastingBase(Destroy destroy) noexcept
        : m_destroy(destroy)
    {
    }
    ~LastingBase() = default;

    [[nodiscard]] void *object() const noexcept { return m_object.load(std::memory_order_acquire); }

    /// Keeps \a made, unless another thread has put an object here first. Returns the one kept.
    void *keep(void *made);

private:
    std::atomic<void *> m_object = nullptr;
    Destroy m_destroy;
    LastingBase *m_earlier = nullptr; ///< The one whose object was made before.
};

/// An object that is made at first use and lives until the library is unloaded. Unlike a
/// function-local static it outlives the program's own globals, whose destructors may use it. It
/// costs nothing at load:
///
///     static constinit Lasting<Registry> registry;
///     return registry.get();
///
/// No thread waits while another one makes it. Several may make one at once, of which one is kept
/// and the others are destroyed: the constructor must have no effect elsewhere, and must not use
/// the object itself.
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

    /// Null before the first use and after it was destroyed.
    [[nodiscard]] T *peek() const noexcept { return static_cast<T *>(object()); }
};

/// What is done when the library is loaded, and how it is undone when it is unloaded.
struct Step
{
    void (*load)();
    void (*unload)() = nullptr;
};

/// Does the steps in order when it is made. When it is destroyed, it destroys what lasts and then
/// undoes the steps in reverse order. There is one, in library.cpp.
class Startup
{
public:
    Q_DISABLE_COPY_MOVE(Startup)

    explicit Startup(std::span<const Step> steps);
    ~Startup();

private:
    std::span<const Step> m_steps;
};

} // namespace Quorvex
