// A text cut into its lines.
#pragma once

#include <string_view>

namespace qrtVistrelClasses4 {

struct TextLine {
    std::string_view text; ///< Without its end.
    std::size_t size;      ///< With its end.
};

/// The line that `text` starts with. Lines end in LF or CR LF, the last one may lack its end.
inline TextLine FirstLine(std::string_view text) {
    const std::size_t feed = text.find('\n');
    if (feed == text.npos)
        return {text, text.size()};
    const std::size_t end = feed > 0 && text[feed - 1] == '\r' ? feed - 1 : feed;
    return {text.substr(0, end), feed + 1};
}

} // namespace qrtVistrelClasses4
