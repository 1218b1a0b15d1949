#pragma once

#include <tavex/metadata/imetadatable.h>

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace Quorvex {

/// Carries metadata: the base of classes whose objects are to have some.
///
/// Each value that is stored or handed over belongs to the container, which deletes it exactly
/// once. A value handed over while an equal one is stored is not stored; yet the pointer stays good
/// until another value replaces the stored one, clearMetadata() or the destructor. A container is
/// used from one thread at a time.
class TAVEX_EXPORT SMetadatable : public Interfaces::IMetadatable
{
public:
    /// The interface, in the scope of the class.
    /// @{
    using IMetadata = Interfaces::IMetadata;
    using IMetadatable = Interfaces::IMetadatable;
    /// @}

    /// Without values.
    SMetadatable();
    /// Clones all values of the metadataList() of \a other, whatever their flags. Null has none.
    /// @{
    SMetadatable(const SMetadatable &other);
    explicit SMetadatable(IMetadatable *other);
    /// @}

    /// Replaces all values by clones of those of the metadataList() of \a other, whatever their
    /// flags. Null has none.
    /// @{
    SMetadatable &operator=(const SMetadatable &other);
    SMetadatable &operator=(IMetadatable *other);
    /// @}
    ~SMetadatable() override;

    /// Whether both hold the same number of values and each value here equals its counterpart.
    [[nodiscard]] bool operator==(const SMetadatable &other) const;

    void clearMetadata() override;
    [[nodiscard]] qsizetype metadataCount() const override;
    [[nodiscard]] QList<IMetadata *> metadataList() const override;
    [[nodiscard]] IMetadata *metadata(const quint64 &id) const override;
    void copyMetadata(const QList<IMetadata *> &list, MetadataFlags mask) override;
    /// As IMetadatable says. If the value that is stored equals \a value, it stays, and the result
    /// is true without a call of onMetadataChanged(). The stored value may be set again.
    bool setMetadata(IMetadata *value, bool takeOwnership) override;
    void removeMetadata(const quint64 &id) override;
    [[nodiscard]] bool hasMetadata(const quint64 &id) const override;

protected:
    void onMetadataChanged(const quint64 &id) override;
    [[nodiscard]] bool isMetadataValid(const IMetadata *value) const override;

private:
    struct Entry
    {
        quint64 id;
        std::unique_ptr<IMetadata> value;
    };

    using Entries = std::vector<Entry>;
    using Spares = std::map<std::pair<quint64, const IMetadata *>, std::unique_ptr<IMetadata>>;

    [[nodiscard]] Entries::const_iterator place(quint64 id) const;
    [[nodiscard]] Entries::iterator place(quint64 id);
    [[nodiscard]] bool isAt(Entries::const_iterator place, quint64 id) const;
    void copyAll(const IMetadatable *other);
    void store(Entries::iterator place, quint64 id, IMetadata *value);

    /// Sorted by id. There are few classes, and of this few bytes.
    Entries m_entries;
    /// Handed over while they equalled the stored value, by its id and their addresses.
    Spares m_spares;
};

} // namespace Quorvex
