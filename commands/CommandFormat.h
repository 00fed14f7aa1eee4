// The lines of a command table file.
#pragma once

#include "frame/BufferedText.h"
#include <qrtVistrelClasses4/CommandTable.h>

#include <string_view>

namespace qrtVistrelClasses4 {

/// Whether a file may have been written as a table: each of its first lines, which are not read, has all
/// fields or is blank.
bool MayBeCommandTable(std::string_view text);

/// Adds the rows of a table file after the built-in ones. The file repeats those in its first lines, which
/// are not read. False if the file has more rows than can be numbered; the rows beyond are left out.
bool ReadCommandRows(std::string_view text, CommandTable& commands);
/// Writes all rows, one a line. A key or byte string with a line end (10) in it comes back as two rows.
void WriteCommandRows(BufferedText& out, const CommandTable& commands);

} // namespace qrtVistrelClasses4
