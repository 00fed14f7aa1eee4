// One INI ("profile") file, in the syntax of the Windows private-profile functions.
#pragma once

#include "platform/SystemError.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// A series of reads and changes of one INI file. The case of sections and keys does not matter. Reads see
/// the file as it was when the object first read it. Changes are in the file when `commit` returns. They keep
/// all other sections, keys and comments that the file has at that time, so that two programs never lose each
/// other's keys.
class ProfileFile {
public:
    virtual ~ProfileFile() = default;
    /// The value, or `defaultValue` without its trailing blanks if the file, the section or the key is
    /// missing. At most `bufferSize` - 1 characters are returned. Blanks around the value, and one pair of
    /// quotes around it, are removed.
    virtual std::string read(std::string_view section, std::string_view key, std::string_view defaultValue,
                             std::size_t bufferSize) = 0;
    /// A missing section or file is made.
    virtual void write(std::string_view section, std::string_view key, std::string_view value) = 0;
    /// Removes a key, if it is there.
    virtual void remove(std::string_view section, std::string_view key) = 0;
    /// Makes the writes and removals, and returns the first error. Without this call they may be lost.
    virtual SystemError commit() = 0;
};

} // namespace qrtVistrelClasses4
