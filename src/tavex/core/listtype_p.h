#pragma once

#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QVariant>

#include <type_traits>

namespace Quorvex::MetaType {

/// A copy of \a own, the library's description of a list of numbers. It may outlive the library.
/// \sa ofList
QMetaType outliving(QMetaType own);

/// The description of QList<T> in the library's variants.
///
/// When somebody asks such a variant for the number of its type, Qt stores a pointer to the
/// description, and every module stores the number. So this description does not lie in the
/// library's file, and stays behind if Qt points to it. Its functions that create, copy and destroy
/// values are those of QByteArray, which lie in Qt Core: both classes look the same in memory, and
/// will as long as Qt keeps its binary interface.
template <typename T>
requires std::is_arithmetic_v<T> QMetaType ofList()
{
    static_assert(
        sizeof(QList<T>) == sizeof(QByteArray) && alignof(QList<T>) == alignof(QByteArray));
    static const QMetaType type = outliving(QMetaType::fromType<QList<T>>());
    return type;
}

/// A variant that holds \a list. QVariant::fromValue() would make Qt keep the library's own
/// description of the type.
template <typename T>
QVariant variantOf(const QList<T> &list)
{
    QVariant variant(ofList<T>());
    *static_cast<QList<T> *>(variant.data()) = list;
    return variant;
}

} // namespace Quorvex::MetaType
