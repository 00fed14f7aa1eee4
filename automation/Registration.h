// The registry entries of this module's classes.
#pragma once

#include <ole2.h>

namespace qrtVistrelClasses4 {

/// Registers the type library, the classes and their names for programs of this bitness.
HRESULT RegisterClasses();

/// Removes what `RegisterClasses` wrote. Entries that are already missing are no failure.
HRESULT UnregisterClasses();

} // namespace qrtVistrelClasses4
