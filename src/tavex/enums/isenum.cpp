#include <tavex/enums/isenum.h>

#include <tavex/application/senumruntimeloader.h>

namespace Quorvex {

ISEnum::ISEnum() = default;
ISEnum::~ISEnum() = default;

bool ISEnum::addKey(qint64 value, const QString &key)
{
    if (key.isEmpty() || m_keys.value(value).contains(key))
        return false;
    m_keys[value].append(key);
    m_order.append(key);
    return true;
}

void ISEnum::loadRuntimeKeys()
{
    if (const auto loader = SEnumRuntimeLoader::loader(name()))
        loader->loadKeys(this);
}

QString ISEnum::text(qint64 value, bool isUnsigned, const QLocale &locale) const
{
    const auto keys = m_keys.constFind(value);
    if (keys != m_keys.cend())
        return keys->last();
    return isUnsigned ? locale.toString(static_cast<quint64>(value)) : locale.toString(value);
}

} // namespace Quorvex
