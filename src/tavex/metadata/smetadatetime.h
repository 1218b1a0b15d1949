#pragma once

#include <tavex/metadata/metaclass.h>

#include <QDateTime>

namespace Quorvex {

/// A time stamp as metadata: the base of an application's own kinds of time stamp, each of which
/// supplies clone() and id(), as SMetaKind does. It is dropped on every occasion
/// (MetadataFlags::Volatile). toString() gives the local time as SConvert::toString() writes it.
TAVEX_META_VALUE(SMetaDateTime, QDateTime, const QDateTime &);

} // namespace Quorvex
