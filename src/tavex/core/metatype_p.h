#pragma once

#include <QMetaType>

/// \file
/// Questions about types that Qt answers only after it has registered their descriptions. Those lie
/// in the module that made a variant, which may be unloaded before Qt lets go of them.

namespace Quorvex::MetaType {

/// The description of \a type that Qt has registered, which may be another module's; an invalid one
/// if there is none. Nothing can have been registered for such a type either: no converter, no
/// name.
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
