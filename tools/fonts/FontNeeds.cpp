#include "tools/fonts/FontNeeds.h"

#include "commands/PreviewText.h"

#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

using Needs = std::map<unsigned char, Need>;

/// Adds the characters of a text. Control characters are not shown.
void addNeeds(Needs& needs, std::string_view text, std::int32_t frame, std::int32_t line) {
    constexpr unsigned char firstVisible = 32;
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code < firstVisible)
            continue;
        Need& need = needs[code];
        if (need.times++ == 0)
            need = {1, frame, line};
    }
}

} // namespace

Needs NeedsOf(const OneBasedArray<FrameRecord>& frames, const CommandTable& commands) {
    Needs needs;
    TextPreviews texts(commands, 0);
    for (std::int32_t frame = 1; frame <= frames.upperBound(); ++frame) {
        if (!HasText(frames.at(frame)))
            continue;
        const auto& lines = frames.at(frame).lines;
        for (std::int32_t line = 1; line <= lines.upperBound(); ++line)
            addNeeds(needs, texts.of(lines.at(line).CurrentLineText), frame, line);
    }
    return needs;
}

} // namespace qrtVistrelClasses4
