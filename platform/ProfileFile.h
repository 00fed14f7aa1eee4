// One INI ("profile") file, in the syntax of the Windows private-profile functions.
#pragma once

#include "platform/SystemError.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Several reads or writes of one INI file in a row. Sections and keys are found without regard to case.
/// Reads see the file as it is when the object first reads it; writes reach the file, one way or another, by
/// the end of `commit`, and keep other sections, keys, comments and their order as they stand there then, so
/// that two programs never lose each other's keys.
class ProfileFile {
public:
    virtual ~ProfileFile() = default;
    /// Whether there is a file to read.
    virtual bool isThere() = 0;
    /// The value, or `defaultValue` (without its trailing blanks) when file, section or key is missing. At
    /// most `bufferSize` - 1 characters; blanks around the value, and one pair of quotes around it, are not
    /// part of it.
    virtual std::string read(std::string_view section, std::string_view key, std::string_view defaultValue,
                             std::size_t bufferSize) = 0;
    /// Makes section and file when they are missing.
    virtual void write(std::string_view section, std::string_view key, std::string_view value) = 0;
    /// Brings the writes to the file and tells of the first one that failed. Destroying the object without it
    /// may drop them.
    virtual SystemError commit() = 0;
};

} // namespace qrtVistrelClasses4
