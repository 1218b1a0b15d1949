#pragma once

#include <tavex/convert/snumberconvert.h>
#include <tavex/metadata/metaclass.h>
#include <tavex/metadata/smetavariant.h>

namespace Quorvex {

/// Declares the class Name, which holds a T. It is a class, not the name of a template's instance,
/// so that its run-time type bears its name, and the library exports it and its virtual table
/// whole.
#define TAVEX_META_SCALAR(Name, T)                                                                 \
    class TAVEX_EXPORT Name : public SMetaVariant                                                  \
    {                                                                                              \
    public:                                                                                        \
        /** Holds \a value. */                                                                     \
        Name(const T &value);                                                                      \
        /** Holds another number, as convertedNumber() makes it fit. */                            \
        template <SScalar N>                                                                       \
        Name(N value)                                                                              \
            : Name(static_cast<const T &>(convertedNumber<T>(value)))                              \
        {                                                                                          \
        }                                                                                          \
                                                                                                   \
        TAVEX_META_CONCRETE(Name, T);                                                              \
    }

/// \file
/// Metadata values of one number or truth value.

/// A signed 8-bit integer as metadata.
TAVEX_META_SCALAR(SMetaInt8, qint8);
/// An unsigned 8-bit integer as metadata.
TAVEX_META_SCALAR(SMetaUInt8, quint8);
/// A signed 16-bit integer as metadata.
TAVEX_META_SCALAR(SMetaInt16, qint16);
/// An unsigned 16-bit integer as metadata.
TAVEX_META_SCALAR(SMetaUInt16, quint16);
/// A signed 32-bit integer as metadata.
TAVEX_META_SCALAR(SMetaInt32, qint32);
/// An unsigned 32-bit integer as metadata.
TAVEX_META_SCALAR(SMetaUInt32, quint32);
/// A signed 64-bit integer as metadata.
TAVEX_META_SCALAR(SMetaInt64, qint64);
/// An unsigned 64-bit integer as metadata.
TAVEX_META_SCALAR(SMetaUInt64, quint64);
/// A `float` as metadata.
TAVEX_META_SCALAR(SMetaSingle, float);
/// A `double` as metadata.
TAVEX_META_SCALAR(SMetaDouble, double);
/// A `bool` as metadata.
TAVEX_META_SCALAR(SMetaBool, bool);

} // namespace Quorvex
