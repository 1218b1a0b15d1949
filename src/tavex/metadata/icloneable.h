#pragma once

#include <tavex/core/export.h>

namespace Quorvex::Interfaces {

/// An object that can make another one like itself.
class TAVEX_EXPORT ICloneable
{
public:
    virtual ~ICloneable();

    /// A copy of the object, of the same class. It belongs to the caller.
    [[nodiscard]] virtual ICloneable *clone() const = 0;

protected:
    ICloneable() = default;
    ICloneable(const ICloneable &) = default;
    ICloneable &operator=(const ICloneable &) = default;
};

} // namespace Quorvex::Interfaces
