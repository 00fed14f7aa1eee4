#include "playfile/XmlText.h"

#include "platform/Utf8.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr char32_t kControlPictures = 0x2400;
constexpr char32_t kFirstVisible = 0x20;
constexpr char32_t kDelete = 0x7f;
constexpr char32_t kLastControl = 0x9f;
constexpr char32_t kReplacement = 0xfffd; // and the only codes after it up to U+FFFF are no characters
constexpr char32_t kLast16Bit = 0xffff;

/// The character by its number: readers would change a line end that is written as itself.
std::string byNumber(char32_t character) {
    return "&#" + std::to_string(static_cast<unsigned long>(character)) + ";";
}

void append(std::string& text, char32_t character, std::string_view utf8) {
    if (character == '&')
        text += "&amp;";
    else if (character == '<')
        text += "&lt;";
    else if (character == '>')
        text += "&gt;";
    else if (character == '\t' || character == '\n' || character == '\r' ||
             (character >= kDelete && character <= kLastControl))
        text += byNumber(character);
    else if (character < kFirstVisible)
        AppendUtf8(text, kControlPictures + character);
    else if (character > kReplacement && character <= kLast16Bit)
        AppendUtf8(text, kReplacement);
    else
        text += utf8;
}

} // namespace

std::string XmlText(std::string_view utf8) {
    std::string text;
    while (!utf8.empty()) {
        const std::string_view rest = utf8;
        if (const auto character = TakeUtf8Character(utf8)) {
            append(text, *character, rest.substr(0, rest.size() - utf8.size()));
        } else {
            AppendUtf8(text, kReplacement);
            utf8.remove_prefix(1);
        }
    }
    return text;
}

} // namespace qrtVistrelClasses4
