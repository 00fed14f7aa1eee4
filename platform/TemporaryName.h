// Names for files that are being written.
#pragma once

#include <string>

namespace qrtVistrelClasses4 {

/// ".vistrel-", six letters and digits, ".tmp": another name at each call. Another process may come to the
/// same one.
std::string TemporaryName();

} // namespace qrtVistrelClasses4
