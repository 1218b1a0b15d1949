#pragma once

#include <tavex/enums/senumbase.h>

namespace Quorvex {

#define TAVEX_SILengthUnit_KEYS(KEY)                                                               \
    KEY(YoctoMeter, -24)                                                                           \
    KEY(ZeptoMeter, -21)                                                                           \
    KEY(AttoMeter, -18)                                                                            \
    KEY(FemtoMeter, -15)                                                                           \
    KEY(PicoMeter, -12)                                                                            \
    KEY(NanoMeter, -9)                                                                             \
    KEY(MicroMeter, -6)                                                                            \
    KEY(MilliMeter, -3)                                                                            \
    KEY(CentiMeter, -2)                                                                            \
    KEY(DeciMeter, -1)                                                                             \
    KEY(Meter, 0)                                                                                  \
    KEY(DecaMeter, 1)                                                                              \
    KEY(HectoMeter, 2)                                                                             \
    KEY(KiloMeter, 3)                                                                              \
    KEY(MegaMeter, 6)                                                                              \
    KEY(GigaMeter, 9)                                                                              \
    KEY(TeraMeter, 12)                                                                             \
    KEY(PetaMeter, 15)                                                                             \
    KEY(ExaMeter, 18)                                                                              \
    KEY(ZettaMeter, 21)                                                                            \
    KEY(YottaMeter, 24)

/// A length unit of the SI. Each value is the power of ten of a metre.
TAVEX_EXPORTED_ENUM(TAVEX_EXPORT, SILengthUnit, qint32, TAVEX_SILengthUnit_KEYS);

} // namespace Quorvex
