#pragma once

#include <tavex/metadata/metaclass.h>

#include <QByteArray>

namespace Quorvex {

/// Bytes as metadata: the base of an application's own kinds of bytes, each of which supplies
/// clone() and id(), as SMetaKind does. The format of toString() names the text encoding of the
/// bytes, as QStringDecoder knows it; empty is UTF-8. If it is unknown, or the bytes are not wholly
/// valid in it, the text is "Binary data [len: 3 bytes]".
TAVEX_META_VALUE(
    SMetaByteArray, QByteArray, const QByteArray &, [[nodiscard]] QString name() override;);

} // namespace Quorvex
