#pragma once

#include <tavex/core/export.h>

#include <QString>

class QIODevice;

namespace Quorvex {

/// Helpers for those who make catalogues of enumerations.
class TAVEX_EXPORT SEnumHelper
{
public:
    /// Stores the translation source \a document, which the caller has composed, as UTF-8 in the
    /// file \a fileName, in place of what it held. Returns whether the file could be opened;
    /// whether all of it could be written is not told.
    static bool writeTranslatorXML(const QString &fileName, const QString &document);

    /// The same on a device, which is opened for writing and closed. False for null and for a
    /// device that cannot be opened, one that is open already included.
    static bool writeTranslatorXML(QIODevice *device, const QString &document);
};

} // namespace Quorvex
