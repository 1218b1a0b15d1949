#pragma once

#include <tavex/metadata/imetadata.h>

#include <QJsonDocument>

namespace Quorvex {

/// A JSON document as metadata: the base of an application's own kinds of document, each of which
/// supplies clone() and id().
class TAVEX_EXPORT SMetaJsonDocument : public Interfaces::IMetadata
{
public:
    /// Holds \a value.
    SMetaJsonDocument(const QJsonDocument &value);
    SMetaJsonDocument(const SMetaJsonDocument &) = default;
    SMetaJsonDocument &operator=(const SMetaJsonDocument &) = default;
    ~SMetaJsonDocument() override;

    /// The document.
    /// @{
    [[nodiscard]] const QJsonDocument &value() const noexcept { return m_value; }
    operator QJsonDocument() const { return m_value; }
    /// @}

    /// Compares what both hold, whatever their classes.
    [[nodiscard]] bool operator==(const SMetaJsonDocument &other) const
    {
        return m_value == other.m_value;
    }

    [[nodiscard]] bool isNull() const override;
    [[nodiscard]] bool isEmpty() const override;
    [[nodiscard]] MetadataFlags flags() override;
    [[nodiscard]] QString name() override;
    /// JSON text: indented if \a format is "{indent}" or "{json:indent}", otherwise compact.
    [[nodiscard]] QString toString(const QString &format, const QLocale &locale) override;
    using IFormattable::toString;
    /// Whether \a other is of the same class and holds an equal value.
    [[nodiscard]] bool equalsTo(const IEquatable *other) const override;

private:
    QJsonDocument m_value;
};

} // namespace Quorvex
