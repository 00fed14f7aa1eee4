// The sign's commands: keys that stand in texts, and the bytes that the sign understands for them.
#pragma once

#include "frame/BufferedText.h"
#include "frame/OneBasedArray.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// One command: its key, its byte string (one byte a character), and two texts that are carried from file to
/// file without a meaning.
struct CommandInfoType {
    std::array<std::string, 4> sCMDInfo;

    bool operator==(const CommandInfoType&) const = default;
};

/// Places in `sCMDInfo`.
inline constexpr std::size_t kCommandKey = 0;
inline constexpr std::size_t kCommandBytes = 1;

inline constexpr std::int32_t kMostCommands = 32767;

using CommandTable = OneBasedArray<CommandInfoType>;

/// The commands that every table starts with.
CommandTable BuiltInCommands();
std::int32_t BuiltInCommandCount();

/// Whether the first lines of a file, which are not read, are such as a table has: all with their fields, or
/// blank. Another file was not written as a table.
bool MayBeCommandTable(std::string_view text);

/// Adds the rows of a table file behind the built-in ones, which the file repeats in its first lines and
/// which stay as they are. False when the file has more rows than can be numbered; those are left out then.
bool ReadCommandRows(std::string_view text, CommandTable& commands);
/// Writes all rows, one a line. A key or byte string with a line end (10) in it comes back as two rows.
void WriteCommandRows(BufferedText& out, const CommandTable& commands);

} // namespace qrtVistrelClasses4
