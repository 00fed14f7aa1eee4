// The documents about a command: a page of docs/commands, and a man page.
#pragma once

#include "tools/completion/CommandModel.h"
#include "tools/documents/HandWritten.h"

#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// "frames" of "vistrel frames"; empty for the program itself.
std::string ShortNameOf(const CommandModel& command);

/// The options of the command itself. "--help", which all have, is one of the program's.
std::vector<ValueModel> OwnOptionsOf(const CommandModel& command);

/// "-r, --recursive", "--color WHEN", "FILES".
std::string TypedFormOf(const ValueModel& value);

/// The description of an argument or an option, with all that the parser demands of it.
std::string ExplanationOf(const ValueModel& value);

/// The description, and the note that belongs to this command alone.
std::string SummaryOf(const CommandModel& command);

/// The name of the page's file.
std::string PageNameOf(const CommandModel& command);
/// The page, with the hand-written part as it is. Without one, the headings wait for it.
std::string PageOf(const CommandModel& command, const CommandModel& program, const HandWritten& written);

/// The name of the man page's file.
std::string ManNameOf(const CommandModel& command);
/// The man page. What holds for all commands is in `general`, the hand-written part of the program's page.
std::string ManPageOf(const CommandModel& command, const CommandModel& program, const HandWritten& written,
                      const HandWritten& general);

} // namespace qrtVistrelClasses4
