// Where in a file an error was found.
#pragma once

#include "frame/RuntimeError.h"

#include <cstddef>
#include <optional>

namespace qrtVistrelClasses4 {

/// Why a file was not read to its end.
struct FileError {
    RuntimeError error;
    /// Number (from 1) of the line of the value that was refused; one more than the last line if the file
    /// ends too early. None if it was no line: the file could not be opened or read.
    std::optional<std::size_t> line;
};

} // namespace qrtVistrelClasses4
