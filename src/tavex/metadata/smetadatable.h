#pragma once

#include <tavex/metadata/imetadatable.h>

#include <concepts>
#include <memory>

namespace Quorvex {

/// Carries metadata: the base of classes whose objects are to have some.
///
/// Each value that is stored or handed over belongs to the container, which deletes it exactly
/// once. A value handed over while an equal one is stored is not stored; yet the pointer stays good
/// until another value replaces the stored one, clearMetadata() or the destructor. A container is
/// used from one thread at a time.
///
/// In a debug build of a program, handing over a value asserts that no object of another class has
/// had its id; see SMetaKind.
class TAVEX_EXPORT SMetadatable : public Interfaces::IMetadatable
{
public:
    /// The interface, in the scope of the class.
    /// @{
    using IMetadata = Interfaces::IMetadata;
    using IMetadatable = Interfaces::IMetadatable;
    /// @}

    /// Without values.
    SMetadatable() noexcept;
    /// Clones all values of the metadataList() of \a other, whatever their flags. Null has none.
    /// @{
    SMetadatable(const SMetadatable &other);
    explicit SMetadatable(IMetadatable *other);
    /// @}
    /// Takes over the values of \a other, which has none then.
    SMetadatable(SMetadatable &&other) noexcept;

    /// Replaces all values by clones of those of the metadataList() of \a other, whatever their
    /// flags. Null has none.
    /// @{
    SMetadatable &operator=(const SMetadatable &other);
    SMetadatable &operator=(IMetadatable *other);
    /// @}
    /// Replaces all values by those of \a other, which has none then. Values that isMetadataValid()
    /// rejects are deleted.
    SMetadatable &operator=(SMetadatable &&other) noexcept;
    ~SMetadatable() override;

    /// Whether both hold the same number of values and each value here equals its counterpart.
    [[nodiscard]] bool operator==(const SMetadatable &other) const;

    void clearMetadata() override;
    [[nodiscard]] qsizetype metadataCount() const override;
    [[nodiscard]] QList<IMetadata *> metadataList() const override;
    [[nodiscard]] IMetadata *metadata(const quint64 &id) const override;
    /// The value of the class \a T, such as `metadata<SMetaInt32>()`, or null. It stays with the
    /// object.
    template <std::derived_from<IMetadata> T>
    [[nodiscard]] T *metadata() const
    {
        return dynamic_cast<T *>(metadata(T::uniqueId()));
    }
    void copyMetadata(const QList<IMetadata *> &list, MetadataFlags mask) override;
    /// As IMetadatable says. If the value that is stored equals \a value, it stays, and the result
    /// is true without a call of onMetadataChanged(). The stored value may be set again.
    /// @{
    bool setMetadata(IMetadata *value, bool takeOwnership) override;
    template <std::derived_from<IMetadata> T>
    bool setMetadata(T *value, bool takeOwnership)
    {
        return setMetadata(checked(value), takeOwnership);
    }
    /// @}
    /// Stores \a value itself, in the same way. If the result is false, \a value is deleted.
    bool setMetadata(std::unique_ptr<IMetadata> value)
    {
        const bool isStored = setMetadata(checked(value.get()), true);
        if (isStored)
            static_cast<void>(value.release());
        return isStored;
    }
    void removeMetadata(const quint64 &id) override;
    [[nodiscard]] bool hasMetadata(const quint64 &id) const override;

protected:
    void onMetadataChanged(const quint64 &id) override;
    [[nodiscard]] bool isMetadataValid(const IMetadata *value) const override;

private:
    class Private;

    /// \a value, which in a debug build has to be of the only class with its id.
    static IMetadata *checked(IMetadata *value)
    {
        Q_ASSERT_X(!value || isOnlyClass(*value), "SMetadatable", "two classes have the same id()");
        return value;
    }
    /// Whether all values with the id of \a value for which this was called were of its class.
    static bool isOnlyClass(const IMetadata &value);

    void copyAll(const IMetadatable *other);

    /// Null while there is no value.
    std::unique_ptr<Private> d;
};

} // namespace Quorvex
