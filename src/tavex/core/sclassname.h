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
    /// A type of a class template is no such name; the result is then of no use to a reader.
    [[nodiscard]] static QString name(const std::type_info &type);

    /// \a className in words: without the prefixes "S" and "Meta", split where a word or a number
    /// begins and at underscores. "SMetaListUInt16" gives "List UInt 16".
    [[nodiscard]] static QString displayName(const QString &className);
};

} // namespace Quorvex
