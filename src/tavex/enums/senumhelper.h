#pragma once

#include <tavex/core/export.h>

#include <QString>

class QIODevice;

namespace Quorvex {

/// Helpers for those who make catalogues of enumerations.
class TAVEX_EXPORT SEnumHelper
{
public:
    /// Stores the translation source \a document as UTF-8 in the file \a fileName and replaces what
    /// it held. Returns whether the file could be opened, not whether all of it could be written.
    [[nodiscard]] static bool writeTranslatorXML(const QString &fileName, const QString &document);

    /// The same on a device, which is opened for writing and closed. False for null and for a
    /// device that is open already or cannot be opened.
    [[nodiscard]] static bool writeTranslatorXML(QIODevice *device, const QString &document);
};

} // namespace Quorvex
