#pragma once

#include <tavex/metadata/metaclass.h>
#include <tavex/metadata/smetavariant.h>

#include <QList>

#include <initializer_list>

namespace Quorvex {

/// Declares the class Name, which holds a QList of T; see TAVEX_META_SCALAR.
#define TAVEX_META_LIST(Name, T)                                                                   \
    class TAVEX_EXPORT Name : public SMetaVariant                                                  \
    {                                                                                              \
    public:                                                                                        \
        /** Holds \a values. */                                                                    \
        /** @{ */                                                                                  \
        Name(const QList<T> &values);                                                              \
        Name(std::initializer_list<T> values)                                                      \
            : Name(QList<T>(values))                                                               \
        {                                                                                          \
        }                                                                                          \
        /** @} */                                                                                  \
        /** Holds the one element \a value. */                                                     \
        Name(const T &value);                                                                      \
        /** The number of elements. */                                                             \
        [[nodiscard]] qsizetype size() const;                                                      \
                                                                                                   \
        /** Whether there is no element. */                                                        \
        [[nodiscard]] bool isEmpty() const override;                                               \
        /** The list as SConvert::toString() writes it. */                                         \
        [[nodiscard]] QString toString(const QString &format, const QLocale &locale) override;     \
        using IFormattable::toString;                                                              \
        TAVEX_META_CONCRETE(Name, QList<T>);                                                       \
    }

/// \file
/// Metadata values of a list of numbers or truth values, or of a single one. Their text is that of
/// the elements, each written by SConvert::toString() in the given format.

/// A list of signed 8-bit integers as metadata.
TAVEX_META_LIST(SMetaListInt8, qint8);
/// A list of unsigned 8-bit integers as metadata.
TAVEX_META_LIST(SMetaListUInt8, quint8);
/// A list of signed 16-bit integers as metadata.
TAVEX_META_LIST(SMetaListInt16, qint16);
/// A list of unsigned 16-bit integers as metadata.
TAVEX_META_LIST(SMetaListUInt16, quint16);
/// A list of signed 32-bit integers as metadata.
TAVEX_META_LIST(SMetaListInt32, qint32);
/// A list of unsigned 32-bit integers as metadata.
TAVEX_META_LIST(SMetaListUInt32, quint32);
/// A list of signed 64-bit integers as metadata.
TAVEX_META_LIST(SMetaListInt64, qint64);
/// A list of unsigned 64-bit integers as metadata.
TAVEX_META_LIST(SMetaListUInt64, quint64);
/// A list of `float` as metadata.
TAVEX_META_LIST(SMetaListSingle, float);
/// A list of `double` as metadata.
TAVEX_META_LIST(SMetaListDouble, double);
/// A list of `bool` as metadata.
TAVEX_META_LIST(SMetaListBool, bool);

} // namespace Quorvex
