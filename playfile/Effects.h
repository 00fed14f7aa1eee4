// The effects that bring a frame onto the sign (prefix) and take it off again (suffix): codes, names,
// keywords.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Held by both codes of a frame together or by none.
inline constexpr std::int16_t kPhotoRealistic = 9999;
/// The "Start Loop" entry of effect lists; this number plus a count of 1 to 99 starts a loop of so many
/// rounds.
inline constexpr std::int16_t kLoopBase = 20000;
inline constexpr std::int16_t kLoopLimit = 20100;
inline constexpr std::int16_t kEndLoop = 20001;
/// The wipe effect, and the number that old files have for it.
inline constexpr std::int16_t kWipe = 2000;
inline constexpr std::int16_t kOldWipe = 2001;

/// What effect lists show for the two ends of a loop.
inline constexpr std::string_view kStartLoopText = "Start Loop";
inline constexpr std::string_view kEndLoopText = "End Loop";

/// An effect that every list offers.
struct FixedEffect {
    std::int16_t prefixCode;
    std::string_view prefixName;
    std::int16_t suffixCode;
    std::string_view suffixName;
};

/// In the order of the lists. Revealing has a number of its own on each side.
inline constexpr std::array kFixedEffects{
    FixedEffect{0, "No Effects", 0, "No Effects"},
    FixedEffect{5001, "Scroll Left to Right", 5001, "Scroll Left to Right"},
    FixedEffect{5000, "Scroll Right to Left", 5000, "Scroll Right to Left"},
    FixedEffect{5003, "Scroll Top to Bottom", 5003, "Scroll Top to Bottom"},
    FixedEffect{5002, "Scroll Bottom to Top", 5002, "Scroll Bottom to Top"},
    FixedEffect{12005, "Twinkle On", 12005, "Twinkle Off"},
    FixedEffect{5, "Reveal from Middle", 10, "Reveal to Middle"},
    FixedEffect{11006, "Fade In", 11006, "Fade Out"},
    FixedEffect{10000, "Horizontal Line Drop", 10000, "Horizontal Line Drop"},
    FixedEffect{kWipe, "Wipe On", kWipe, "Wipe Off"},
    FixedEffect{1000, "Jump On", 1000, "Jump Off"},
};

/// An effect that a list offers only where "NewEffects.ini" does not switch it off.
struct OptionalEffect {
    std::string_view iniKey;
    std::int16_t code;
    /// The text that converts back to the code; the names and list texts do not.
    std::string_view bareName;
    std::string_view prefixName;
    std::string_view suffixName;
    std::string_view prefixListText;
    std::string_view suffixListText; ///< Empty: not offered.
};

/// In the order of the lists. Screens and files rely on every odd text here: the suffix name of 114 lacks its
/// "Off", the border's list text its "On", and the border is not offered as a suffix.
inline constexpr std::array kOptionalEffects{
    OptionalEffect{"CHECKER", 114, "Checker Board", "Checker Board On", "Checker Board", "Checker Board On",
                   "Checker Board Off"},
    OptionalEffect{"DROP", 115, "Drop", "Drop On", "Drop Off", "Drop On", "Drop Off"},
    OptionalEffect{"OPEN", 116, "Open", "Open from Middle On", "Open from Middle Off", "Open from Middle On",
                   "Open from Middle Off"},
    OptionalEffect{"JAWS", 117, "Jaws", "Jaws On", "Jaws Off", "Jaws On", "Jaws Off"},
    OptionalEffect{"SCANHORZ", 118, "Scan Horizontal", "Scan Horizontal On", "Scan Horizontal Off",
                   "Scan Horizontal On", "Scan Horizontal Off"},
    OptionalEffect{"PAINT", 119, "Paint", "Paint On", "Paint Off", "Paint On", "Paint Off"},
    OptionalEffect{"SHOOT", 120, "Shoot", "Shoot On", "Shoot Off", "Shoot On", "Shoot Off"},
    OptionalEffect{"VENETIAN", 121, "Venetian Blinds", "Venetian Blinds On", "Venetian Blinds Off",
                   "Venetian Blinds On", "Venetian Blinds Off"},
    OptionalEffect{"VERTICAL", 122, "Vertical Blinds", "Vertical Blinds On", "Vertical Blinds Off",
                   "Vertical Blinds On", "Vertical Blinds Off"},
    OptionalEffect{"SCANVERT", 123, "Scan Vertical", "Scan Vertical On", "Scan Vertical Off",
                   "Scan Vertical On", "Scan Vertical Off"},
    OptionalEffect{"PULSE", 124, "Pulse", "Pulse On", "Pulse Off", "Pulse On", "Pulse Off"},
    OptionalEffect{"MARQUEE", 125, "Marquee Border", "Marquee Border On", "Marquee Border Off",
                   "Marquee Border On", "Marquee Border Off"},
    OptionalEffect{"LINEWIPE", 126, "Line Wipe", "Line Wipe On", "Line Wipe Off", "Line Wipe On",
                   "Line Wipe Off"},
    OptionalEffect{"BORDER", 127, "Border", "Border On", "Border Off", "Border", ""},
    OptionalEffect{"BRLVERT", 128, "Barrel Vertical", "Barrel Vertical On", "Barrel Vertical Off",
                   "Barrel Vertical On", "Barrel Vertical Off"},
    OptionalEffect{"BRLHORZ", 129, "Barrel Horizontal", "Barrel Horizontal On", "Barrel Horizontal Off",
                   "Barrel Horizontal On", "Barrel Horizontal Off"},
};

/// Whether effect lists offer the optional effects. Set for the process by the first load that finds
/// "NewEffects.ini", and never cleared. Several threads may load at the same time.
extern std::atomic<bool> NewEffectsLoaded;

/// The name of an effect code; "" for a code without one.
std::string PrefixName(std::int16_t code);
std::string SuffixName(std::int16_t code);

/// The code of an effect text, 0 for any text that is none. The text of a loop's start is error 13, as files
/// and screens have learnt to live with.
std::int16_t PrefixCodeOf(std::string_view text);
std::int16_t SuffixCodeOf(std::string_view text);

/// The code of a keyword of the older playfile format: two capital letters, or as a prefix a loop count,
/// which is error 6 when the code would not fit. 0 for any other keyword.
std::int16_t PrefixCodeOfKeyword(std::string_view keyword);
std::int16_t SuffixCodeOfKeyword(std::string_view keyword);

} // namespace qrtVistrelClasses4
