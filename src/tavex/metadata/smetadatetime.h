#pragma once

#include <tavex/metadata/imetadata.h>

#include <QDateTime>

namespace Quorvex {

/// A time stamp as metadata: the base of an application's own kinds of time stamp, each of which
/// supplies clone() and id(). It is dropped on every occasion (MetadataFlags::Volatile).
class TAVEX_EXPORT SMetaDateTime : public Interfaces::IMetadata
{
public:
    /// Holds \a value.
    SMetaDateTime(const QDateTime &value);
    SMetaDateTime(const SMetaDateTime &) = default;
    SMetaDateTime &operator=(const SMetaDateTime &) = default;
    ~SMetaDateTime() override;

    /// The time stamp.
    /// @{
    [[nodiscard]] const QDateTime &value() const noexcept { return m_value; }
    operator QDateTime() const { return m_value; }
    /// @}

    /// Compares what both hold, whatever their classes.
    [[nodiscard]] bool operator==(const SMetaDateTime &other) const
    {
        return m_value == other.m_value;
    }

    [[nodiscard]] bool isNull() const override;
    [[nodiscard]] bool isEmpty() const override;
    [[nodiscard]] MetadataFlags flags() override;
    /// The local time as SConvert::toString() writes it.
    [[nodiscard]] QString toString(const QString &format, const QLocale &locale) override;
    using IFormattable::toString;
    /// Whether \a other is of the same class and holds an equal value.
    [[nodiscard]] bool equalsTo(const IEquatable *other) const override;

private:
    QDateTime m_value;
};

} // namespace Quorvex
