#pragma once

#include <tavex/metadata/metaclass.h>

#include <QString>

namespace Quorvex {

/// A text as metadata: the base of an application's own kinds of text, each of which supplies
/// clone() and id(), as SMetaKind does. toString() gives the text itself.
TAVEX_META_VALUE(SMetaString, QString, QString);

} // namespace Quorvex
