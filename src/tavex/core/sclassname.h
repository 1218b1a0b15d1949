#pragma once

#include <tavex/core/export.h>

#include <QString>

#include <typeinfo>

namespace Quorvex {

/// Turns classes into names for people. All members may be called from any thread.
class TAVEX_EXPORT SClassName
{
public:
    /// The class name of \a type without namespaces and keywords, such as "SMetaInt32".
    /// Of a class template's type the result may be only a part of the name.
    [[nodiscard]] static QString name(const std::type_info &type);

    /// \a className in words: without the prefixes "S" and "Meta", split where a word or a number
    /// begins and at underscores. "SMetaListUInt16" gives "List UInt 16".
    [[nodiscard]] static QString displayName(const QString &className);
};

} // namespace Quorvex
