#pragma once

#include <typeinfo>

/// \file
/// What every concrete metadata class of the library defines in the same way.

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
        static const quint64 id = typeid(Name).hash_code();                                        \
        return id;                                                                                 \
    }
