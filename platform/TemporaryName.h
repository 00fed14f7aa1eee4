// Names for files that are being written.
#pragma once

#include <string>

namespace qrtVistrelClasses4 {

/// ".vistrel-", six letters or digits, ".tmp". Each call returns another name, but another process may choose
/// the same one.
std::string TemporaryName();

} // namespace qrtVistrelClasses4
