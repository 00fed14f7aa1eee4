// The lines of text.
#include "fonts/TextDrawing.h"
#include "fonts/clsFontSizes.h"
#include "playfile/ShownLines.h"
#include "validation/CodeRules.h"
#include "validation/Rules.h"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// The first line with text that can be seen; 0 if there is none.
std::int32_t firstVisibleLine(const FrameRecord& frame) {
    const auto found = std::find_if(frame.lines.begin(), frame.lines.end(), HasVisibleText);
    return found == frame.lines.end() ? 0 : static_cast<std::int32_t>(found - frame.lines.begin()) + 1;
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
    } else if (!HasText(frame) && IsOfKnownType(frame) && visible != 0) {
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

/// Measures the lines of frames as a preview does.
class LineCheck {
public:
    LineCheck(const ValidationCircumstances& circumstances, Findings& findings)
        : sign_(circumstances.signSize), shown_(circumstances.signType, circumstances.commands),
          findings_(findings) {}

    void check(const FrameRecord& frame, std::int32_t number) {
        bool reachesBelow = false;
        const std::int32_t rows = sign_ ? sign_->height : std::numeric_limits<std::int32_t>::max();
        const std::int32_t firstBelow = shown_.place(frame, rows, [&](const PlacedLine& placed) {
            place_ = {number, placed.number, kPropertyOf<&LineRecord::CurrentLineText>};
            addFaults(placed.line);
            if (shown_.isEmpty(placed.font))
                return;
            const std::string text = shown_.textOf(placed.line);
            checkCharacters(*placed.font, text, placed.line);
            checkWidth(*placed.font, text, placed.line);
            reachesBelow = checkHeight(placed, text, reachesBelow) || reachesBelow;
        });
        for (std::int32_t line = firstBelow; line <= frame.lines.upperBound(); ++line) {
            place_ = {number, line, kPropertyOf<&LineRecord::CurrentLineText>};
            shown_.fontOf(frame.lines.at(line));
            addFaults(frame.lines.at(line));
            if (HasVisibleText(frame.lines.at(line)) && !reachesBelow) {
                reachesBelow = true;
                findings_.add("too-many-lines", {number, line, kPropertyOf<&LineRecord::CurrentLineText>},
                              "Line " + std::to_string(line) + " is below the sign, which is " +
                                  std::to_string(rows) + " dots high.");
            }
        }
    }

private:
    using FontKey = std::pair<std::int16_t, std::string>; ///< Number and name of the file.

    /// Those of a line's font, which is loaded only for the first of its lines.
    void addFaults(const LineRecord& line) {
        const std::vector<FontFault> faults = shown_.takeFaults();
        if (faults.empty() && faults_.empty())
            return;
        const Place fontPlace{place_.frame, place_.line, kPropertyOf<&LineRecord::LineCustomFont>};
        const bool isCustom = line.LineFontSize >= kCustomFont;
        const FontKey key{isCustom ? kCustomFont : line.LineFontSize,
                          isCustom ? line.LineCustomFont : std::string()};
        if (const auto known = faults_.find(key); known != faults_.end())
            addFault(known->second, fontPlace);
        for (std::size_t index = 0; index < faults.size(); ++index) {
            addFault(faults[index], fontPlace);
            if (faults[index].what != FontFault::What::noFonts) // the others are about font 0
                faults_.insert_or_assign(index == 0 ? key : FontKey(), faults[index]);
        }
    }

    void addFault(const FontFault& fault, const Place& fontPlace) {
        const std::string instead = fault.isReplaced ? "; font 0 is used instead." : ".";
        const auto add = [&](RuleName rule, std::string_view what) {
            findings_.add(rule, fontPlace,
                          ("The font " + QuotedPath(fault.name)).append(what).append(instead));
        };
        switch (fault.what) {
        case FontFault::What::missing:
            return add("font-missing", " is missing");
        case FontFault::What::unreadable:
            return add("font-unreadable", " cannot be read");
        case FontFault::What::cutShort:
            return add("font-unreadable", " ends before its letters start");
        case FontFault::What::unnamed:
        case FontFault::What::unknownNumber:
            return; // known without fonts
        case FontFault::What::noFonts:
            return findings_.add("fonts-missing", {},
                                 "The folder " + QuotedPath(fault.name) +
                                     " has none of the numbered fonts, so that texts are not measured.");
        }
    }

    void checkCharacters(const Font& font, std::string_view text, const LineRecord& record) {
        std::string lacking;
        for (const char character : text)
            if (static_cast<unsigned char>(character) >= ' ' && !font.has(character) &&
                lacking.find(character) == lacking.npos)
                lacking += character;
        if (!lacking.empty())
            findings_.add("characters-lacking", place_,
                          "The font of " + Quoted(record.CurrentLineText) + " lacks the " +
                              (lacking.size() == 1 ? "character " : "characters ") + Quoted(lacking) + '.');
    }

    /// Blanks that reach over the edge are no fault.
    void checkWidth(const Font& font, std::string_view text, const LineRecord& record) {
        if (!sign_ || record.Scrolling)
            return;
        const std::int64_t width = WidthOf({font}, text) + kDotsBeforeText;
        if (width > sign_->width && HasLitDots(font, text, sign_->width, 0, font.height - 1))
            findings_.add("text-too-wide", place_,
                          "Line " + std::to_string(place_.line) + " is " + std::to_string(width) +
                              " dots wide, and the sign has " + std::to_string(sign_->width) +
                              "; it does not scroll.");
    }

    /// Returns whether the line reaches below the sign. Only the first one of a frame that does is named.
    bool checkHeight(const PlacedLine& placed, std::string_view text, bool isAnotherNamed) {
        if (!sign_)
            return false;
        const std::string line = "Line " + std::to_string(placed.number);
        const std::string highSign = ", and the sign is " + std::to_string(sign_->height) + " dots high.";
        if (placed.height() > sign_->height) {
            findings_.add("line-too-tall",
                          {place_.frame, place_.line, kPropertyOf<&LineRecord::LineFontSize>},
                          line + " is " + std::to_string(placed.height()) + " dots high" + highSign);
            return false;
        }
        const bool reachesBelow =
            placed.bottom() > sign_->height &&
            HasLitDots(*placed.font, text, 0, sign_->height - placed.top, placed.height() - 1);
        if (reachesBelow && !isAnotherNamed)
            findings_.add("too-many-lines", place_,
                          line + " ends in row " + std::to_string(placed.bottom()) + highSign);
        return reachesBelow;
    }

    static constexpr std::int64_t kDotsBeforeText = 1; ///< Letters start one dot right of the edge.

    std::optional<DotSize> sign_;
    ShownLines shown_;
    Findings& findings_;
    std::map<FontKey, FontFault> faults_; ///< Of the fonts that could not be loaded.
    Place place_;                         ///< Of the line that is checked.
};

/// What is wrong with a line's choice of a font, whatever fonts there are.
void checkFonts(const FrameRecord& frame, std::int32_t number, Findings& findings) {
    for (std::int32_t line = 1; line <= frame.lines.upperBound(); ++line) {
        const LineRecord& record = frame.lines.at(line);
        const std::string name = "Line " + std::to_string(line);
        if (const std::int16_t font = record.LineFontSize; font < 0 || font > kCustomFont)
            findings.add("font-number-unknown", {number, line, kPropertyOf<&LineRecord::LineFontSize>},
                         name + " has font " + std::to_string(font) + ", and fonts are 0 to " +
                             std::to_string(kCustomFont) + '.');
        else if (font == kCustomFont && record.LineCustomFont.empty())
            findings.add("font-unnamed", {number, line, kPropertyOf<&LineRecord::LineCustomFont>},
                         name + " has a custom font without a name; font 0 is used instead.");
    }
}

} // namespace

void CheckTexts(const Playfile& playfile, const ValidationCircumstances& circumstances, Findings& findings) {
    const CodeCheck codes(circumstances.commands);
    std::optional<LineCheck> measure;
    if (circumstances.measuresTexts)
        measure.emplace(circumstances, findings);
    for (std::int32_t number = 1; number <= playfile.frames.upperBound(); ++number) {
        const FrameRecord& frame = playfile.frames.at(number);
        checkPresence(frame, number, findings);
        if (!HasText(frame))
            continue;
        checkMerge(frame, number, findings);
        checkFonts(frame, number, findings);
        if (measure)
            measure->check(frame, number);
        for (std::int32_t line = 1; line <= frame.lines.upperBound(); ++line)
            codes.check(frame.lines.at(line).CurrentLineText,
                        {number, line, kPropertyOf<&LineRecord::CurrentLineText>}, findings);
    }
}

} // namespace qrtVistrelClasses4
