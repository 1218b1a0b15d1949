#pragma once

#include <tavex/core/metatype_p.h>
#include <tavex/metadata/iequatable.h>

#include <QVariant>

#include <atomic>
#include <typeinfo>

/// \file
/// What the metadata classes of the library do in the same way.

namespace Quorvex {

/// What \a variant holds, which is a T of the given \a type or as QMetaType converts it. QVariant's
/// own way would make Qt register both types.
template <typename T>
T heldValue(const QVariant &variant, QMetaType type)
{
    if (MetaType::isSame(variant.metaType(), type))
        return *static_cast<const T *>(variant.constData());
    T result{};
    const QMetaType from = MetaType::registered(variant.metaType());
    if (const QMetaType to = MetaType::registered(type); to.isValid())
        QMetaType::convert(from, variant.constData(), to, &result);
    return result;
}

/// equalsTo() of every class that compares with `==` what it holds.
template <typename Value>
bool equalValues(const Value *value, const Interfaces::IEquatable *other)
{
    if (!value->isSameTypeAs(other))
        return false;
    // The name alone does not prove it: two modules may each have a class of one name.
    const auto *const same = dynamic_cast<const Value *>(other);
    return same && *value == *same;
}

} // namespace Quorvex

#define DEFINE_META_CLASS(Name)                                                                    \
    Name::~Name() = default;                                                                       \
    Name *Name::clone() const                                                                      \
    {                                                                                              \
        return new Name(*this);                                                                    \
    }                                                                                              \
    QString Name::name()                                                                           \
    {                                                                                              \
        return QStringLiteral(#Name);                                                              \
    }                                                                                              \
    quint64 Name::id() const                                                                       \
    {                                                                                              \
        return uniqueId();                                                                         \
    }                                                                                              \
    quint64 Name::uniqueId()                                                                       \
    {                                                                                              \
        static constinit std::atomic<quint64> known = 0;                                           \
        quint64 id = known.load(std::memory_order_relaxed);                                        \
        if (id == 0)                                                                               \
            known.store(id = typeid(Name).hash_code(), std::memory_order_relaxed);                 \
        return id;                                                                                 \
    }
