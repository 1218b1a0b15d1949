#pragma once

#include <tavex/enums/metadataflags.h>
#include <tavex/metadata/icloneable.h>
#include <tavex/metadata/iequatable.h>
#include <tavex/metadata/iformattable.h>
#include <tavex/metadata/iidentifiable.h>

#include <QString>

namespace Quorvex::Interfaces {

/// A value that can be attached to objects as metadata.
class TAVEX_EXPORT IMetadata : public ICloneable,
                               public IFormattable,
                               public IEquatable,
                               public IIdentifiable
{
public:
    ~IMetadata() override;

    /// Whether there is no value at all.
    [[nodiscard]] virtual bool isNull() const = 0;
    /// Whether the value has nothing in it, such as an empty text; true for null.
    [[nodiscard]] virtual bool isEmpty() const = 0;

    /// When an owner is to drop the value.
    [[nodiscard]] virtual MetadataFlags flags() = 0;

    /// The name of the class without namespace; unless overridden, that of the run-time class.
    [[nodiscard]] virtual QString name();

    /// name() in words, as SClassName::displayName() makes them.
    [[nodiscard]] virtual QString displayName();

    /// The same for a constant object, which what implements the functions above must not change. A
    /// class that does so brings these back with `using IMetadata::flags`.
    /// @{
    [[nodiscard]] MetadataFlags flags() const { return const_cast<IMetadata *>(this)->flags(); }
    [[nodiscard]] QString name() const { return const_cast<IMetadata *>(this)->name(); }
    [[nodiscard]] QString displayName() const
    {
        return const_cast<IMetadata *>(this)->displayName();
    }
    /// @}

protected:
    IMetadata() = default;
    IMetadata(const IMetadata &) = default;
    IMetadata &operator=(const IMetadata &) = default;
};

} // namespace Quorvex::Interfaces
