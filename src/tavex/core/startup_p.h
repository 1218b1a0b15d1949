#pragma once

#include <QtGlobal>

#include <atomic>
#include <memory>
#include <span>

/// \file
/// What happens when the library is loaded and unloaded, and the home of what lives as long as it.

namespace Quorvex {

/// What a Lasting is whatever its type.
class LastingBase
{
public:
    Q_DISABLE_COPY_MOVE(LastingBase)

    /// Destroys all that was made, the latest first. What is needed even later is made anew and
    /// stays.
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
