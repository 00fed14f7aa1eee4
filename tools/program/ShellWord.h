// Words of a command as a shell reads them.
#pragma once

#include "platform/Path.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// `text` with `by(letter)` in place of each letter in `letters`, for quoting.
std::string Replaced(std::string_view text, std::string_view letters,
                     const std::function<std::string(char)>& by);

/// In single quotes, as POSIX shells read them.
std::string QuotedForShell(std::string_view text);

enum class Shells : std::uint8_t {
    posix,
    windows, ///< The command prompt and PowerShell.
};
inline constexpr Shells kOwnShells = kPathSeparator == '\\' ? Shells::windows : Shells::posix;

/// `utf8` as one word of a command that people copy from a terminal, in quotes if it needs them. No value if
/// they would copy another text, or if it means something to a shell in quotes, too.
std::optional<std::string> WordToCopy(std::string_view utf8, Shells shells = kOwnShells);

} // namespace qrtVistrelClasses4
