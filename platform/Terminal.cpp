#include "platform/Terminal.h"

#include "platform/LetterCase.h"

#include <charconv>
#include <cstdlib>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

/// Empty if there is no such variable.
std::string_view variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool isDumb(std::string_view kind) { return kind.empty() || kind == "dumb"; }

/// Terminals of one colour: the video terminals that others imitate, and kinds that are named as such.
bool isMonochrome(std::string_view kind) {
    const bool isVideoTerminal = kind.starts_with("vt") && kind.find_first_of("0123456789") == 2;
    return isVideoTerminal || kind.ends_with("-m") || kind.ends_with("-mono");
}

ColorDepth colorsOf(std::string_view kind) {
    const std::string_view further = variable("COLORTERM");
    if (isDumb(kind))
        return ColorDepth::none;
    if (further == "truecolor" || further == "24bit" || kind.find("-direct") != kind.npos)
        return ColorDepth::full;
    if (kind.find("-256color") != kind.npos)
        return ColorDepth::palette;
    return isMonochrome(kind) ? ColorDepth::none : ColorDepth::sixteen;
}

/// Whether the user's locale has UTF-8. The terminal may take it although the machine lacks that locale.
bool hasUtf8() {
    std::string_view locale;
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (locale.empty())
            locale = variable(name);
    const std::string name = AnsiUpperCase(locale);
    return name.find(".UTF-8") != name.npos || name.find(".UTF8") != name.npos;
}

std::size_t columns() {
    const std::string_view text = variable("COLUMNS");
    std::size_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number > 0 ? number : Terminal::kUsualColumns;
}

} // namespace

Terminal TerminalOfEnvironment() {
    const std::string_view kind = variable("TERM");
    return {.columns = columns(),
            .colors = colorsOf(kind),
            .refusesColors = !variable("NO_COLOR").empty(),
            .hasSymbols = hasUtf8() && !isDumb(kind)};
}

} // namespace qrtVistrelClasses4
