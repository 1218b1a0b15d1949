#pragma once

#include <tavex/core/export.h>

namespace Quorvex::Interfaces {

/// An object that can be compared with objects of any class.
class TAVEX_EXPORT IEquatable
{
public:
    virtual ~IEquatable();

    /// Whether \a other is of the same class and has the same value. False if it is null.
    [[nodiscard]] virtual bool equalsTo(const IEquatable *other) const = 0;

    /// Whether the class of \a other is the class of this object, which goes by the classes' names,
    /// so that it holds between modules too. False if \a other is null.
    [[nodiscard]] virtual bool isSameTypeAs(const IEquatable *other) const final;

protected:
    IEquatable() = default;
    IEquatable(const IEquatable &) = default;
    IEquatable &operator=(const IEquatable &) = default;
};

} // namespace Quorvex::Interfaces
