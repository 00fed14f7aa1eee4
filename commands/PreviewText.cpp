#include "commands/PreviewText.h"

#include "commands/DateText.h"
#include "commands/NumberedCodes.h"
#include "commands/VariableProcedures.h"
#include "frame/Traced.h"
#include "platform/LetterCase.h"
#include "platform/Platform.h"
#include "settings/RegistrySettings.h"
#include <qrtVistrelClasses4/clsCommandInterface.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kHoursOfADay = 24;

/// The thirteenth is listed as "CR013", so that "CR13" is looked up like a command.
constexpr std::string_view kCounters[] = {"CR01", "CR02", "CR03", "CR04", "CR05",  "CR06", "CR07", "CR08",
                                          "CR09", "CR10", "CR11", "CR12", "CR013", "CR14", "CR15", "CR16"};

bool isCounter(std::string_view code) {
    return std::find(std::begin(kCounters), std::end(kCounters), code) != std::end(kCounters);
}

/// What a command shows, by its bytes as one decimal number.
struct CommandPreview {
    std::int32_t decimal;
    enum { text, date, capitalDate, clock, militaryClock } kind;
    std::string_view pattern; ///< The pattern of a date or a time; else the text itself.
};

constexpr CommandPreview kCommandPreviews[] = {
    {20, CommandPreview::clock, "hh:mm AMPM"},
    {3020, CommandPreview::militaryClock, "hmm"},
    {449, CommandPreview::date, "mm/dd/yy"},
    {450, CommandPreview::date, "mmm dd yyyy"},
    {451, CommandPreview::date, "dddd mmmm dd, yyyy"},
    {452, CommandPreview::date, "mmm dd"},
    {453, CommandPreview::date, "dddd"},
    {454, CommandPreview::capitalDate, "mmm dd yyyy"},
    {455, CommandPreview::capitalDate, "dddd mmmm dd, yyyy"},
    {456, CommandPreview::capitalDate, "mmm dd"},
    {457, CommandPreview::capitalDate, "dddd"},
    {3, CommandPreview::text, "##C"},
    {6, CommandPreview::text, "##F"},
};

LocalTime shifted(LocalTime time, std::int16_t hours) {
    time.hour = ((time.hour + hours) % kHoursOfADay + kHoursOfADay) % kHoursOfADay;
    return time;
}

std::string without(std::string text, std::string_view part) {
    for (std::size_t found = text.find(part); found != text.npos; found = text.find(part, found))
        text.erase(found, part.size());
    return text;
}

/// When a code is shown: so many hours from the moment, or from now.
struct ShownWhen {
    std::int16_t hourOffset;
    std::optional<LocalTime> moment = {};
};

std::string show(const CommandPreview& preview, const ShownWhen& when) {
    const LocalTime now = when.moment ? *when.moment : platform().localTime();
    const auto format = [&](const LocalTime& time) {
        return FormatDate(preview.pattern, time, platform().calendarNames());
    };
    switch (preview.kind) {
    case CommandPreview::clock:
        return without(without(format(shifted(now, when.hourOffset)), "AM"), "PM");
    case CommandPreview::militaryClock: {
        const std::string time = format(shifted(now, when.hourOffset));
        return time.size() == 3 ? "0" + time : time;
    }
    case CommandPreview::date:
        return format(now);
    case CommandPreview::capitalDate:
        return AnsiUpperCase(format(now));
    default:
        return std::string(preview.pattern);
    }
}

/// The bytes in decimal, one after the other.
std::string decimalForm(const std::string& bytes) {
    std::string decimal;
    for (const char byte : bytes)
        decimal += std::to_string(static_cast<unsigned char>(byte));
    return decimal;
}

const CommandPreview* findPreview(const std::string& decimal) {
    std::int32_t value = 0;
    const char* const end = decimal.data() + decimal.size();
    if (const auto [last, error] = std::from_chars(decimal.data(), end, value);
        last != end || error != std::errc())
        return nullptr;
    const auto* const found =
        std::find_if(std::begin(kCommandPreviews), std::end(kCommandPreviews),
                     [&](const CommandPreview& preview) { return preview.decimal == value; });
    return found == std::end(kCommandPreviews) ? nullptr : found;
}

/// Whether these are the bytes of a clock or a date.
bool isTime(const std::string& bytes) {
    const CommandPreview* const preview = findPreview(decimalForm(bytes));
    return preview && preview->kind != CommandPreview::text;
}

std::string previewCommand(const std::string& code, const std::string& bytes, const ShownWhen& when) {
    std::string decimal = decimalForm(bytes);
    if (decimal == code)
        decimal.clear();
    if (const CommandPreview* const preview = findPreview(decimal))
        return show(*preview, when);
    return decimal.empty() ? code : decimal;
}

/// `bytesOf` gives the byte string of a command.
template <class BytesOf>
std::string previewCode(const std::string& code, const ShownWhen& when, BytesOf bytesOf) {
    return traced(
        VariableFunction("PreviewCommandText"),
        [&] {
            if (isCounter(code))
                return code;
            if (code.starts_with(kVariableCode.letters))
                return ReadSetting(std::string(kVistrel3), "Variables", code, "");
            return previewCommand(code, bytesOf(code), when);
        },
        Arg{"Code", code}, Arg{"HourOffset", when.hourOffset});
}

} // namespace

std::string PreviewCommandText(const std::string& Code, std::int16_t HourOffset) {
    return previewCode(Code, {HourOffset},
                       [](const std::string& key) { return clsCommandInterface().sCommandBytesByKey(key); });
}

std::string PreviewText(std::string_view text, std::int16_t hourOffset) {
    TextPreviews previews(clsCommandInterface().Value(), hourOffset);
    return previews.of(text);
}

TextPreviews::TextPreviews(CommandTable commands, std::int16_t hourOffset)
    : commands_(std::move(commands)), codes_(KeysOf(commands_)), hourOffset_(hourOffset) {}

void TextPreviews::setMoment(std::chrono::local_seconds moment) {
    moment_ = LocalTimeOf(moment);
    std::erase_if(known_, [](const auto& entry) { return entry.second.isTime; });
}

bool TextPreviews::showsTime(std::string_view text) {
    bool found = false;
    codesAndPiecesOf(text, [&](std::string_view, bool isTime) { found = found || isTime; });
    return found;
}

std::string TextPreviews::of(std::string_view text) {
    std::string result;
    piecesOf(text, [&](std::string_view piece) { result += piece; });
    return result;
}

const TextPreviews::Preview& TextPreviews::previewOf(std::string_view code) {
    if (const auto known = known_.find(code); known != known_.end())
        return known->second;
    const std::string key(code);
    std::string preview =
        previewCode(key, {hourOffset_, moment_}, [&](const auto& it) { return commands_.bytesOf(it); });
    return known_.emplace(key, Preview{preview.substr(0, kLongestPreview), isTime(commands_.bytesOf(key))})
        .first->second;
}

} // namespace qrtVistrelClasses4
