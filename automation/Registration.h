// What the registry holds about the classes of this module.
#pragma once

#include <ole2.h>

namespace qrtVistrelClasses4 {

/// Registers type library, classes and their names, for this bitness.
HRESULT RegisterClasses();

/// Removes what `RegisterClasses` wrote. What is missing already is no failure.
HRESULT UnregisterClasses();

} // namespace qrtVistrelClasses4
