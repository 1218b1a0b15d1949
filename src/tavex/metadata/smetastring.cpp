#include <tavex/metadata/smetastring.h>

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
    if (!isSameTypeAs(other))
        return false;
    const auto *const same = dynamic_cast<const SMetaString *>(other);
    return same && *this == *same;
}

} // namespace Quorvex
