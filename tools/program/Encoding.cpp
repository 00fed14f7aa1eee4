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

} // namespace qrtVistrelClasses4
