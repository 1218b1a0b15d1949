#pragma once

#include <tavex/metadata/smetavariant.h>

namespace Quorvex {

// Declares the class Name, which holds a T. It is a class, not the name of a template's instance,
// so that its run-time type bears its name, and the library exports it and its virtual table whole.
#define TAVEX_META_SCALAR(Name, T)                                                                 \
    class TAVEX_EXPORT Name : public SMetaVariant                                                  \
    {                                                                                              \
    public:                                                                                        \
        Name(const T &value);                                                                      \
        template <typename P>                                                                      \
        Name(P *) = delete;                                                                        \
        Name(const Name &) = default;                                                              \
        Name &operator=(const Name &) = default;                                                   \
        ~Name() override;                                                                          \
                                                                                                   \
        [[nodiscard]] T value() const;                                                             \
        operator T() const { return value(); }                                                     \
                                                                                                   \
        [[nodiscard]] Name *clone() const override;                                                \
        [[nodiscard]] QString name() override;                                                     \
        [[nodiscard]] quint64 id() const override;                                                 \
        [[nodiscard]] static quint64 uniqueId();                                                   \
    }

/// \file
/// Metadata values of one number or truth value. Each class has
/// - a constructor from its type T, and the conversion to it;
/// - `value()`, a T: what the variant holds, converted by QMetaType if an assignment through
///   SMetaVariant left something else there;
/// - `name()`, the class's name, and the static `uniqueId()`, which is also the `id()`.

TAVEX_META_SCALAR(SMetaInt8, qint8);
TAVEX_META_SCALAR(SMetaUInt8, quint8);
TAVEX_META_SCALAR(SMetaInt16, qint16);
TAVEX_META_SCALAR(SMetaUInt16, quint16);
TAVEX_META_SCALAR(SMetaInt32, qint32);
TAVEX_META_SCALAR(SMetaUInt32, quint32);
TAVEX_META_SCALAR(SMetaInt64, qint64);
TAVEX_META_SCALAR(SMetaUInt64, quint64);
TAVEX_META_SCALAR(SMetaSingle, float);
TAVEX_META_SCALAR(SMetaDouble, double);
TAVEX_META_SCALAR(SMetaBool, bool);

} // namespace Quorvex
