// The rules that a playfile is examined by before it goes to a sign: one table, which everything that names a
// rule uses.
#pragma once

#include <qrtVistrelClasses4/Export.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace QRT_PUBLIC qrtVistrelClasses4 {

enum class Severity : std::uint8_t {
    note,    ///< Nothing is wrong, but the author may want to know.
    warning, ///< The sign will not look as meant.
    error,   ///< The sign cannot show it.
};

/// "note", "warning" or "error".
QRT_PUBLIC std::string_view SeverityName(Severity severity);

struct Rule {
    std::string_view name; ///< Scripts rely on it.
    Severity severity;
    std::string_view summary; ///< What a finding of this rule reports.
    std::string_view fix;     ///< What a fix changes. Empty if findings of this rule have none.
};

/// In the order of subjects: the playfile, loops, effects, files, fonts, texts, numbers.
inline constexpr std::array kRules{
    // clang-format off
    Rule{"read-incompletely", Severity::error, "The file could not be read to its end.", ""},
    Rule{"legacy-loss", Severity::warning, "A file of the older format holds something that a playfile cannot.", ""},
    Rule{"reference-moved", Severity::note, "A file is not where the playfile says, but beside the playfile.", ""},
    Rule{"no-used-frame", Severity::error, "All frames are blank.", ""},
    Rule{"blank-between-frames", Severity::note, "A blank frame lies between used ones; the sign skips it.", ""},
    Rule{"name-given-twice", Severity::note, "Two used frames have the same name.", ""},
    Rule{"only-command-files", Severity::warning, "All used frames send command files, and none shows anything.", ""},
    Rule{"too-many-frames", Severity::error, "There are more frames than a playfile may have.", ""},
    Rule{"unknown-frame-type", Severity::error, "The number of a frame's type is none that signs know.", ""},

    Rule{"loop-without-end", Severity::warning, "A loop starts and never ends, so that its frames run once.", ""},
    Rule{"end-without-start", Severity::warning, "A loop ends that was never started.", "Sets the suffix code to 0 if no faulty start is before it."},
    Rule{"loop-reversed", Severity::warning, "A loop ends before it starts.", ""},
    Rule{"loop-nested", Severity::note, "A loop lies within another one, so that their counts multiply.", ""},
    Rule{"loop-without-count", Severity::warning, "A loop starts without a number of rounds.", "Sets the prefix code to 0 if no end follows."},
    Rule{"loop-count-too-large", Severity::error, "A loop is to run more often than 99 times.", ""},
    Rule{"loop-once", Severity::note, "A loop runs once, as its frames would without it.", ""},
    Rule{"empty-loop", Severity::warning, "No frame of a loop shows, sends or plays anything.", ""},
    Rule{"loop-in-blank-frame", Severity::warning, "A blank frame starts or ends a loop; the sign skips it.", "Sets the code to 0 if no end follows, or no start is before it."},
    Rule{"loops-beyond-a-day", Severity::warning, "Loops make the playfile run longer than a day.", ""},
    Rule{"playback-too-long", Severity::warning, "Loops make the playfile longer than play time is counted.", ""},

    Rule{"unknown-prefix", Severity::error, "No effect has the number of a frame's prefix code.", ""},
    Rule{"unknown-suffix", Severity::error, "No effect has the number of a frame's suffix code.", ""},
    Rule{"old-wipe-code", Severity::warning, "A wipe has the number of old files, 2001.", "Sets the code to 2000."},
    Rule{"reveal-reversed", Severity::warning, "Revealing has the number of the other side.", "Sets the code to that of its side."},
    Rule{"photorealistic-one-sided", Severity::error, "Only one of a frame's two codes is 9999.", "Sets the other code to 9999 if it is 0 and the sign has frames enough."},
    Rule{"effect-not-offered", Severity::note, "The application does not offer an effect.", ""},
    Rule{"overlay-first", Severity::warning, "The first used frame is drawn over the one before it.", ""},
    Rule{"overlay-over-blank", Severity::warning, "A frame is drawn over a blank one.", ""},
    Rule{"overlay-without-text", Severity::warning, "A frame overlays its text, but shows none.", ""},

    Rule{"picture-unnamed", Severity::error, "A frame shows a picture, but names no file.", ""},
    Rule{"picture-missing", Severity::error, "The file of a picture is missing.", ""},
    Rule{"picture-unreadable", Severity::error, "The file of a picture cannot be read.", ""},
    Rule{"picture-unknown-kind", Severity::warning, "A picture cannot be read, and the ending of its file is none of bmp, gif and avi.", ""},
    Rule{"picture-too-large", Severity::warning, "A picture is larger than the sign.", ""},
    Rule{"picture-colors", Severity::warning, "A picture has colours, and the sign shows only one.", ""},
    Rule{"animation-frames", Severity::warning, "AVIFrames differs from the number of pictures in the file.", "Sets AVIFrames to the number of the file."},
    Rule{"command-file-unnamed", Severity::error, "A command frame names no file.", ""},
    Rule{"command-file-missing", Severity::error, "The command file is missing.", ""},
    Rule{"command-file-unreadable", Severity::error, "The command file cannot be read.", ""},
    Rule{"command-file-empty", Severity::warning, "The command file has no bytes.", ""},
    Rule{"sound-missing", Severity::warning, "The file of a sound is missing.", ""},
    Rule{"sound-unreadable", Severity::warning, "The file of a sound cannot be read.", ""},
    Rule{"sound-unknown-kind", Severity::note, "The ending of a sound's file is none of wav, mp3, mid and wma.", ""},
    Rule{"drive-may-go-away", Severity::warning, "A file lies on a drive that may go away.", ""},

    Rule{"fonts-missing", Severity::note, "None of the numbered fonts was found, so that texts are not measured.", ""},
    Rule{"font-missing", Severity::warning, "The file of a font is missing.", ""},
    Rule{"font-unreadable", Severity::warning, "The file of a font cannot be read, or ends too early.", ""},
    Rule{"font-unnamed", Severity::warning, "A line has a custom font, but names no file.", ""},
    Rule{"font-number-unknown", Severity::error, "No font has the number of a line's font.", ""},

    Rule{"text-too-wide", Severity::warning, "A line that does not scroll is wider than the sign.", ""},
    Rule{"line-too-tall", Severity::warning, "The font of a line is higher than the sign.", ""},
    Rule{"too-many-lines", Severity::warning, "A line reaches below the sign.", ""},
    Rule{"characters-lacking", Severity::warning, "The font of a line lacks characters of its text.", ""},
    Rule{"damaged-code", Severity::note, "A text has the start of a code, or a code whose number does not exist.", ""},
    Rule{"unknown-command-code", Severity::note, "A text has the code of a command that is not in the table.", ""},
    Rule{"legacy-placeholder", Severity::warning, "A text has a placeholder of the older format, which signs show as it is.", ""},
    Rule{"control-character", Severity::warning, "A text has characters that are never shown.", ""},
    Rule{"empty-text-frame", Severity::warning, "A text frame has no text.", ""},
    Rule{"no-text-over-picture", Severity::note, "A graphic frame with text has no text.", ""},
    Rule{"text-not-shown", Severity::warning, "A frame that shows no text has some.", ""},
    Rule{"lines-not-kept", Severity::warning, "A frame has another number of lines than FixedNumberOfLines.", "Sets FixedNumberOfLines to the number of lines."},
    Rule{"merge-on-last-line", Severity::warning, "The last line is to be merged with the next one.", "Sets Merge to False."},

    Rule{"delay-not-a-number", Severity::error, "A delay is infinite or not a number.", ""},
    Rule{"delay-negative", Severity::error, "A delay is below 0.", ""},
    Rule{"delay-zero", Severity::warning, "A frame on which nothing moves is shown for 0 seconds.", ""},
    Rule{"delay-too-long", Severity::error, "A delay is longer than 1000000000 seconds, and counts as 0.", ""},
    Rule{"delay-outside-limits", Severity::warning, "A delay is not between the limits of the settings.", ""},
    Rule{"delay-off-step", Severity::note, "A delay is none of those that the settings offer.", ""},
    Rule{"number-negative", Severity::warning, "A number that counts something is below 0.", "Sets the number to 0, except AVIFrames."},
    Rule{"line-limit-too-large", Severity::error, "FixedNumberOfLines needs more than 16 bits.", "Sets FixedNumberOfLines to the number of lines."},
    Rule{"flag-not-0-or-1", Severity::warning, "A flag is neither 0 nor 1, and its readers disagree on that.", "Sets OverlayFrame to 1, as it is read."},
    Rule{"too-many-sign-frames", Severity::error, "The frames take more frames of a sign than it can number.", ""},
    // clang-format on
};

/// Index, from 0, of the rule of a name; the size of the table if there is none.
constexpr std::size_t IndexOfRule(std::string_view name) {
    std::size_t index = 0;
    while (index < kRules.size() && kRules[index].name != name)
        ++index;
    return index;
}
/// The rule of that name; null if there is none.
constexpr const Rule* FindRule(std::string_view name) {
    const std::size_t index = IndexOfRule(name);
    return index < kRules.size() ? &kRules[index] : nullptr;
}

} // namespace qrtVistrelClasses4
