#include "validation/CodeRules.h"

#include "commands/LegacyVariables.h"
#include "commands/NumberedCodes.h"
#include "commands/PreviewText.h"
#include "validation/Rules.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// What keys of commands start with, the built-in ones and by custom those of users.
constexpr char kBar = '|';
constexpr std::string_view kHashes = "##";
/// Texts have what is shorter without meaning a code.
constexpr std::size_t kShortestStart = 3;

constexpr std::string_view kStartsOfCodes = "|#{VC";

bool isDigit(char character) { return character >= '0' && character <= '9'; }
bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}
bool isControl(char character) { return static_cast<unsigned char>(character) < ' '; }

template <class IsPart>
std::string_view leading(std::string_view text, IsPart isPart) {
    const auto* const end = std::find_if_not(text.data(), text.data() + text.size(), isPart);
    return text.substr(0, static_cast<std::size_t>(end - text.data()));
}

/// "VBL9" or "CR17". A longer number after "CR" is not meant as a counter.
std::optional<std::string_view> brokenNumber(std::string_view rest, const NumberedCode& kind) {
    if (!rest.starts_with(kind.letters))
        return std::nullopt;
    const std::string_view digits = leading(rest.substr(kind.letters.size()), isDigit);
    if (digits.empty() || digits.size() > kind.digits)
        return std::nullopt;
    return rest.substr(0, kind.letters.size() + digits.size());
}

/// "{time}", "{vbl 7}", or "{vbl 999}", which has never been one either.
bool startsNumberedPlaceholder(std::string_view text) {
    return text.starts_with("{vbl ") || text.starts_with("{cnt ");
}
bool isLegacyPlaceholder(std::string_view inBraces) {
    return startsNumberedPlaceholder(inBraces) || ConvertLegacyVariables(std::string(inBraces)) != inBraces;
}

/// A placeholder at the start of `rest`, whole or without its end.
std::optional<SuspectCode> placeholderAt(std::string_view rest) {
    const std::size_t close = rest.find_first_of("{}", 1);
    const bool isClosed = close != rest.npos && rest[close] == '}';
    if (isClosed) {
        const std::string_view inBraces = rest.substr(0, close + 1);
        if (!isLegacyPlaceholder(inBraces))
            return std::nullopt;
        return SuspectCode{inBraces, "legacy-placeholder",
                           ", a placeholder of the older format, which signs show as it is."};
    }
    const std::string_view word = rest.substr(0, 1 + leading(rest.substr(1), [](char it) {
                                                         return isLetter(it) || isDigit(it) || it == '_';
                                                     }).size());
    if (!isLegacyPlaceholder(std::string(word) + '}') && !startsNumberedPlaceholder(rest))
        return std::nullopt;
    return SuspectCode{word, "damaged-code", ", a placeholder without its end."};
}

/// A command's key at the start of `rest` by its form: "|week|" or "##BELL". Empty if there is none.
/// Bars that a letter touches from outside separate words.
std::string_view commandAtStart(std::string_view rest, bool isAfterLetter) {
    if (rest.starts_with(kHashes)) {
        const std::string_view letters = leading(rest.substr(kHashes.size()), isLetter);
        return letters.empty() ? letters : rest.substr(0, kHashes.size() + letters.size());
    }
    if (isAfterLetter || !rest.starts_with(kBar))
        return {};
    const std::string_view inBars = rest.substr(1, std::min(rest.find(kBar, 1), rest.size()) - 1);
    const bool isClosed = inBars.size() + 2 <= rest.size();
    const std::string_view after = isClosed ? rest.substr(inBars.size() + 2) : std::string_view();
    const bool isBeforeLetter = !after.empty() && isLetter(after.front());
    const bool isKey = isClosed && !isBeforeLetter && inBars.size() + 2 > kShortestStart &&
                       isLetter(inBars.front()) && inBars.find(' ') == inBars.npos;
    return isKey ? rest.substr(0, inBars.size() + 2) : std::string_view();
}

/// The suspect pieces of a text.
class SuspectCodes {
public:
    void add(SuspectCode code) {
        const auto [known, isNew] = places_.try_emplace(code.text, codes_.size());
        if (isNew)
            codes_.push_back({std::move(code)});
        ++codes_[known->second].count;
    }

    void report(const Place& place, Findings& findings) const {
        std::map<const Rule*, std::size_t> counts;
        for (const auto& [code, count] : codes_) {
            if (++counts[code.rule.rule()] > kMostOfRule)
                continue;
            const std::string times = count > 1 ? ' ' + std::to_string(count) + " times" : "";
            findings.add(code.rule, place, "The text has " + Quoted(code.text) + times + code.why);
        }
        for (const RuleName rule :
             {RuleName("damaged-code"), RuleName("unknown-command-code"), RuleName("legacy-placeholder")})
            if (const std::size_t count = counts[rule.rule()]; count > kMostOfRule)
                findings.add(rule, place,
                             "The text has " + std::to_string(count - kMostOfRule) +
                                 " more of what this rule finds.");
    }

private:
    static constexpr std::size_t kMostOfRule = 20;

    struct Counted {
        SuspectCode code;
        std::int64_t count = 0;
    };
    std::vector<Counted> codes_;                               ///< Each once.
    std::unordered_map<std::string_view, std::size_t> places_; ///< In `codes_`, by text.
};

} // namespace

CodeCheck::CodeCheck(const CommandTable& commands) : keys_(KeysOf(commands)), codes_(keys_) {
    for (const char character : kStartsOfCodes)
        mayStart_[static_cast<unsigned char>(character)] = true;
    for (std::size_t code = 0; code < ' '; ++code)
        mayStart_[code] = true;
    for (const std::string_view key : keys_) {
        if (!key.empty())
            mayStart_[static_cast<unsigned char>(key.front())] = true;
        if (key.starts_with(kBar) && key.size() > kShortestStart)
            starts_.insert(key.substr(0, kShortestStart));
    }
}

void CodeCheck::check(std::string_view text, const Place& place, Findings& findings) const {
    text = text.substr(0, kLongestPreview);
    SuspectCodes suspects;
    bool hasControls = false;
    for (std::size_t at = 0; at < text.size();) {
        if (!mayStart_[static_cast<unsigned char>(text[at])]) {
            ++at;
            continue;
        }
        hasControls = hasControls || isControl(text[at]);
        std::size_t size = codes_.sizeAtStart(text.substr(at));
        if (size == 0)
            if (auto suspect = suspectAt(text.substr(at), at > 0 && isLetter(text[at - 1]))) {
                size = suspect->text.size();
                suspects.add(*std::move(suspect));
            }
        at += std::max<std::size_t>(size, 1);
    }
    suspects.report(place, findings);
    if (hasControls) {
        const auto count = std::ranges::count_if(text, isControl);
        findings.add("control-character", place,
                     "The text has " + CountText(count, "character", "characters") +
                         " with codes below 32, which no font shows.");
    }
}

std::optional<SuspectCode> CodeCheck::suspectAt(std::string_view rest, bool isAfterLetter) const {
    if (rest.front() == '{')
        return placeholderAt(rest);
    for (const NumberedCode& kind : {kVariableCode, kCounterCode})
        if (const auto broken = isAfterLetter ? std::nullopt : brokenNumber(rest, kind))
            return SuspectCode{*broken, "damaged-code",
                               ", and codes of that kind have a number of " + std::to_string(kind.digits) +
                                   " digits up to " + std::to_string(kind.last) + '.'};
    if (const std::string_view command = commandAtStart(rest, isAfterLetter); !command.empty())
        return SuspectCode{command, "unknown-command-code", ", and no command has that key."};
    if (startsUnfinishedKey(rest))
        return SuspectCode{leading(rest, [](char it) { return it != ' '; }), "damaged-code",
                           ", a command's key without its end."};
    return std::nullopt;
}

bool CodeCheck::startsUnfinishedKey(std::string_view rest) const {
    return rest.size() >= kShortestStart && starts_.contains(rest.substr(0, kShortestStart));
}

} // namespace qrtVistrelClasses4
