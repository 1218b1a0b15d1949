#include <tavex/metadata/smetajsondocument.h>

#include <tavex/convert/sconvert.h>
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

QString SMetaJsonDocument::toString(const QString &format, const QLocale &locale)
{
    return SConvert::toString(m_value, format, locale);
}

bool SMetaJsonDocument::equalsTo(const IEquatable *other) const
{
    return equalValues(this, other);
}

} // namespace Quorvex
