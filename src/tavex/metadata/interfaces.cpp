// What the interfaces implement. Each has a virtual function here, so that its run-time type is in
// the library alone, and casts and comparisons of types work between modules.

#include <tavex/core/sclassname.h>
#include <tavex/metadata/ilockable.h>
#include <tavex/metadata/imetadatable.h>
#include <tavex/metadata/iserializable.h>
#include <tavex/metadata/ivalidity.h>

#include <cstring>
#include <typeinfo>

namespace Quorvex::Interfaces {

ICloneable::~ICloneable() = default;
IFormattable::~IFormattable() = default;
IEquatable::~IEquatable() = default;
IIdentifiable::~IIdentifiable() = default;
IMetadata::~IMetadata() = default;
IMetadatable::~IMetadatable() = default;
IValidity::~IValidity() = default;
ISerializable::~ISerializable() = default;
ILockable::~ILockable() = default;

QString IFormattable::toString(const QLocale &locale)
{
    return toString(QString(), locale);
}

QString IFormattable::toString(const QString &format)
{
    return toString(format, QLocale());
}

QString IFormattable::toString()
{
    return toString(QString(), QLocale());
}

bool IEquatable::isSameTypeAs(const IEquatable *other) const
{
    if (!other)
        return false;
    const char *const name = typeid(*this).name();
    const char *const otherName = typeid(*other).name();
    return name == otherName || std::strcmp(name, otherName) == 0;
}

QString IMetadata::name()
{
    return SClassName::name(typeid(*this));
}

QString IMetadata::displayName()
{
    return SClassName::displayName(name());
}

} // namespace Quorvex::Interfaces
