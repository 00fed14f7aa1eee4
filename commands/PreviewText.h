// What the preview shows in place of a code.
#pragma once

#include "commands/TextCodes.h"
#include "platform/Platform.h"
#include <qrtVistrelClasses4/CommandTable.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
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
    /// Clocks and dates show this moment from now on, instead of that at which their codes are first met.
    void setMoment(std::chrono::local_seconds moment);
    std::string of(std::string_view text);
    /// Whether the text shows a clock or a date.
    bool showsTime(std::string_view text);
    /// Calls `show(piece)` for the pieces of that text, from its start, without putting them together.
    template <class Show>
    void piecesOf(std::string_view text, Show show) {
        codesAndPiecesOf(text, [&](std::string_view piece, bool) { show(piece); });
    }

private:
    struct Preview {
        std::string text;
        bool isTime; ///< Whether it is a clock or a date.
    };

    /// The same; `show` also gets whether the piece is a clock or a date.
    template <class Show>
    void codesAndPiecesOf(std::string_view text, Show show) {
        text = text.substr(0, kLongestPreview);
        std::size_t left = kLongestPreview;
        while (!text.empty() && left > 0) {
            const std::size_t code = codes_.sizeAtStart(text);
            const std::size_t size = code > 0 ? code : codes_.nextStart(text, 1);
            const Preview* const preview = code > 0 ? &previewOf(text.substr(0, code)) : nullptr;
            const std::string_view piece = preview ? std::string_view(preview->text) : text.substr(0, size);
            show(piece.substr(0, left), preview && preview->isTime);
            left -= std::min(left, piece.size());
            text.remove_prefix(size);
        }
    }

    const Preview& previewOf(std::string_view code);

    CommandTable commands_;
    TextCodes codes_;
    std::int16_t hourOffset_;
    std::optional<LocalTime> moment_;
    std::map<std::string, Preview, std::less<>> known_; ///< By code.
};

} // namespace qrtVistrelClasses4
