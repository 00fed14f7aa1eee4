#include "playfile/Effects.h"

#include "frame/Conversions.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <optional>

namespace qrtVistrelClasses4 {
namespace {

/// An effect that no list offers. Only playfiles contain it.
struct UnlistedEffect {
    std::int16_t code;
    std::string_view name;
    bool convertsBack;
};
constexpr std::array kUnlistedPrefixes{
    UnlistedEffect{15, "Overlay Frame with Text", true},
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

template <class Unlisted>
std::optional<std::string> nameOf(std::int16_t code, std::int16_t FixedEffect::*fixedCode,
                                  std::string_view FixedEffect::*fixedName,
                                  std::string_view OptionalEffect::*optionalName, const Unlisted& unlisted) {
    for (const FixedEffect& effect : kFixedEffects)
        if (effect.*fixedCode == code)
            return std::string(effect.*fixedName);
    for (const OptionalEffect& effect : kOptionalEffects)
        if (effect.code == code)
            return std::string(effect.*optionalName);
    for (const UnlistedEffect& effect : unlisted)
        if (effect.code == code)
            return std::string(effect.name);
    return std::nullopt;
}

template <class Unlisted>
std::optional<std::int16_t> codeOf(std::string_view text, std::int16_t FixedEffect::*fixedCode,
                                   std::string_view FixedEffect::*fixedName, const Unlisted& unlisted) {
    for (const FixedEffect& effect : kFixedEffects)
        if (effect.*fixedName == text)
            return effect.*fixedCode;
    for (const UnlistedEffect& effect : unlisted)
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
    return nameOf(code, &FixedEffect::prefixCode, &FixedEffect::prefixName, &OptionalEffect::prefixName,
                  kUnlistedPrefixes);
}

std::optional<std::string> SuffixName(std::int16_t code) {
    return nameOf(code, &FixedEffect::suffixCode, &FixedEffect::suffixName, &OptionalEffect::suffixName,
                  kUnlistedSuffixes);
}

std::optional<std::int16_t> PrefixCodeOf(std::string_view text) {
    if (const auto code = codeOf(text, &FixedEffect::prefixCode, &FixedEffect::prefixName, kUnlistedPrefixes))
        return code;
    const double rounds = LeadingNumber(bracketedText(text));
    if (rounds <= 0)
        return std::nullopt;
    // The whole name is converted, not the count in it, so it is never a number. Lists choose loops by their
    // item data.
    return TextToInt16(loopName(rounds));
}

std::optional<std::int16_t> SuffixCodeOf(std::string_view text) {
    return codeOf(text, &FixedEffect::suffixCode, &FixedEffect::suffixName, kUnlistedSuffixes);
}

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
