// What this machine says about a playfile that is validated.
#pragma once

#include <qrtVistrelClasses4/Raster.h>
#include <qrtVistrelClasses4/Validation.h>

namespace qrtVistrelClasses4 {

/// Circumstances by the settings, the effects and the stored commands of this machine. A number of `sign`
/// that is not above 0 is that of the preferences. Settings that cannot be read are logged as errors, and
/// their defaults are used.
ValidationCircumstances CircumstancesOfMachine(DotSize sign);

} // namespace qrtVistrelClasses4
