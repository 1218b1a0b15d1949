#pragma once

#include <QMetaType>

/// \file
/// Questions about types that Qt itself would answer only after registering their descriptions. A
/// description lies in the module that made a variant, and Qt would still point to it when that
/// module is unloaded.

namespace Quorvex::MetaType {

/// The description of \a type that Qt has registered, which may be another module's; an invalid one
/// if there is none. Then there is no converter and no name for the type either.
inline QMetaType registered(QMetaType type)
{
    return type.isRegistered() || !type.isValid() ? type : QMetaType::fromName(type.name());
}

/// Whether both describe the same type.
inline bool isSame(QMetaType a, QMetaType b)
{
    if (a.iface() == b.iface())
        return true;
    if (a.isRegistered() && b.isRegistered())
        return a.id() == b.id();
    return a.isValid() && b.isValid() && qstrcmp(a.name(), b.name()) == 0;
}

} // namespace Quorvex::MetaType
