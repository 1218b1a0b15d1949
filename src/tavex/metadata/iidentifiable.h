#pragma once

#include <tavex/core/export.h>

#include <QtGlobal>

namespace Quorvex::Interfaces {

/// An object that tells by a number what it is.
class TAVEX_EXPORT IIdentifiable
{
public:
    virtual ~IIdentifiable();

    /// The number, which never changes. For metadata it is that of the class, which also has it as
    /// a static `uniqueId()`: `typeid(Class).hash_code()`.
    [[nodiscard]] virtual quint64 id() const = 0;

protected:
    IIdentifiable() = default;
    IIdentifiable(const IIdentifiable &) = default;
    IIdentifiable &operator=(const IIdentifiable &) = default;
};

} // namespace Quorvex::Interfaces
