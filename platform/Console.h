// The arguments and standard streams of a program.
#pragma once

#include "platform/SystemError.h"
#include "platform/Terminal.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

enum class StandardStream { input, output, error };

class Console {
public:
    virtual ~Console() = default;
    /// True if the stream goes to a terminal, where a program may move the cursor and erase text by escape
    /// sequences.
    virtual bool isTerminal(StandardStream stream) = 0;
    /// What the terminal of standard output shows. While the output goes elsewhere, it describes the terminal
    /// where the user may look at it later, as far as the system says.
    virtual Terminal terminal() = 0;
    /// Writes the bytes of `text` unchanged and at once. When the reader of a pipe has gone, the text is
    /// dropped; this is no failure.
    virtual SystemError write(StandardStream stream, std::string_view text) = 0;
    /// All that comes from standard input. More than `most` bytes is `tooLarge`.
    virtual Result<std::string> read(std::size_t /*most*/) { return SystemError::unsupported; }
};

/// Prepares the process to be a console program. `main` calls this first, with its own arguments. From then
/// on, writing to a pipe without a reader no longer ends the process, and a process that the user ends
/// removes its temporary files. Returns the arguments after the program's name; they are 8-bit texts in the
/// encoding of file names. On Windows, that encoding is UTF-8 from then on (see `AreNamesUtf8`), so this call
/// comes before any other; the system's own record of the command line is used, and a word with wildcards
/// becomes the names of the files that it describes, if there are any. Words in quotes and options stay.
std::vector<std::string> StartProgram(int argumentCount, const char* const* arguments);

} // namespace qrtVistrelClasses4
