#pragma once

#include <tavex/core/sversion.h>
#include <tavex/metadata/smetascalar.h>

namespace Quorvex {

/// A version as a metadata value; like the scalar values otherwise.
TAVEX_META_SCALAR(SMetaVersion, SVersion);

} // namespace Quorvex
