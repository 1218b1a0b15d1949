#pragma once

#include <tavex/enums/binaryunit.h>
#include <tavex/enums/bool.h>
#include <tavex/enums/byteorder.h>
#include <tavex/enums/concurrencemode.h>
#include <tavex/enums/cpufeatureflags.h>
#include <tavex/enums/cputype.h>
#include <tavex/enums/metadataflags.h>
#include <tavex/enums/operatingsystem.h>
#include <tavex/enums/operatingsystemtype.h>
#include <tavex/enums/scslengthunit.h>
#include <tavex/enums/silengthunit.h>
#include <tavex/enums/siprefix.h>
#include <tavex/enums/specialfolder.h>

/// \file
/// Every enumeration of the library that has keys. Those of the first list can be held in a
/// QVariant and printed from there as soon as the library is loaded; TRANSLATED ones have a
/// translator too.

#define TAVEX_META_ENUMS(PLAIN, TRANSLATED)                                                        \
    PLAIN(MetadataFlags)                                                                           \
    TRANSLATED(Bool)                                                                               \
    PLAIN(SpecialFolder)                                                                           \
    PLAIN(ByteOrder)                                                                               \
    PLAIN(CpuFeatureFlags)                                                                         \
    PLAIN(CpuType)                                                                                 \
    TRANSLATED(OperatingSystemType)                                                                \
    TRANSLATED(BinaryUnit)                                                                         \
    PLAIN(SCSLengthUnit)                                                                           \
    PLAIN(SILengthUnit)                                                                            \
    PLAIN(SIPrefix)                                                                                \
    TRANSLATED(ConcurrenceMode)
#define TAVEX_OTHER_ENUMS(PLAIN) PLAIN(OperatingSystem)
