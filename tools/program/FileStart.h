// The first bytes of a file that may be far longer than any of its kind.
#pragma once

#include <cstddef>
#include <string>

namespace qrtVistrelClasses4 {

/// The file's first bytes, `most` at the most. Raises the file system's errors.
std::string FileStart(const std::string& path, std::size_t most);

} // namespace qrtVistrelClasses4
