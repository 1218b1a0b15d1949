#include <tavex/metadata/smetalist.h>

#include <tavex/convert/sconvert.h>
#include <tavex/core/listtype_p.h>
#include <tavex/metadata/metaclass_p.h>

namespace Quorvex {

#define DEFINE_META_LIST(Name, T)                                                                  \
    Name::Name(const QList<T> &values)                                                             \
        : SMetaVariant(MetaType::variantOf(values))                                                \
    {                                                                                              \
    }                                                                                              \
    Name::Name(const T &value)                                                                     \
        : Name(QList<T>(1, value))                                                                 \
    {                                                                                              \
    }                                                                                              \
    QList<T> Name::value() const                                                                   \
    {                                                                                              \
        return heldValue<QList<T>>(SMetaVariant::value(), MetaType::ofList<T>());                  \
    }                                                                                              \
    qsizetype Name::size() const                                                                   \
    {                                                                                              \
        return value().size();                                                                     \
    }                                                                                              \
    bool Name::isEmpty() const                                                                     \
    {                                                                                              \
        return SMetaVariant::isEmpty() || size() == 0;                                             \
    }                                                                                              \
    QString Name::toString(const QString &format, const QLocale &locale)                           \
    {                                                                                              \
        return SConvert::toString(value(), format, locale);                                        \
    }                                                                                              \
    DEFINE_META_CLASS(Name)

DEFINE_META_LIST(SMetaListInt8, qint8)
DEFINE_META_LIST(SMetaListUInt8, quint8)
DEFINE_META_LIST(SMetaListInt16, qint16)
DEFINE_META_LIST(SMetaListUInt16, quint16)
DEFINE_META_LIST(SMetaListInt32, qint32)
DEFINE_META_LIST(SMetaListUInt32, quint32)
DEFINE_META_LIST(SMetaListInt64, qint64)
DEFINE_META_LIST(SMetaListUInt64, quint64)
DEFINE_META_LIST(SMetaListSingle, float)
DEFINE_META_LIST(SMetaListDouble, double)
DEFINE_META_LIST(SMetaListBool, bool)

} // namespace Quorvex
