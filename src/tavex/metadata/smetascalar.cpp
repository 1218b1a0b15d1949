#include <tavex/metadata/smetascalar.h>

#include <tavex/metadata/metaclass_p.h>
#include <tavex/metadata/smetaversion.h>

namespace Quorvex {
namespace {

/// The description that Qt has registered: with all compilers that of Qt Core, which stays.
template <typename T>
QMetaType qtType()
{
    return QMetaType(QMetaType::fromType<T>().id());
}

} // namespace

#define DEFINE_META_SCALAR(Name, T)                                                                \
    Name::Name(const T &value)                                                                     \
        : SMetaVariant(QVariant(qtType<T>(), &value))                                              \
    {                                                                                              \
    }                                                                                              \
    T Name::value() const                                                                          \
    {                                                                                              \
        return heldValue<T>(SMetaVariant::value(), QMetaType::fromType<T>());                      \
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
