#include "tools/program/Encoding.h"

#include "platform/Hex.h"
#include "platform/Utf8.h"

namespace qrtVistrelClasses4 {
namespace {

/// The sign that Unicode has for showing a control character; codes without one, up to 255, are spelt out.
void appendControlSign(std::string& text, char32_t control) {
    constexpr char32_t controlPictures = 0x2400;
    constexpr char32_t deletePicture = 0x2421;
    if (control < 0x20)
        AppendUtf8(text, controlPictures + control);
    else if (control == 0x7f)
        AppendUtf8(text, deletePicture);
    else
        AppendHex(text += "\\x", static_cast<unsigned char>(control));
}

} // namespace

std::string Visible(std::string_view utf8) {
    std::string text;
    while (!utf8.empty()) {
        const std::string_view rest = utf8;
        const auto character = TakeUtf8Character(utf8);
        if (!character) {
            appendControlSign(text, static_cast<unsigned char>(rest.front()));
            utf8.remove_prefix(1);
        } else if (*character < 0x20 || (*character >= 0x7f && *character < 0xa0)) {
            appendControlSign(text, *character);
        } else {
            text += rest.substr(0, rest.size() - utf8.size());
        }
    }
    return text;
}

std::string Abridged(std::string_view utf8) {
    constexpr std::size_t longest = 40;
    std::string_view rest = utf8;
    while (!rest.empty() && utf8.size() - rest.size() < longest)
        if (!TakeUtf8Character(rest))
            rest.remove_prefix(1);
    return std::string(utf8.substr(0, utf8.size() - rest.size())) + (rest.empty() ? "" : "...");
}

bool IsUtf16(std::string_view text) { return text.starts_with("\xff\xfe") || text.starts_with("\xfe\xff"); }

bool IsUtf8(std::string_view text) {
    while (!text.empty())
        if (!TakeUtf8Character(text))
            return false;
    return true;
}

std::string WhyNotAnsi(std::string_view utf8) {
    if (!IsUtf8(utf8))
        return std::string(kNotUtf8);
    while (!utf8.empty()) {
        const std::string_view before = utf8;
        (void)TakeUtf8Character(utf8);
        const std::string_view character = before.substr(0, before.size() - utf8.size());
        if (!AnsiFromUtf8(character))
            return "has the character \"" + std::string(character) + "\", which is not in Windows-1252";
    }
    return {};
}

} // namespace qrtVistrelClasses4
