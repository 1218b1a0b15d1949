#pragma once

#include <tavex/metadata/metaclass.h>

#include <QJsonDocument>

namespace Quorvex {

/// A JSON document as metadata: the base of an application's own kinds of document, each of which
/// supplies clone() and id(), as SMetaKind does. toString() gives JSON text: indented if the format
/// is "{indent}" or
/// "{json:indent}", otherwise compact.
TAVEX_META_VALUE(SMetaJsonDocument, QJsonDocument, const QJsonDocument &,
                 [[nodiscard]] QString name() override;);

} // namespace Quorvex
