// The lines of a command table file.
#pragma once

#include "frame/BufferedText.h"
#include <qrtVistrelClasses4/CommandTable.h>

#include <string_view>

namespace qrtVistrelClasses4 {

/// Whether the first lines of a file, which are not read, are such as a table has: all with their fields, or
/// blank. Another file was not written as a table.
bool MayBeCommandTable(std::string_view text);

/// Adds the rows of a table file after the built-in ones. The file repeats those in its first lines, which
/// are not read. False if the file has more rows than can be numbered; those are left out then.
bool ReadCommandRows(std::string_view text, CommandTable& commands);
/// Writes all rows, one a line. A key or byte string with a line end (10) in it comes back as two rows.
void WriteCommandRows(BufferedText& out, const CommandTable& commands);

} // namespace qrtVistrelClasses4
