#pragma once

#include <tavex/enums/cpufeatureflags.h>

#include <QString>

namespace Quorvex::Cpu {

/// Platform::affinityProcessors() as it was at the first call, which is at load: it must not depend
/// on what the program makes of its threads later.
int affinityAtLoad();

// What the processor says about itself. One source per architecture, picked by CMake, defines these
// functions; where it says nothing, texts are empty and no flag is set.

[[nodiscard]] QString vendor();
[[nodiscard]] QString brand();
[[nodiscard]] CpuFeatureFlags features();

} // namespace Quorvex::Cpu
