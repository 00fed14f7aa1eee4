// The effects by which a frame appears on the sign (prefix) and disappears again (suffix): codes, names and
// keywords.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// Either both codes of a frame are this one, or none is.
inline constexpr std::int16_t kPhotoRealistic = 9999;
/// The prefix of a frame whose text is drawn over the frame before it.
inline constexpr std::int16_t kOverlayText = 15;
/// The "Start Loop" entry of effect lists. This number plus a count of 1 to 99 starts a loop of that many
/// rounds.
inline constexpr std::int16_t kLoopBase = 20000;
inline constexpr std::int16_t kLoopLimit = 20100;
inline constexpr std::int16_t kEndLoop = 20001;
/// How many rounds the loop has that a frame with this appear effect starts; 0 if it starts none.
constexpr std::int32_t RoundsOfLoop(std::int16_t prefixCode) {
    return prefixCode > kLoopBase && prefixCode < kLoopLimit ? prefixCode - kLoopBase : 0;
}
/// Revealing from the middle, and to it.
inline constexpr std::int16_t kRevealOn = 5;
inline constexpr std::int16_t kRevealOff = 10;
/// The wipe effect, and its number in old files.
inline constexpr std::int16_t kWipe = 2000;
inline constexpr std::int16_t kOldWipe = 2001;

/// What effect lists show for the start and the end of a loop.
inline constexpr std::string_view kStartLoopText = "Start Loop";
inline constexpr std::string_view kEndLoopText = "End Loop";

/// How the dots of a frame appear on the sign, or disappear from it.
enum class EffectMotion : std::uint8_t {
    none, ///< They change when the next frame appears.
    jump, ///< All at once.
    scrollRight,
    scrollLeft,
    scrollDown,
    scrollUp,
    twinkle,
    reveal,
    fade,
    lineDrop,
    wipe,
    checkerBoard,
    drop,
    open,
    jaws,
    scanAcross,
    paint,
    shoot,
    venetianBlinds,
    verticalBlinds,
    scanDown,
    pulse,
    marqueeBorder,
    lineWipe,
    border,
    barrelDown,
    barrelAcross,
};

/// What the time that an effect takes depends on.
enum class EffectSpan : std::uint8_t {
    none,   ///< It takes no time.
    across, ///< Something moves over the sign's width.
    down,   ///< Something moves over the sign's height.
    fade,
    twinkle,
};
EffectSpan SpanOf(EffectMotion motion);

/// An effect that every list offers.
struct FixedEffect {
    std::int16_t prefixCode;
    std::string_view prefixName;
    std::int16_t suffixCode;
    std::string_view suffixName;
    EffectMotion motion;
};

/// In the order of the lists. Revealing has a different number on each side.
inline constexpr std::array kFixedEffects{
    FixedEffect{0, "No Effects", 0, "No Effects", EffectMotion::none},
    FixedEffect{5001, "Scroll Left to Right", 5001, "Scroll Left to Right", EffectMotion::scrollRight},
    FixedEffect{5000, "Scroll Right to Left", 5000, "Scroll Right to Left", EffectMotion::scrollLeft},
    FixedEffect{5003, "Scroll Top to Bottom", 5003, "Scroll Top to Bottom", EffectMotion::scrollDown},
    FixedEffect{5002, "Scroll Bottom to Top", 5002, "Scroll Bottom to Top", EffectMotion::scrollUp},
    FixedEffect{12005, "Twinkle On", 12005, "Twinkle Off", EffectMotion::twinkle},
    FixedEffect{kRevealOn, "Reveal from Middle", kRevealOff, "Reveal to Middle", EffectMotion::reveal},
    FixedEffect{11006, "Fade In", 11006, "Fade Out", EffectMotion::fade},
    FixedEffect{10000, "Horizontal Line Drop", 10000, "Horizontal Line Drop", EffectMotion::lineDrop},
    FixedEffect{kWipe, "Wipe On", kWipe, "Wipe Off", EffectMotion::wipe},
    FixedEffect{1000, "Jump On", 1000, "Jump Off", EffectMotion::jump},
};

/// An effect that a list offers unless "NewEffects.ini" switches it off.
struct OptionalEffect {
    std::string_view iniKey;
    std::int16_t code;
    /// The text that converts back to the code; the names and list texts do not.
    std::string_view bareName;
    std::string_view prefixName;
    std::string_view suffixName;
    std::string_view prefixListText;
    std::string_view suffixListText; ///< Empty: not offered.
    EffectMotion motion;
};

/// In the order of the lists. Screens and files rely on what is odd here: the suffix name of 114 lacks "Off",
/// the border's list text lacks "On", and the border is not offered as a suffix.
inline constexpr std::array kOptionalEffects{
    OptionalEffect{"CHECKER", 114, "Checker Board", "Checker Board On", "Checker Board", "Checker Board On",
                   "Checker Board Off", EffectMotion::checkerBoard},
    OptionalEffect{"DROP", 115, "Drop", "Drop On", "Drop Off", "Drop On", "Drop Off", EffectMotion::drop},
    OptionalEffect{"OPEN", 116, "Open", "Open from Middle On", "Open from Middle Off", "Open from Middle On",
                   "Open from Middle Off", EffectMotion::open},
    OptionalEffect{"JAWS", 117, "Jaws", "Jaws On", "Jaws Off", "Jaws On", "Jaws Off", EffectMotion::jaws},
    OptionalEffect{"SCANHORZ", 118, "Scan Horizontal", "Scan Horizontal On", "Scan Horizontal Off",
                   "Scan Horizontal On", "Scan Horizontal Off", EffectMotion::scanAcross},
    OptionalEffect{"PAINT", 119, "Paint", "Paint On", "Paint Off", "Paint On", "Paint Off",
                   EffectMotion::paint},
    OptionalEffect{"SHOOT", 120, "Shoot", "Shoot On", "Shoot Off", "Shoot On", "Shoot Off",
                   EffectMotion::shoot},
    OptionalEffect{"VENETIAN", 121, "Venetian Blinds", "Venetian Blinds On", "Venetian Blinds Off",
                   "Venetian Blinds On", "Venetian Blinds Off", EffectMotion::venetianBlinds},
    OptionalEffect{"VERTICAL", 122, "Vertical Blinds", "Vertical Blinds On", "Vertical Blinds Off",
                   "Vertical Blinds On", "Vertical Blinds Off", EffectMotion::verticalBlinds},
    OptionalEffect{"SCANVERT", 123, "Scan Vertical", "Scan Vertical On", "Scan Vertical Off",
                   "Scan Vertical On", "Scan Vertical Off", EffectMotion::scanDown},
    OptionalEffect{"PULSE", 124, "Pulse", "Pulse On", "Pulse Off", "Pulse On", "Pulse Off",
                   EffectMotion::pulse},
    OptionalEffect{"MARQUEE", 125, "Marquee Border", "Marquee Border On", "Marquee Border Off",
                   "Marquee Border On", "Marquee Border Off", EffectMotion::marqueeBorder},
    OptionalEffect{"LINEWIPE", 126, "Line Wipe", "Line Wipe On", "Line Wipe Off", "Line Wipe On",
                   "Line Wipe Off", EffectMotion::lineWipe},
    OptionalEffect{"BORDER", 127, "Border", "Border On", "Border Off", "Border", "", EffectMotion::border},
    OptionalEffect{"BRLVERT", 128, "Barrel Vertical", "Barrel Vertical On", "Barrel Vertical Off",
                   "Barrel Vertical On", "Barrel Vertical Off", EffectMotion::barrelDown},
    OptionalEffect{"BRLHORZ", 129, "Barrel Horizontal", "Barrel Horizontal On", "Barrel Horizontal Off",
                   "Barrel Horizontal On", "Barrel Horizontal Off", EffectMotion::barrelAcross},
};

/// Whether effect lists offer the optional effects. The first load in the process that finds "NewEffects.ini"
/// sets it, and nothing clears it. Threads may read and set it at the same time.
extern std::atomic<bool> NewEffectsLoaded;

/// Full name of "NewEffects.ini" in the application data folder, or of the one that is read in its place.
std::string NewEffectsPath();

/// Whether effect lists offer optional effects, or would when they are loaded next.
bool HasNewEffects();
/// The optional effects that "NewEffects.ini" does not switch off, in the order of the lists.
std::vector<OptionalEffect> SwitchedOnEffects();

/// The name of an effect code, if it has one.
std::optional<std::string> PrefixName(std::int16_t code);
std::optional<std::string> SuffixName(std::int16_t code);

/// All codes that have a name on one side at least, rising.
std::vector<std::int16_t> NamedEffectCodes();

/// What an effect code does with the dots. Loops, and codes without a name, do nothing.
EffectMotion PrefixMotion(std::int16_t code);
EffectMotion SuffixMotion(std::int16_t code);

/// The code of an effect's name, if the text is one. The name of a loop's start is error 13, which files and
/// screens rely on.
std::optional<std::int16_t> PrefixCodeOf(std::string_view text);
std::optional<std::int16_t> SuffixCodeOf(std::string_view text);

/// Whether a keyword of the older playfile format says that a frame has no effect: "OT" or a number up to 0.
bool MeansNoEffect(std::string_view keyword);

/// The code of a keyword of the older playfile format, if it is one: two capital letters, or as a prefix a
/// loop count. A prefix that means no effect is code 0. A count whose code would not fit is error 6.
std::optional<std::int16_t> PrefixCodeOfKeyword(std::string_view keyword);
std::optional<std::int16_t> SuffixCodeOfKeyword(std::string_view keyword);

} // namespace qrtVistrelClasses4
