#include "tools/documents/Roff.h"

#include <cstdint>
#include <iomanip>
#include <sstream>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kFence = "```";
constexpr std::string_view kItem = "- ";

/// The character at the start of valid UTF-8, which it is removed from.
std::uint32_t takeCharacter(std::string_view& text) {
    constexpr unsigned char oneByte = 0x80, twoBytes = 0xE0, threeBytes = 0xF0, mostOfFirst = 0xFF,
                            payload = 0x3F;
    constexpr unsigned int bitsOfByte = 6;
    const auto first = static_cast<unsigned char>(text.front());
    std::size_t more = first < oneByte ? 0 : first < twoBytes ? 1 : first < threeBytes ? 2 : 3;
    std::uint32_t character = more == 0 ? first : first & (mostOfFirst >> (more + 2));
    text.remove_prefix(1);
    for (; more > 0 && !text.empty(); --more) {
        character = (character << bitsOfByte) | (static_cast<unsigned char>(text.front()) & payload);
        text.remove_prefix(1);
    }
    return character;
}

std::string characterText(std::uint32_t character) {
    constexpr std::uint32_t firstBeyondAscii = 0x80;
    if (character >= firstBeyondAscii) {
        std::ostringstream out;
        out << "\\[u" << std::hex << std::uppercase << std::setw(4) << std::setfill('0') << character << ']';
        return out.str();
    }
    switch (character) {
    case '\\':
        return "\\(rs";
    case '-':
        return "\\-";
    case '\'':
        return "\\(aq";
    case '`':
        return "\\(ga";
    case '^':
        return "\\(ha";
    case '~':
        return "\\(ti";
    case '"':
        return "\\(dq";
    default:
        return {static_cast<char>(character)};
    }
}

/// Text in front of `mark`, which both are removed from `text`; all of it if there is no mark.
std::string_view takeUntil(std::string_view mark, std::string_view& text) {
    const std::string_view part = text.substr(0, text.find(mark));
    text.remove_prefix(std::min(part.size() + mark.size(), text.size()));
    return part;
}

/// Whether "*" and a word are at the start of `text`, and another "*" follows.
bool isEmphasis(std::string_view text) {
    return text.starts_with('*') && text.size() > 1 && text[1] != ' ' && text.find('*', 1) != text.npos;
}

/// A paragraph of Markdown. Links lose their targets.
std::string inlineText(std::string_view text) {
    constexpr std::string_view bold = "**";
    std::string result;
    while (!text.empty()) {
        if (text.starts_with('`')) {
            text.remove_prefix(1);
            result += "\\fB" + RoffText(takeUntil("`", text)) + "\\fR";
        } else if (text.starts_with(bold)) {
            text.remove_prefix(bold.size());
            result += "\\fB" + inlineText(takeUntil(bold, text)) + "\\fR";
        } else if (isEmphasis(text)) {
            text.remove_prefix(1);
            result += "\\fI" + RoffText(takeUntil("*", text)) + "\\fR";
        } else if (text.starts_with('[') && text.find("](") != text.npos) {
            text.remove_prefix(1);
            result += inlineText(takeUntil("](", text));
            (void)takeUntil(")", text);
        } else {
            const std::size_t next = text.find_first_of("`*[", 1);
            result += RoffText(text.substr(0, next));
            text.remove_prefix(std::min(next, text.size()));
        }
    }
    return result;
}

/// A line that is no request, whatever it begins with.
std::string textLine(const std::string& text) {
    return (text.starts_with('.') || text.starts_with('\\') ? "\\&" : "") + text + "\n";
}

/// Makes blocks of lines.
class RoffWriter {
public:
    void take(const std::string& line) {
        if (line.starts_with(kFence)) {
            endParagraph();
            isSession_ = !isSession_;
            text_ += isSession_ ? paragraphMark() + ".RS 4\n.EX\n" : ".EE\n.RE\n";
        } else if (isSession_) {
            text_ += textLine(RoffText(line));
        } else if (line.empty()) {
            endParagraph();
        } else if (line.starts_with(kItem)) {
            endParagraph();
            isItem_ = true;
            paragraph_ = line.substr(kItem.size());
        } else {
            const std::size_t start = line.find_first_not_of(' ');
            paragraph_ += (paragraph_.empty() ? "" : " ") + line.substr(start == line.npos ? 0 : start);
        }
    }

    std::string finish() {
        endParagraph();
        return std::move(text_);
    }

private:
    void endParagraph() {
        if (!paragraph_.empty())
            text_ += (isItem_ ? std::string(kItemMark) : paragraphMark()) + textLine(inlineText(paragraph_));
        paragraph_.clear();
        isItem_ = false;
    }

    /// Nothing in front of the first paragraph: a heading is there, or a mark of the caller's.
    std::string paragraphMark() const { return text_.empty() ? "" : ".PP\n"; }

    std::string text_, paragraph_;
    bool isItem_ = false;
    bool isSession_ = false;
};

} // namespace

std::string RoffText(std::string_view text) {
    std::string result;
    while (!text.empty())
        result += characterText(takeCharacter(text));
    return result;
}

std::string RoffOf(const std::vector<std::string>& markdown) {
    RoffWriter writer;
    for (const std::string& line : markdown)
        writer.take(line);
    return writer.finish();
}

} // namespace qrtVistrelClasses4
