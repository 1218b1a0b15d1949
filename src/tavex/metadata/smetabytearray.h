#pragma once

#include <tavex/metadata/imetadata.h>

#include <QByteArray>

namespace Quorvex {

/// Bytes as metadata: the base of an application's own kinds of bytes, each of which supplies
/// clone() and id().
class TAVEX_EXPORT SMetaByteArray : public Interfaces::IMetadata
{
public:
    /// Holds \a value.
    SMetaByteArray(const QByteArray &value);
    SMetaByteArray(const SMetaByteArray &) = default;
    SMetaByteArray &operator=(const SMetaByteArray &) = default;
    ~SMetaByteArray() override;

    /// The bytes.
    /// @{
    [[nodiscard]] const QByteArray &value() const noexcept { return m_value; }
    operator QByteArray() const { return m_value; }
    /// @}

    /// Compares what both hold, whatever their classes.
    [[nodiscard]] bool operator==(const SMetaByteArray &other) const
    {
        return m_value == other.m_value;
    }

    [[nodiscard]] bool isNull() const override;
    [[nodiscard]] bool isEmpty() const override;
    [[nodiscard]] MetadataFlags flags() override;
    [[nodiscard]] QString name() override;
    /// \a format names the text encoding of the bytes, as QStringDecoder knows it; empty is UTF-8.
    /// If it is unknown, or the bytes are not wholly valid in it, the text is
    /// "Binary data [len: 3 bytes]".
    [[nodiscard]] QString toString(const QString &format, const QLocale &locale) override;
    using IFormattable::toString;
    /// Whether \a other is of the same class and holds an equal value.
    [[nodiscard]] bool equalsTo(const IEquatable *other) const override;

private:
    QByteArray m_value;
};

} // namespace Quorvex
