#include <tavex/metadata/smetastring.h>

#include <tavex/metadata/metaclass_p.h>

namespace Quorvex {

SMetaString::SMetaString(const QString &value)
    : m_value(value)
{
}

SMetaString::~SMetaString() = default;

bool SMetaString::isNull() const
{
    return m_value.isNull();
}

bool SMetaString::isEmpty() const
{
    return m_value.isEmpty();
}

MetadataFlags SMetaString::flags()
{
    return MetadataFlags::None;
}

QString SMetaString::toString(const QString &, const QLocale &)
{
    return m_value;
}

bool SMetaString::equalsTo(const IEquatable *other) const
{
    return equalValues(this, other);
}

} // namespace Quorvex
