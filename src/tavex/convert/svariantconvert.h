#pragma once

#include <tavex/core/export.h>

#include <QLocale>
#include <QString>
#include <QVariant>

namespace Quorvex {

/// Which function turns a QVariant of which type into text.
///
/// The library's enumerations are registered from load on: their converters print the key (never
/// translated) and ignore the format. Applications add their own types. All members may be called
/// from any thread. A module that registers a converter must stay loaded as long as the library.
class TAVEX_EXPORT SVariantConvert
{
public:
    /// Called with a variant of the registered type, a format (empty: the default) and a locale.
    using Converter = QString (*)(
        const QVariant &value, const QString &format, const QLocale &locale);

    /// Sets the converter of the meta type id \a typeId, in place of the one that it had.
    /// A null \a converter is ignored.
    static void sVariantToStringRegister(int typeId, Converter converter);

    /// Whether \a typeId has a converter.
    [[nodiscard]] static bool isSVariantToStringRegistered(int typeId);

    /// The converter of \a typeId, or null.
    [[nodiscard]] static Converter sVariantToStringFunction(int typeId);
};

} // namespace Quorvex
