// The first bytes of a file that may be far longer than any of its kind.
#pragma once

#include <cstddef>
#include <string>

namespace qrtVistrelClasses4 {

/// The first bytes of the file, at most `most`. Throws errors of the file system.
std::string FileStart(const std::string& path, std::size_t most);

} // namespace qrtVistrelClasses4
