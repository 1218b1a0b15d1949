#pragma once

#include <tavex/metadata/imetadata.h>

#include <QVariant>

#include <utility>

namespace Quorvex {

/// A metadata value that lives in a QVariant: the base of the library's scalar and list values and
/// of such classes of an application, each of which supplies clone() and id(), as
/// SMetaKind does. It is one variant and stays so.
class TAVEX_EXPORT SMetaVariant : public Interfaces::IMetadata
{
public:
    /// Holds \a value.
    SMetaVariant(QVariant value)
        : m_value(std::move(value))
    {
    }
    SMetaVariant(const SMetaVariant &) = default;
    SMetaVariant &operator=(const SMetaVariant &) = default;
    ~SMetaVariant() override;

    /// The variant.
    /// @{
    [[nodiscard]] const QVariant &value() const noexcept { return m_value; }
    operator QVariant() const { return m_value; }
    /// @}

    /// Compares the variants, not the classes.
    [[nodiscard]] bool operator==(const SMetaVariant &other) const;

    [[nodiscard]] bool isNull() const override;
    /// Whether the value is null or the variant is invalid.
    [[nodiscard]] bool isEmpty() const override;
    [[nodiscard]] MetadataFlags flags() override;
    using IMetadata::flags;
    /// The variant as SConvert::toString() writes it.
    [[nodiscard]] QString toString(const QString &format, const QLocale &locale) override;
    using IFormattable::toString;
    /// Whether \a other is of the same class and holds an equal variant.
    [[nodiscard]] bool equalsTo(const IEquatable *other) const override;

private:
    QVariant m_value;
};

} // namespace Quorvex
