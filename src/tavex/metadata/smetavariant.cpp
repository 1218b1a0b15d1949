#include <tavex/metadata/smetavariant.h>

#include <tavex/convert/sconvert.h>
#include <tavex/core/metatype_p.h>
#include <tavex/metadata/metaclass_p.h>

namespace Quorvex {

SMetaVariant::~SMetaVariant() = default;

bool SMetaVariant::operator==(const SMetaVariant &other) const
{
    const QMetaType type = m_value.metaType();
    const QMetaType otherType = other.m_value.metaType();
    if (MetaType::isSame(type, otherType))
        return !type.isValid() || type.equals(m_value.constData(), other.m_value.constData());
    // Qt compares different types, such as two of numbers, but registers the types that it meets.
    return MetaType::registered(type).isValid() && MetaType::registered(otherType).isValid()
        && m_value == other.m_value;
}

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
