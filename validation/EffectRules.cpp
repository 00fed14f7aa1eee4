// How frames appear and disappear, and which are drawn over others.
#include "frame/ErrorTrap.h"
#include "playfile/Effects.h"
#include "validation/Rules.h"

#include <algorithm>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// One of the two codes of a frame.
struct CodeSide {
    std::int16_t FrameRecord::*code;
    std::string_view property;
    std::string_view title; ///< In messages.
    std::optional<std::string> (*nameOf)(std::int16_t code);
    std::vector<std::int16_t> OfferedEffects::*offered;
    std::string_view verb, otherVerb; ///< What frames do with the code.
    std::int16_t reveal;
    std::int16_t revealOfOther;
    RuleName unknown;
};
constexpr CodeSide kPrefixSide{&FrameRecord::PrefixCode,
                               kPropertyOf<&FrameRecord::PrefixCode>,
                               "prefix code",
                               &PrefixName,
                               &OfferedEffects::prefixes,
                               "appear",
                               "disappear",
                               kRevealOn,
                               kRevealOff,
                               "unknown-prefix"};
constexpr CodeSide kSuffixSide{&FrameRecord::SuffixCode,
                               kPropertyOf<&FrameRecord::SuffixCode>,
                               "suffix code",
                               &SuffixName,
                               &OfferedEffects::suffixes,
                               "disappear",
                               "appear",
                               kRevealOff,
                               kRevealOn,
                               "unknown-suffix"};

/// Whether the code is a prefix that starts a loop, or would with another count. The rules of loops look at
/// these.
bool isLoopStart(const CodeSide& side, std::int16_t code) {
    return side.code == &FrameRecord::PrefixCode && code >= kLoopBase;
}

/// Codes that need not be offered as effects: no list has the first two, and loops have rules of their own.
bool needsNoOffer(std::int16_t code) {
    return code == kOverlayText || code == kPhotoRealistic || code >= kLoopBase;
}

void checkCode(const CodeSide& side, const FrameRecord& frame, std::int32_t number,
               const std::optional<OfferedEffects>& offered, Findings& findings) {
    const std::int16_t code = frame.*side.code;
    if (code == 0 || isLoopStart(side, code))
        return;
    const Place place{number, 0, side.property};
    const std::string is = "The " + std::string(side.title) + " is " + std::to_string(code);
    const auto name = side.nameOf(code);
    if (code == kOldWipe)
        findings.add("old-wipe-code", place, is + ", the old number of the wipe, which is now 2000.", kWipe);
    else if (code == side.revealOfOther)
        findings.add("reveal-reversed", place,
                     is + ", with which frames " + std::string(side.otherVerb) + "; those that " +
                         std::string(side.verb) + " so have " + std::to_string(side.reveal) + '.',
                     side.reveal);
    else if (!name)
        findings.add(side.unknown, place, is + ", which is the number of no effect.");
    else if (offered && !needsNoOffer(code) &&
             std::ranges::find((*offered).*side.offered, code) == ((*offered).*side.offered).end())
        findings.add("effect-not-offered", place,
                     is + ", \"" + *name + "\", which the application does not offer.");
}

/// Whether the sign has frames enough for animations if each frame whose suffix only is 9999 gets it as its
/// prefix, too.
bool mayMatchSuffixes(const Playfile& playfile) {
    std::int64_t most = CountDisplayFrames(playfile);
    for (const FrameRecord& frame : playfile.frames)
        if (frame.SuffixCode == kPhotoRealistic && frame.PrefixCode == 0) {
            FrameRecord matched = frame;
            matched.PrefixCode = kPhotoRealistic;
            most += std::max(CountDisplayFrames(matched) - CountDisplayFrames(frame), 0);
        }
    return most <= kMostDisplayFrames;
}

void checkPhotoRealistic(const FrameRecord& frame, std::int32_t number, bool matchesSuffixes,
                         Findings& findings) {
    const bool isPrefix = frame.PrefixCode == kPhotoRealistic;
    if (isPrefix == (frame.SuffixCode == kPhotoRealistic))
        return;
    const CodeSide& side = isPrefix ? kPrefixSide : kSuffixSide;
    const CodeSide& other = isPrefix ? kSuffixSide : kPrefixSide;
    const std::int16_t otherCode = frame.*other.code;
    const bool extends = otherCode == 0;
    findings.add("photorealistic-one-sided", {number, 0, extends ? other.property : side.property},
                 "The " + std::string(side.title) + " is 9999, and the " + std::string(other.title) + " is " +
                     std::to_string(otherCode) + "; both are 9999 or neither is.",
                 extends && (isPrefix || matchesSuffixes) ? std::optional<double>(kPhotoRealistic)
                                                          : std::nullopt);
}

void checkOverlay(const OneBasedArray<FrameRecord>& frames, std::int32_t number, bool isFirst,
                  Findings& findings) {
    const FrameRecord& frame = frames.at(number);
    const bool overlaysText = frame.PrefixCode == kOverlayText;
    const Place place{number, 0,
                      IsOverlay(frame) ? kPropertyOf<&FrameRecord::OverlayFrame>
                                       : kPropertyOf<&FrameRecord::PrefixCode>};
    if (overlaysText && !HasText(frame))
        findings.add("overlay-without-text", {number, 0, kPropertyOf<&FrameRecord::PrefixCode>},
                     "The prefix code 15 overlays the text of the frame, which shows none.");
    if (!IsDrawnOver(frame))
        return;
    if (isFirst)
        findings.add("overlay-first", place,
                     "The frame is drawn over the one before it, and is the first used one.");
    else if (!IsUsed(frames.at(number - 1)))
        findings.add("overlay-over-blank", place,
                     "The frame is drawn over frame " + std::to_string(number - 1) + ", which is blank.");
}

} // namespace

OfferedEffects FindOfferedEffects() try {
    OfferedEffects offered;
    for (const FixedEffect& effect : kFixedEffects) {
        offered.prefixes.push_back(effect.prefixCode);
        offered.suffixes.push_back(effect.suffixCode);
    }
    if (!HasNewEffects())
        return offered;
    for (const OptionalEffect& effect : SwitchedOnEffects()) {
        offered.prefixes.push_back(effect.code);
        if (!effect.suffixListText.empty())
            offered.suffixes.push_back(effect.code);
    }
    return offered;
} catch (...) {
    RethrowAsRuntimeError();
}

void CheckEffects(const Playfile& playfile, const ValidationCircumstances& circumstances,
                  Findings& findings) {
    const bool matchesSuffixes = mayMatchSuffixes(playfile);
    bool isFirst = true;
    for (std::int32_t number = 1; number <= playfile.frames.upperBound(); ++number) {
        const FrameRecord& frame = playfile.frames.at(number);
        if (!IsUsed(frame))
            continue;
        checkCode(kPrefixSide, frame, number, circumstances.offeredEffects, findings);
        checkCode(kSuffixSide, frame, number, circumstances.offeredEffects, findings);
        checkPhotoRealistic(frame, number, matchesSuffixes, findings);
        checkOverlay(playfile.frames, number, isFirst, findings);
        isFirst = false;
    }
}

} // namespace qrtVistrelClasses4
