#pragma once

#include <tavex/core/export.h>

class QDataStream;

namespace Quorvex::Interfaces {

/// An object that can be kept as bytes.
class TAVEX_EXPORT ISerializable
{
public:
    virtual ~ISerializable();

    /// True if the object was read whole.
    [[nodiscard]] virtual bool read(QDataStream &stream) = 0;

    /// True if the object was written whole.
    [[nodiscard]] virtual bool write(QDataStream &stream) = 0;

protected:
    ISerializable() = default;
    ISerializable(const ISerializable &) = default;
    ISerializable &operator=(const ISerializable &) = default;
};

} // namespace Quorvex::Interfaces
