#pragma once

#include <tavex/enums/sflags.h>

#include <QtGlobal>

namespace Quorvex {

/// Where SEnumTranslatorBase looks for the text of a key, in this order.
enum class EnumTranslationOptions : quint32 {
    TranslateLocale = 1,   ///< the chosen language: its catalogue, then the texts added at run time
    TranslateFallback = 2, ///< the fallback: texts added at run time, then the English catalogue
    NoKeyFallback = 4,     ///< an empty text instead of the key when nothing was found
};

/// It is a set of flags.
template <>
inline constexpr bool isFlags<EnumTranslationOptions> = true;

} // namespace Quorvex
