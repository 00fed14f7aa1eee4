// The lines of text.
#include "validation/CodeRules.h"
#include "validation/Rules.h"
#include <qrtVistrelClasses4/FramePainter.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

bool hasVisibleText(const LineRecord& line) {
    return std::ranges::any_of(line.CurrentLineText,
                               [](char character) { return static_cast<unsigned char>(character) > ' '; });
}

/// The first line with text that can be seen; 0 if there is none.
std::int32_t firstVisibleLine(const FrameRecord& frame) {
    const auto found = std::find_if(frame.lines.begin(), frame.lines.end(), hasVisibleText);
    return found == frame.lines.end() ? 0 : static_cast<std::int32_t>(found - frame.lines.begin()) + 1;
}

bool isOfKnownType(const FrameRecord& frame) {
    return frame.FrameType >= 0 && frame.FrameType <= static_cast<std::int16_t>(NEW_FRAME_TYPES::FRAME_CMD);
}

/// A frame without text, or a text without a frame that shows it.
void checkPresence(const FrameRecord& frame, std::int32_t number, Findings& findings) {
    const std::int32_t visible = firstVisibleLine(frame);
    const bool hasInverse = std::any_of(frame.lines.begin(), frame.lines.end(),
                                        [](const LineRecord& line) { return line.Inverse; });
    if (HasText(frame) && visible == 0 && !hasInverse) {
        if (KindOf(frame) == NEW_FRAME_TYPES::FRAME_TEXT)
            findings.add("empty-text-frame", {.frame = number}, "The text frame has no text.");
        else
            findings.add("no-text-over-picture", {.frame = number},
                         "The frame has a picture with text, and no text.");
    } else if (!HasText(frame) && isOfKnownType(frame) && visible != 0) {
        findings.add("text-not-shown", {number, visible, kPropertyOf<&LineRecord::CurrentLineText>},
                     "The frame has the text " + Quoted(frame.lines.at(visible).CurrentLineText) +
                         ", and its type shows none.");
    }
}

void checkMerge(const FrameRecord& frame, std::int32_t number, Findings& findings) {
    const std::int32_t last = frame.lines.upperBound();
    if (last > 0 && frame.lines.at(last).Merge)
        findings.add("merge-on-last-line", {number, last, kPropertyOf<&LineRecord::Merge>},
                     "Line " + std::to_string(last) + " is to be merged with the next one, and is the last.",
                     0);
}

} // namespace

void CheckTexts(const Playfile& playfile, const ValidationCircumstances& circumstances, Findings& findings) {
    const CodeCheck codes(circumstances.commands);
    for (std::int32_t number = 1; number <= playfile.frames.upperBound(); ++number) {
        const FrameRecord& frame = playfile.frames.at(number);
        checkPresence(frame, number, findings);
        if (!HasText(frame))
            continue;
        checkMerge(frame, number, findings);
        for (std::int32_t line = 1; line <= frame.lines.upperBound(); ++line)
            codes.check(frame.lines.at(line).CurrentLineText,
                        {number, line, kPropertyOf<&LineRecord::CurrentLineText>}, findings);
    }
}

} // namespace qrtVistrelClasses4
