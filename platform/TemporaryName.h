// Names for files that are being written.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// ".vistrel-", six letters or digits, ".tmp". Each call returns another name, but another process may choose
/// the same one.
std::string TemporaryName();
/// Whether a file name is such a name.
bool IsTemporaryName(std::string_view name);

} // namespace qrtVistrelClasses4
