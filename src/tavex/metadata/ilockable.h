#pragma once

#include <tavex/core/export.h>

namespace Quorvex::Interfaces {

/// An object that one user at a time can hold.
class TAVEX_EXPORT ILockable
{
public:
    virtual ~ILockable();

    /// Waits until nobody else holds the object, then holds it.
    virtual void lock() = 0;
    /// Gives the object free. To be called once for each lock().
    virtual void unlock() = 0;

protected:
    ILockable() = default;
    ILockable(const ILockable &) = default;
    ILockable &operator=(const ILockable &) = default;
};

} // namespace Quorvex::Interfaces
