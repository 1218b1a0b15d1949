#pragma once

#include <tavex/metadata/smetavariant.h>

#include <QList>

namespace Quorvex {

// Declares the class Name, which holds a QList of T; see TAVEX_META_SCALAR.
#define TAVEX_META_LIST(Name, T)                                                                   \
    class TAVEX_EXPORT Name : public SMetaVariant                                                  \
    {                                                                                              \
    public:                                                                                        \
        Name(const QList<T> &values);                                                              \
        Name(const T &value);                                                                      \
        template <typename P>                                                                      \
        Name(P *) = delete;                                                                        \
        Name(const Name &) = default;                                                              \
        Name &operator=(const Name &) = default;                                                   \
        ~Name() override;                                                                          \
                                                                                                   \
        [[nodiscard]] QList<T> value() const;                                                      \
        operator QList<T>() const { return value(); }                                              \
        [[nodiscard]] qsizetype size() const;                                                      \
                                                                                                   \
        [[nodiscard]] bool isEmpty() const override;                                               \
        [[nodiscard]] QString toString(const QString &format, const QLocale &locale) override;     \
        using IFormattable::toString;                                                              \
        [[nodiscard]] Name *clone() const override;                                                \
        [[nodiscard]] QString name() override;                                                     \
        [[nodiscard]] quint64 id() const override;                                                 \
        [[nodiscard]] static quint64 uniqueId();                                                   \
    }

/// \file
/// Metadata values of a list of numbers or truth values, or of a single one. Their text is that of
/// the elements, each written by SConvert::toString() in the given format, joined with ", ".

TAVEX_META_LIST(SMetaListInt8, qint8);
TAVEX_META_LIST(SMetaListUInt8, quint8);
TAVEX_META_LIST(SMetaListInt16, qint16);
TAVEX_META_LIST(SMetaListUInt16, quint16);
TAVEX_META_LIST(SMetaListInt32, qint32);
TAVEX_META_LIST(SMetaListUInt32, quint32);
TAVEX_META_LIST(SMetaListInt64, qint64);
TAVEX_META_LIST(SMetaListUInt64, quint64);
TAVEX_META_LIST(SMetaListSingle, float);
TAVEX_META_LIST(SMetaListDouble, double);
TAVEX_META_LIST(SMetaListBool, bool);

} // namespace Quorvex
