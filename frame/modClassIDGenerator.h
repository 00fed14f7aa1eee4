// Identity numbers of the library's objects.
#pragma once

#include <cstdint>

namespace qrtVistrelClasses4 {

/// The next identity number of this thread; the first is 1. Throws error 6 after 2,147,483,647.
std::int32_t GetNextClassDebugID();

/// The last number that this thread received. Tests set it to reach the end of the numbers.
std::int32_t LastClassDebugID();
void LastClassDebugID(std::int32_t last);

} // namespace qrtVistrelClasses4
