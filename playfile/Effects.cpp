#include "playfile/Effects.h"

#include "frame/Conversions.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <optional>
#include <set>
#include <span>

namespace qrtVistrelClasses4 {
namespace {

/// An effect that no list offers. Only playfiles contain it.
struct UnlistedEffect {
    std::int16_t code;
    std::string_view name;
    bool convertsBack;
};
constexpr std::array kUnlistedPrefixes{
    UnlistedEffect{kOverlayText, "Overlay Frame with Text", true},
    UnlistedEffect{kPhotoRealistic, "PhotoRealistic", false},
};
constexpr std::array kUnlistedSuffixes{
    UnlistedEffect{kEndLoop, kEndLoopText, true},
    UnlistedEffect{kPhotoRealistic, "PhotoRealistic", false},
};

struct Keyword {
    std::string_view text;
    std::int16_t code;
};
/// Both sides of the older format share these. Unlike the names, the keyword for revealing has the prefix
/// number on both sides.
constexpr std::array kKeywords{
    Keyword{"LR", 5001},  Keyword{"RL", 5000}, Keyword{"TB", 5003},  Keyword{"BT", 5002},
    Keyword{"TW", 12005}, Keyword{"RM", 5},    Keyword{"FD", 11006}, Keyword{"LD", 10000},
    Keyword{"LW", kWipe}, Keyword{"JO", 1000},
};

/// Appear or disappear effects.
struct Side {
    std::int16_t FixedEffect::*fixedCode;
    std::string_view FixedEffect::*fixedName;
    std::string_view OptionalEffect::*optionalName;
    std::span<const UnlistedEffect> unlisted;
};
constexpr Side kPrefixes{&FixedEffect::prefixCode, &FixedEffect::prefixName, &OptionalEffect::prefixName,
                         kUnlistedPrefixes};
constexpr Side kSuffixes{&FixedEffect::suffixCode, &FixedEffect::suffixName, &OptionalEffect::suffixName,
                         kUnlistedSuffixes};

struct NamedEffect {
    std::string_view name;
    EffectMotion motion = EffectMotion::none;
};

std::optional<NamedEffect> effectOf(std::int16_t code, const Side& side) {
    for (const FixedEffect& effect : kFixedEffects)
        if (effect.*side.fixedCode == code)
            return NamedEffect{effect.*side.fixedName, effect.motion};
    for (const OptionalEffect& effect : kOptionalEffects)
        if (effect.code == code)
            return NamedEffect{effect.*side.optionalName, effect.motion};
    for (const UnlistedEffect& effect : side.unlisted)
        if (effect.code == code)
            return NamedEffect{effect.name};
    return std::nullopt;
}

std::optional<std::string> nameOf(std::int16_t code, const Side& side) {
    const auto effect = effectOf(code, side);
    return effect ? std::optional<std::string>(effect->name) : std::nullopt;
}

EffectMotion motionOf(std::int16_t code, const Side& side) {
    return effectOf(code, side).value_or(NamedEffect()).motion;
}

std::optional<std::int16_t> codeOf(std::string_view text, const Side& side) {
    for (const FixedEffect& effect : kFixedEffects)
        if (effect.*side.fixedName == text)
            return effect.*side.fixedCode;
    for (const UnlistedEffect& effect : side.unlisted)
        if (effect.convertsBack && effect.name == text)
            return effect.code;
    for (const OptionalEffect& effect : kOptionalEffects)
        if (effect.bareName == text)
            return effect.code;
    return std::nullopt;
}

std::optional<std::int16_t> codeOfSharedKeyword(std::string_view keyword) {
    for (const Keyword& row : kKeywords)
        if (row.text == keyword)
            return row.code;
    return std::nullopt;
}

std::string loopName(double rounds) { return "Start Loop [" + NumberToText(rounds) + "] times"; }

/// The text between the first brackets, with the closing one; empty if the closing one comes first. A missing
/// bracket counts as one before the text.
std::string_view bracketedText(std::string_view text) {
    const std::size_t opening = text.find('[') + 1; // both count from 1
    const std::size_t closing = text.find(']') + 1;
    return closing < opening ? std::string_view() : text.substr(opening, closing - opening);
}

} // namespace

std::atomic<bool> NewEffectsLoaded = false;

std::optional<std::string> PrefixName(std::int16_t code) {
    if (const std::int32_t rounds = RoundsOfLoop(code); rounds > 0)
        return loopName(rounds);
    return nameOf(code, kPrefixes);
}

std::optional<std::string> SuffixName(std::int16_t code) { return nameOf(code, kSuffixes); }

std::vector<std::int16_t> NamedEffectCodes() {
    std::set<std::int16_t> codes;
    for (std::int16_t code = kLoopBase + 1; code < kLoopLimit; ++code)
        codes.insert(code);
    for (const Side& side : {kPrefixes, kSuffixes}) {
        for (const FixedEffect& effect : kFixedEffects)
            codes.insert(effect.*side.fixedCode);
        for (const UnlistedEffect& effect : side.unlisted)
            codes.insert(effect.code);
    }
    for (const OptionalEffect& effect : kOptionalEffects)
        codes.insert(effect.code);
    return {codes.begin(), codes.end()};
}

EffectSpan SpanOf(EffectMotion motion) {
    using enum EffectMotion;
    switch (motion) {
    case none:
    case jump:
        return EffectSpan::none;
    case scrollDown:
    case scrollUp:
    case lineDrop:
    case drop:
    case jaws:
    case venetianBlinds:
    case scanDown:
    case barrelDown:
        return EffectSpan::down;
    case fade:
    case pulse:
        return EffectSpan::fade;
    case twinkle:
        return EffectSpan::twinkle;
    default:
        return EffectSpan::across;
    }
}

EffectMotion PrefixMotion(std::int16_t code) { return motionOf(code, kPrefixes); }
EffectMotion SuffixMotion(std::int16_t code) { return motionOf(code, kSuffixes); }

std::optional<std::int16_t> PrefixCodeOf(std::string_view text) {
    if (const auto code = codeOf(text, kPrefixes))
        return code;
    const double rounds = LeadingNumber(bracketedText(text));
    if (rounds <= 0)
        return std::nullopt;
    // The whole name is converted, not the count in it, so it is never a number. Lists choose loops by their
    // item data.
    return TextToInt16(loopName(rounds));
}

std::optional<std::int16_t> SuffixCodeOf(std::string_view text) { return codeOf(text, kSuffixes); }

std::optional<std::int16_t> PrefixCodeOfKeyword(std::string_view keyword) {
    if (const auto code = codeOfSharedKeyword(keyword))
        return code;
    if (MeansNoEffect(keyword))
        return std::int16_t{0};
    const std::optional<double> rounds = ParseNumber(keyword);
    return rounds ? std::optional(RoundToInt16(kLoopBase + *rounds)) : std::nullopt;
}

bool MeansNoEffect(std::string_view keyword) {
    return keyword == "OT" || ParseNumber(keyword).value_or(1) <= 0;
}

std::optional<std::int16_t> SuffixCodeOfKeyword(std::string_view keyword) {
    return keyword == "LP" ? kEndLoop : codeOfSharedKeyword(keyword);
}

} // namespace qrtVistrelClasses4
