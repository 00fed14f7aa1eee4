// Identity numbers of the library's objects.
#pragma once

#include <cstdint>

namespace qrtVistrelClasses4 {

/// The next identity number of this thread, counting from 1. Past 2,147,483,647 there is none: error 6, to
/// the caller.
std::int32_t GetNextClassDebugID();

/// The number drawn last on this thread. Setting it lets a test stand at the end of the numbers.
std::int32_t LastClassDebugID();
void LastClassDebugID(std::int32_t last);

} // namespace qrtVistrelClasses4
