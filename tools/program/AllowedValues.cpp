#include "tools/program/AllowedValues.h"

#include "frame/Conversions.h"
#include "platform/LetterCase.h"
#include "playfile/Effects.h"
#include "tools/program/NameDistance.h"
#include <qrtVistrelClasses4/DisplayRecord.h>
#include <qrtVistrelClasses4/FrameRecord.h>
#include <qrtVistrelClasses4/Preferences.h>
#include <qrtVistrelClasses4/SignList.h>
#include <qrtVistrelClasses4/SignLook.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <map>
#include <regex>

namespace qrtVistrelClasses4 {
namespace {

std::vector<NamedNumber> signTypes() {
    std::vector<NamedNumber> all;
    for (const SignTypes& types : NamedSignTypes())
        if (std::ranges::none_of(all, [&](const NamedNumber& known) { return known.name == types.name; }))
            all.push_back({types.name, static_cast<std::int16_t>(types.first)});
    return all;
}

std::string_view signTypeName(std::int16_t number) { return SignTypeName(number); }

std::string_view connectionName(std::int16_t number) { return ConnectionMethodName(number).value_or(""); }

std::vector<NamedNumber> connections() {
    std::vector<NamedNumber> all;
    for (std::int16_t number = kDirectConnection; number <= kModemConnection; ++number)
        all.push_back({connectionName(number), number});
    return all;
}

/// In the order of their numbers, from 0.
constexpr auto kFrameKinds =
    std::to_array<std::string_view>({"Blank", "Graphic", "Text", "Graphic/Text", "Command"});
static_assert(static_cast<std::size_t>(NEW_FRAME_TYPES::FRAME_CMD) == kFrameKinds.size() - 1);

std::string_view frameKindName(std::int16_t number) {
    const auto index = static_cast<std::size_t>(number);
    return index < kFrameKinds.size() ? kFrameKinds.at(index) : "";
}

std::vector<NamedNumber> frameKinds() {
    std::vector<NamedNumber> all;
    all.reserve(kFrameKinds.size());
    for (const std::string_view name : kFrameKinds)
        all.push_back({name, static_cast<std::int16_t>(all.size())});
    return all;
}

/// The names of the effects of one side by their codes; loops have a name for each number of rounds.
template <std::optional<std::string> (*nameOf)(std::int16_t)>
const std::map<std::int16_t, std::string>& effectNames() {
    static const auto names = [] {
        std::map<std::int16_t, std::string> all;
        for (const std::int16_t code : NamedEffectCodes())
            if (auto name = nameOf(code))
                all.emplace(code, *std::move(name));
        return all;
    }();
    return names;
}

template <std::optional<std::string> (*nameOf)(std::int16_t)>
std::string_view effectName(std::int16_t code) {
    const auto found = effectNames<nameOf>().find(code);
    return found == effectNames<nameOf>().end() ? std::string_view() : found->second;
}

template <std::optional<std::string> (*nameOf)(std::int16_t)>
std::vector<NamedNumber> effects() {
    std::vector<NamedNumber> all;
    for (const auto& [code, name] : effectNames<nameOf>())
        all.push_back({name, code});
    return all;
}

constexpr NumberNames kFrameKindNames{&frameKinds, &frameKindName, ""};
constexpr NumberNames kPrefixNames{&effects<PrefixName>, &effectName<PrefixName>, "effects"};
constexpr NumberNames kSuffixNames{&effects<SuffixName>, &effectName<SuffixName>, "effects"};
constexpr NumberNames kSignTypeNames{&signTypes, &signTypeName, "signs types"};
constexpr NumberNames kConnectionNames{&connections, &connectionName, "signs connections"};

constexpr std::size_t kMostCandidates = 8; // more are not listed in an error
constexpr double kLargest = std::numeric_limits<double>::infinity();
constexpr double kMostDots = 32767;
constexpr double kBrightest = 255; // some signs have far fewer levels
constexpr std::string_view kTime =
    R"(((0?[1-9]|1[0-2]):[0-5]\d(:[0-5]\d)? ?[AP]M|([01]?\d|2[0-3]):[0-5]\d(:[0-5]\d)?))";
constexpr std::string_view kTimeMeaning = "a time such as 6:30 PM or 18:30";
/// In a pattern, any of the colours of LEDs; in a meaning, the list of them.
constexpr std::string_view kAnyColor = "<colour>";

constexpr AllowedValues numbers(std::string_view property, double least, double most = kLargest) {
    return {.property = property, .least = least, .most = most};
}
constexpr AllowedValues texts(std::string_view property, std::string_view pattern, std::string_view meaning) {
    return {.property = property, .pattern = pattern, .meaning = meaning};
}

constexpr AllowedValues kAllowed[] = {
    numbers("DisplayWidth", 1, kMostDots),
    numbers("DisplayHeight", 1, kMostDots),
    {.property = "DisplayType", .least = 0, .names = &kSignTypeNames},
    {.property = "ConnectionMethod",
     .least = kDirectConnection,
     .most = kModemConnection,
     .names = &kConnectionNames},
    texts("DefaultColor", kAnyColor, "a colour (<colour>)"),
    texts("ColorsSupported", "<colour>( *[,;/ ] *<colour>)*", "colours with commas between them (<colour>)"),
    // Frames and lines
    {.property = "FrameType", .least = 0, .names = &kFrameKindNames, .areNamed = true},
    {.property = "PrefixCode", .least = 0, .names = &kPrefixNames, .areNamed = true},
    {.property = "SuffixCode", .least = 0, .names = &kSuffixNames, .areNamed = true},
    numbers("DelayTime", 0),
    numbers("TotalDisplayFramesUsedForThisFrame", 0),
    numbers("AVIFrames", 0),
    numbers("FixedNumberOfLines", 0, std::numeric_limits<std::int16_t>::max()),
    numbers("LineFontSize", 0, kCustomFont),
    // Delays, speeds and sizes
    numbers("ScrollPauseDelay", 0),
    numbers("ScrollingTextSpeed", 0),
    numbers("FrameSize", 0),
    numbers("BlinkRateShow", 0),
    numbers("BlinkRateClear", 0),
    numbers("DelayMinimum", 0),
    numbers("DelayMaximum", 0),
    numbers("DelayStep", 0),
    numbers("AVIDelay", 0),
    numbers("DefaultDelay", 0),
    numbers("BroadcastTRDelay", 0),
    // Brightness
    numbers("BrightnessLevel", 0, kBrightest),
    numbers("LightSensorMinimum", 0, kBrightest),
    numbers("LightSensorMaximum", 0, kBrightest),
    numbers("BrightnessScheduleDefaultBrightness", 0, kBrightest),
    numbers("DisplayBrightnessLevel", 0, kBrightest),
    numbers("SensorLimitMinimum", 0, kBrightest),
    numbers("SensorLimitMaximum", 0, kBrightest),
    numbers("ScheduleDefaultBrightness", 0, kBrightest),
    numbers("BrightnessScheduleBrightnessLevel", 0, kBrightest),
    texts("StartTime", kTime, kTimeMeaning),
    texts("StopTime", kTime, kTimeMeaning),
    texts("BrightnessScheduleStartTime", kTime, kTimeMeaning),
    texts("BrightnessScheduleStopTime", kTime, kTimeMeaning),
    // How a sign is reached
    texts("PhoneNumber", "[-+*#0-9 ()/.,;!@TPW]*[0-9][-+*#0-9 ()/.,;!@TPW]*", "a phone number"),
    texts("IPAddress",
          R"(((25[0-5]|2[0-4]\d|1?\d?\d)(\.(?!$)|$)){4}|(?=.*[A-Z])[A-Z0-9]([-_A-Z0-9]|\.(?=[A-Z0-9]))*)",
          "an address such as 10.0.0.5 or a host name"),
    texts("CommPort",
          R"(COM([1-9]\d?|1\d\d|2[0-4]\d|25[0-6])|/dev/.+|)"
          R"([1-9]\d{0,3}|[1-5]\d{4}|6([0-4]\d{3}|5([0-4]\d\d|5([0-2]\d|3[0-5]))))",
          "a serial port such as COM1, or a port of the network from 1 to 65535"),
    texts("BaudRate",
          "110|300|600|1200|2400|4800|9600|14400|19200|28800|38400|56000|57600|115200|128000|"
          "230400|256000|460800|921600",
          "a serial speed such as 9600"),
};

constexpr bool hasRow(const auto& table, std::string_view name) {
    bool isFound = false;
    ForEachRow(table, [&](const auto& row) { isFound = isFound || row.name == name; });
    return isFound;
}
static_assert(std::ranges::all_of(kAllowed, [](const AllowedValues& allowed) {
    return hasRow(kDisplayMembers, allowed.property) || hasRow(kScheduleMembers, allowed.property) ||
           hasRow(kPreferenceMembers, allowed.property) ||
           hasRow(kPreferredScheduleMembers, allowed.property) || hasRow(kFrameMembers, allowed.property) ||
           hasRow(kLineMembers, allowed.property);
}));

std::string colorsWith(std::string_view separator) {
    std::string all;
    for (const std::string_view name : LedColorNames())
        (all += all.empty() ? "" : separator) += name;
    return all;
}

std::string withColors(std::string_view text, const std::string& colors) {
    std::string result(text);
    for (std::size_t at = 0; (at = result.find(kAnyColor, at)) != result.npos; at += colors.size())
        result.replace(at, kAnyColor.size(), colors);
    return result;
}

/// Made once, which takes longer than matching.
const std::regex& expressionOf(const AllowedValues& allowed) {
    static std::map<std::string_view, std::regex> made; // by pattern
    const auto found = made.find(allowed.pattern);
    return found != made.end()
               ? found->second
               : made.emplace(allowed.pattern, std::regex(ExpressionOf(allowed), std::regex::icase))
                     .first->second;
}

/// " that "vistrel effects" prints", or the names.
std::string whereNamesAre(const NumberNames& names) {
    if (!names.listing.empty())
        return " that \"vistrel " + std::string(names.listing) + "\" prints";
    std::string text;
    for (const NamedNumber& named : names.all())
        text.append(text.empty() ? " (" : ", ").append(named.name);
    return text + ")";
}

bool startsWordOf(std::string_view name, std::string_view typed) {
    for (std::size_t at = 0; at + typed.size() <= name.size(); ++at)
        if ((at == 0 || name[at - 1] == ' ') && EqualIgnoringAsciiCase(name.substr(at, typed.size()), typed))
            return true;
    return false;
}

} // namespace

const AllowedValues& AllowedValuesOf(std::string_view property) {
    static constexpr AllowedValues anything{};
    const auto* const found = std::ranges::find(kAllowed, property, &AllowedValues::property);
    return found == std::end(kAllowed) ? anything : *found;
}

std::string ExpressionOf(const AllowedValues& allowed) {
    return withColors(allowed.pattern, "(" + colorsWith("|") + ")");
}

bool Allows(const AllowedValues& allowed, double number) {
    return number >= allowed.least && number <= allowed.most &&
           (!allowed.areNamed || !allowed.names->nameOf(static_cast<std::int16_t>(number)).empty());
}

bool Allows(const AllowedValues& allowed, const std::string& text) {
    if (allowed.pattern.empty() || text.empty())
        return true;
    return text.size() <= kLongestMatched && std::regex_match(text, expressionOf(allowed));
}

std::string DescriptionOf(const AllowedValues& allowed, std::string_view type, double least, double most) {
    if (allowed.areNamed)
        return "a name" + whereNamesAre(*allowed.names) + ", or its number";
    least = std::max(least, allowed.least);
    most = std::min(most, allowed.most);
    std::string text(type);
    if (std::isfinite(least))
        text += (std::isfinite(most) ? " from " : " of at least ") + NumberToText(least);
    if (std::isfinite(most))
        text += " to " + NumberToText(most);
    return text + (allowed.names ? " or a name" + whereNamesAre(*allowed.names) : "");
}

std::string DescriptionOf(const AllowedValues& allowed) {
    return allowed.meaning.empty() ? "a text" : withColors(allowed.meaning, colorsWith(", "));
}

std::vector<std::string> NamesOf(const AllowedValues& allowed) {
    std::vector<std::string> names;
    if (allowed.names)
        std::ranges::transform(allowed.names->all(), std::back_inserter(names),
                               [](const NamedNumber& named) { return std::string(named.name); });
    else if (allowed.pattern == kAnyColor)
        for (const std::string_view color : LedColorNames())
            names.emplace_back(color);
    return names;
}

bool IsWithin(const char* argument, std::int32_t number, std::int32_t last, const std::string& thing,
              ErrorLines& errors) {
    if (number >= 1 && number <= last)
        return true;
    const std::string range = last < 1    ? "there is no " + thing
                              : last == 1 ? "only 1 is allowed"
                                          : "1 to " + std::to_string(last) + " are allowed";
    errors.add(std::string(argument) + " is " + std::to_string(number) + ", but " + range);
    return false;
}

std::optional<std::int16_t> NumberOfName(const NumberNames& names, std::string_view typed,
                                         ErrorLines& errors) {
    std::vector<NamedNumber> candidates;
    NearestName nearest(typed);
    for (const NamedNumber& named : names.all()) {
        if (EqualIgnoringAsciiCase(named.name, typed))
            return named.number;
        if (startsWordOf(named.name, typed))
            candidates.push_back(named);
        nearest.offer(named.name);
    }
    if (candidates.size() == 1)
        return candidates.front().number;
    std::string text = "\"" + std::string(typed) + "\" is ";
    if (candidates.empty())
        text += "not a name" + (!nearest.name().empty() ? nearest.hint()
                                : names.listing.empty()
                                    ? whereNamesAre(names)
                                    : "; \"vistrel " + std::string(names.listing) + "\" prints all names");
    else if (candidates.size() > kMostCandidates) {
        text += "the beginning of " + std::to_string(candidates.size()) + " names";
        candidates.clear();
    } else
        text += "the beginning of several names: ";
    for (const NamedNumber& named : candidates)
        text += (named.name == candidates.front().name ? "" : ", ") + std::string(named.name);
    errors.add(text);
    return std::nullopt;
}

std::string_view NameOfNumber(std::string_view property, std::int16_t number) {
    const NumberNames* names = AllowedValuesOf(property).names;
    return names ? names->nameOf(number) : "";
}

} // namespace qrtVistrelClasses4
