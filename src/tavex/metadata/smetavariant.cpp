#include <tavex/metadata/smetavariant.h>

#include <tavex/convert/sconvert.h>
#include <tavex/metadata/metaclass_p.h>

namespace Quorvex {

SMetaVariant::~SMetaVariant() = default;

bool SMetaVariant::isNull() const
{
    return m_value.isNull();
}

bool SMetaVariant::isEmpty() const
{
    return isNull() || !m_value.isValid();
}

MetadataFlags SMetaVariant::flags()
{
    return MetadataFlags::None;
}

QString SMetaVariant::toString(const QString &format, const QLocale &locale)
{
    return SConvert::toString(m_value, format, locale);
}

bool SMetaVariant::equalsTo(const IEquatable *other) const
{
    return equalValues(this, other);
}

} // namespace Quorvex
