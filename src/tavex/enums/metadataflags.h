#pragma once

#include <tavex/enums/senumbase.h>

namespace Quorvex {

enum class MetadataFlags : qint32;
/// It is a set of flags.
template <>
inline constexpr bool isFlags<MetadataFlags> = true;

#define TAVEX_MetadataFlags_KEYS(KEY)                                                              \
    KEY(None, 0)                  /**< keep it in every case */                                    \
    KEY(KillOnCopy, 1)            /**< when the owner is copied */                                 \
    KEY(KillOnSave, 2)            /**< when the owner is saved */                                  \
    KEY(KillOnSpaceTransform, 4)  /**< when the owner is transformed in space */                   \
    KEY(KillOnChanges, 8)         /**< when the owner changes */                                   \
    KEY(KillOnPhysicalChange, 16) /**< when the owner changes physically */                        \
    KEY(Volatile, 31)             /**< all of the above */

/// When the owner of a metadata value is to drop it.
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, MetadataFlags, qint32, TAVEX_MetadataFlags_KEYS);

} // namespace Quorvex
