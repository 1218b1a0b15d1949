#pragma once

#include <tavex/core/export.h>

namespace Quorvex::Interfaces {

/// An object that one user at a time can hold.
class TAVEX_EXPORT ILockable
{
public:
    virtual ~ILockable();

    virtual void lock() = 0;
    virtual void unlock() = 0;

protected:
    ILockable() = default;
    ILockable(const ILockable &) = default;
    ILockable &operator=(const ILockable &) = default;
};

} // namespace Quorvex::Interfaces
