#pragma once

#include <tavex/metadata/imetadata.h>

#include <QString>

namespace Quorvex {

/// A text as metadata: the base of an application's own kinds of text, each of which supplies
/// clone() and id().
class TAVEX_EXPORT SMetaString : public Interfaces::IMetadata
{
public:
    /// Holds \a value.
    SMetaString(const QString &value);
    SMetaString(const SMetaString &) = default;
    SMetaString &operator=(const SMetaString &) = default;
    ~SMetaString() override;

    /// The text.
    /// @{
    [[nodiscard]] QString value() const noexcept { return m_value; }
    operator QString() const { return m_value; }
    /// @}

    /// Compares what both hold, whatever their classes.
    [[nodiscard]] bool operator==(const SMetaString &other) const
    {
        return m_value == other.m_value;
    }

    [[nodiscard]] bool isNull() const override;
    [[nodiscard]] bool isEmpty() const override;
    [[nodiscard]] MetadataFlags flags() override;
    /// The text itself.
    [[nodiscard]] QString toString(const QString &format, const QLocale &locale) override;
    using IFormattable::toString;
    /// Whether \a other is of the same class and holds an equal value.
    [[nodiscard]] bool equalsTo(const IEquatable *other) const override;

private:
    QString m_value;
};

} // namespace Quorvex
