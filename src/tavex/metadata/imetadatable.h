#pragma once

#include <tavex/metadata/imetadata.h>

#include <QList>

namespace Quorvex::Interfaces {

/// An object that carries metadata: values of different classes, at most one under each id. They
/// belong to it. SMetadatable is the implementation.
class TAVEX_EXPORT IMetadatable
{
public:
    virtual ~IMetadatable();

    /// Removes and deletes every value.
    virtual void clearMetadata() = 0;

    /// The number of values.
    [[nodiscard]] virtual qsizetype metadataCount() const = 0;

    /// All values, in no particular order. They stay with the object.
    [[nodiscard]] virtual QList<IMetadata *> metadataList() const = 0;

    /// The value under \a id, or null. It stays with the object.
    [[nodiscard]] virtual IMetadata *metadata(const quint64 &id) const = 0;

    /// Stores a clone of each value in \a list that isMetadataValid() accepts and whose flags have
    /// none of the bits of \a mask. Null pointers are skipped.
    virtual void copyMetadata(const QList<IMetadata *> &list, MetadataFlags mask) = 0;

    /// Stores \a value under its id in place of the one that is there: itself with
    /// \a takeOwnership, otherwise a clone. False, and \a value is left to the caller, if it is
    /// null or isMetadataValid() rejects it.
    virtual bool setMetadata(IMetadata *value, bool takeOwnership) = 0;

    /// Removes and deletes the value under \a id, if there is one.
    virtual void removeMetadata(const quint64 &id) = 0;

    /// Whether there is a value under \a id.
    [[nodiscard]] virtual bool hasMetadata(const quint64 &id) const = 0;

protected:
    /// Called after a value was stored under \a id.
    virtual void onMetadataChanged(const quint64 &id) = 0;

    /// Whether \a value may be stored.
    [[nodiscard]] virtual bool isMetadataValid(const IMetadata *value) const = 0;

    IMetadatable() = default;
    IMetadatable(const IMetadatable &) = default;
    IMetadatable &operator=(const IMetadatable &) = default;
};

} // namespace Quorvex::Interfaces
