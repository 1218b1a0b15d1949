#pragma once

#include <tavex/enums/cpufeatureflags.h>

#include <QString>

namespace Quorvex::Cpu {

/// Platform::affinityProcessors() as it was at load, when this is called first: what the program
/// does with its threads later must not change it.
int affinityAtLoad();

// What the processor says about itself. One source per architecture, picked by CMake, defines these
// functions; what it does not tell is an empty text or a flag that is not set.

[[nodiscard]] QString vendor();
[[nodiscard]] QString brand();
[[nodiscard]] CpuFeatureFlags features();

} // namespace Quorvex::Cpu
