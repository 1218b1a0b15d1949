#pragma once

#include <tavex/enums/cpufeatureflags.h>

#include <QString>

/// \file
/// What the processor says about itself. One source per architecture, picked by CMake, defines all
/// of it; where it says nothing, texts are empty and no flag is set.

namespace Quorvex::Cpu {

[[nodiscard]] QString vendor();
[[nodiscard]] QString brand();
[[nodiscard]] CpuFeatureFlags features();

} // namespace Quorvex::Cpu
