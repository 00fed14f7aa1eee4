// What the preview shows in place of a code.
#pragma once

#include "commands/TextCodes.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The text that stands for one code of a sign text: the time `HourOffset` hours from now, today's date in
/// one of its forms, the stored value of a variable ("VBL012"), or a counter's own code. Commands are told by
/// their bytes in decimal, taken as one number; any other command shows these digits, a code that is none
/// those of its own characters. Never fails. Each call that has to look a command up reads the command table
/// and writes it anew.
std::string PreviewCommandText(const std::string& Code, std::int16_t HourOffset);

/// Characters of a text and of its preview at the most: far more than a sign shows, and few enough that no
/// command or variable that stands for very many of them fills the memory.
inline constexpr std::size_t kLongestPreview = 65536;

/// `text` as it is shown: from its start on, the longest code (see `TextCodes`) at each place is replaced by
/// its preview, which is not looked at again. What goes beyond `kLongestPreview`, of `text` or of its
/// preview, is left out.
std::string PreviewText(std::string_view text, std::int16_t hourOffset);

/// The same for many texts, with each code looked up once. Making an object reads the command table, and
/// writes it anew.
class TextPreviews {
public:
    explicit TextPreviews(std::int16_t hourOffset);
    std::string of(std::string_view text);

private:
    const std::string& previewOf(std::string_view code);

    std::map<std::string, std::string> commands_; ///< Byte strings by key.
    TextCodes codes_;
    std::int16_t hourOffset_;
    std::map<std::string, std::string, std::less<>> known_; ///< By code.
};

} // namespace qrtVistrelClasses4
