#include "tools/program/ShellWord.h"

#include "tools/program/Encoding.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

/// In double quotes, as Windows programs split their arguments.
std::optional<std::string> quotedForWindows(std::string_view text) {
    constexpr std::string_view special = "\"%$`"; // PowerShell runs what follows the last two
    constexpr std::string_view curved[] = {"\u201C", "\u201D", "\u201E"}; // which PowerShell takes for quotes
    if (text.find_first_of(special) != text.npos ||
        std::ranges::any_of(curved, [&](std::string_view quote) { return text.find(quote) != text.npos; }))
        return std::nullopt;
    const std::size_t last = text.find_last_not_of('\\');
    const std::size_t atEnd = last == text.npos ? text.size() : text.size() - last - 1;
    return "\"" + std::string(text) + std::string(atEnd, '\\') + "\""; // a "\" would take the quote with it
}

} // namespace

std::string Replaced(std::string_view text, std::string_view letters,
                     const std::function<std::string(char)>& by) {
    std::string result;
    for (const char letter : text)
        result += letters.find(letter) == letters.npos ? std::string(1, letter) : by(letter);
    return result;
}

std::string QuotedForShell(std::string_view text) {
    return "'" + Replaced(text, "'", [](char) { return R"('\'')"; }) + "'";
}

std::optional<std::string> WordToCopy(std::string_view utf8, Shells shells) {
    constexpr std::string_view plain = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz-./:";
    if (Visible(utf8) != utf8)
        return std::nullopt;
    const bool isWindows = shells == Shells::windows;
    const bool isPlain = !utf8.empty() && std::ranges::all_of(utf8, [&](char letter) {
        return plain.find(letter) != plain.npos || (isWindows && letter == '\\');
    });
    if (isPlain)
        return std::string(utf8);
    return isWindows ? quotedForWindows(utf8) : QuotedForShell(utf8);
}

} // namespace qrtVistrelClasses4
