#include <tavex/metadata/smetadatetime.h>

#include <tavex/convert/sconvert.h>
#include <tavex/metadata/metaclass_p.h>

namespace Quorvex {

SMetaDateTime::SMetaDateTime(const QDateTime &value)
    : m_value(value)
{
}

SMetaDateTime::~SMetaDateTime() = default;

bool SMetaDateTime::isNull() const
{
    return m_value.isNull();
}

bool SMetaDateTime::isEmpty() const
{
    return isNull() || !m_value.isValid();
}

MetadataFlags SMetaDateTime::flags()
{
    return MetadataFlags::Volatile;
}

QString SMetaDateTime::toString(const QString &format, const QLocale &locale)
{
    return SConvert::toString(m_value.toLocalTime(), format, locale);
}

bool SMetaDateTime::equalsTo(const IEquatable *other) const
{
    return equalValues(this, other);
}

} // namespace Quorvex
