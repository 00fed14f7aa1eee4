// Files read and written as fast as the system allows.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4::bench {

struct WholeFile {
    std::unique_ptr<char[]> bytes; ///< A NUL follows the last one.
    std::size_t size = 0;
    std::string_view text() const { return {bytes.get(), size}; }
};

/// One `read` into memory of the right size.
WholeFile ReadWholeFile(const std::string& path);

/// Makes a new file, in place of the one that is there, with one `write`.
void WriteNewFile(const std::string& path, std::string_view bytes);

/// Saves so that a power cut leaves the old file or the new one: one `write` to a file beside it, flushed,
/// renamed, and the folder flushed.
void WriteDurably(const std::string& path, std::string_view bytes);

/// Looks for each with `memchr`.
std::size_t CountLineEnds(std::string_view text);

} // namespace qrtVistrelClasses4::bench
