#include <tavex/metadata/smetajsondocument.h>

#include <tavex/metadata/metaclass_p.h>

namespace Quorvex {

SMetaJsonDocument::SMetaJsonDocument(const QJsonDocument &value)
    : m_value(value)
{
}

SMetaJsonDocument::~SMetaJsonDocument() = default;

bool SMetaJsonDocument::isNull() const
{
    return m_value.isNull();
}

bool SMetaJsonDocument::isEmpty() const
{
    return m_value.isEmpty();
}

MetadataFlags SMetaJsonDocument::flags()
{
    return MetadataFlags::None;
}

QString SMetaJsonDocument::name()
{
    return QStringLiteral("SMetaJsonDocument");
}

QString SMetaJsonDocument::toString(const QString &format, const QLocale &)
{
    const bool indented =
        format == QStringLiteral("{indent}") || format == QStringLiteral("{json:indent}");
    return QString::fromUtf8(
        m_value.toJson(indented ? QJsonDocument::Indented : QJsonDocument::Compact));
}

bool SMetaJsonDocument::equalsTo(const IEquatable *other) const
{
    return equalValues(this, other);
}

} // namespace Quorvex
