// What is wrong with a file, in words.
#pragma once

#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// A reason why a file cannot be used.
struct FileFault {
    std::string text;
    /// True if the text goes on from the name of the file ("is a folder"), false if it is a sentence of its
    /// own ("there is no such file").
    bool continuesName = false;

    /// "it is a folder".
    std::string clause() const { return (continuesName ? "it " : "") + text; }
};

/// Why the file `path` could not be opened, read or written: what `path` is, or `error` itself if that does
/// not explain it.
FileFault FaultOf(const std::string& path, const RuntimeError& error);

/// Why the lines of a file were not read to their end. `place` is added to the number of the line, which must
/// be known.
FileFault FaultOf(const FileError& error, std::string_view place = {});

/// True for the first line of a current playfile, which holds the number of frames between blanks, and the
/// quote that starts the second.
bool StartsLikePlayfile(std::string_view start);

/// "; the file is a PNG picture", if the first bytes of the file `path` show what it is. Otherwise empty.
std::string NoteOfKind(const std::string& path);

} // namespace qrtVistrelClasses4
