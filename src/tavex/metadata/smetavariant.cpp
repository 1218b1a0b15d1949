#include <tavex/metadata/smetavariant.h>

#include <tavex/convert/sconvert.h>

namespace Quorvex {

SMetaVariant::SMetaVariant(const QVariant &value)
    : m_value(value)
{
}

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
    if (!isSameTypeAs(other))
        return false;
    // The name alone does not prove it: two modules may each have a class of one name.
    const auto *const same = dynamic_cast<const SMetaVariant *>(other);
    return same && *this == *same;
}

} // namespace Quorvex
