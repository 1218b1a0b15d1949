#include <tavex/metadata/smetascalar.h>

#include <tavex/metadata/metaclass_p.h>
#include <tavex/metadata/smetaversion.h>

namespace Quorvex {

#define DEFINE_META_SCALAR(Name, T)                                                                \
    Name::Name(const T &value)                                                                     \
        : SMetaVariant(QVariant::fromValue(value))                                                 \
    {                                                                                              \
    }                                                                                              \
    T Name::value() const                                                                          \
    {                                                                                              \
        return SMetaVariant::value().value<T>();                                                   \
    }                                                                                              \
    DEFINE_META_CLASS(Name)

DEFINE_META_SCALAR(SMetaInt8, qint8)
DEFINE_META_SCALAR(SMetaUInt8, quint8)
DEFINE_META_SCALAR(SMetaInt16, qint16)
DEFINE_META_SCALAR(SMetaUInt16, quint16)
DEFINE_META_SCALAR(SMetaInt32, qint32)
DEFINE_META_SCALAR(SMetaUInt32, quint32)
DEFINE_META_SCALAR(SMetaInt64, qint64)
DEFINE_META_SCALAR(SMetaUInt64, quint64)
DEFINE_META_SCALAR(SMetaSingle, float)
DEFINE_META_SCALAR(SMetaDouble, double)
DEFINE_META_SCALAR(SMetaBool, bool)
DEFINE_META_SCALAR(SMetaVersion, SVersion)

} // namespace Quorvex
