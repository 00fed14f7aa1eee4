// What the preview shows in place of a code.
#pragma once

#include "commands/TextCodes.h"
#include <qrtVistrelClasses4/CommandTable.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The text that is shown for one code of a sign text: the time `HourOffset` hours from now, today's date in
/// one of its forms, the stored value of a variable ("VBL012"), or a counter's own code. Commands are known
/// by their bytes in decimal, taken as one number; any other command shows these digits, and a code without a
/// command shows those of its own characters. Never fails. Each call that has to look up a command reads the
/// command table and writes it again.
std::string PreviewCommandText(const std::string& Code, std::int16_t HourOffset);

/// The most characters of a text and of its preview. This is far more than a sign shows, and few enough to
/// keep long commands and variables from filling the memory.
inline constexpr std::size_t kLongestPreview = 65536;

/// `text` as it is shown: from its start on, the longest code (see `TextCodes`) at each place is replaced by
/// its preview, which is not looked at again. Whatever goes beyond `kLongestPreview`, in `text` or in its
/// preview, is left out. Reads the command table on disk once and writes it again.
std::string PreviewText(std::string_view text, std::int16_t hourOffset);

/// The same for many texts and a given command table, with each code looked up once.
class TextPreviews {
public:
    TextPreviews(CommandTable commands, std::int16_t hourOffset);
    TextPreviews(const TextPreviews&) = delete; // codes are keys of these commands
    TextPreviews& operator=(const TextPreviews&) = delete;
    std::string of(std::string_view text);
    /// Calls `show(piece)` for the pieces of that text, from its start, without putting them together.
    template <class Show>
    void piecesOf(std::string_view text, Show show) {
        text = text.substr(0, kLongestPreview);
        std::size_t left = kLongestPreview;
        while (!text.empty() && left > 0) {
            const std::size_t code = codes_.sizeAtStart(text);
            const std::size_t size = code > 0 ? code : codes_.nextStart(text, 1);
            const std::string_view piece = code > 0 ? previewOf(text.substr(0, code)) : text.substr(0, size);
            show(piece.substr(0, left));
            left -= std::min(left, piece.size());
            text.remove_prefix(size);
        }
    }

private:
    const std::string& previewOf(std::string_view code);

    CommandTable commands_;
    TextCodes codes_;
    std::int16_t hourOffset_;
    std::map<std::string, std::string, std::less<>> known_; ///< By code.
};

} // namespace qrtVistrelClasses4
