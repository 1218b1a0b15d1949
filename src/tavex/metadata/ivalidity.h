#pragma once

#include <tavex/core/export.h>

namespace Quorvex::Interfaces {

/// An object that knows whether it can be used.
class TAVEX_EXPORT IValidity
{
public:
    virtual ~IValidity();

    /// Whether the object can be used.
    [[nodiscard]] virtual bool isValid() const = 0;

protected:
    IValidity() = default;
    IValidity(const IValidity &) = default;
    IValidity &operator=(const IValidity &) = default;
};

} // namespace Quorvex::Interfaces
