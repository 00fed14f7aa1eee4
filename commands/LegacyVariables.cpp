#include "commands/LegacyVariables.h"

#include "commands/NumberedCodes.h"
#include "commands/VariableProcedures.h"
#include "frame/Traced.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Without braces.
struct NamedPlaceholder {
    std::string_view name;
    std::string_view code;
};

constexpr NamedPlaceholder kNamedPlaceholders[] = {
    {"time", "|h:m|"},
    {"mtime", "|hm|"},
    {"temp_c", "##C"},
    {"temp_f", "##F"},
    {"tdays", ""},
    {"years", ""},
    {"months", ""},
    {"days", ""},
    {"hours", ""},
    {"seconds", ""},
    {"date1", "|m/dd/y|"},
    {"date2", "|mmmmmmm_dd,_yyy|"},
    {"date3", "|dddddddd_mmmmmmmm_dd,_yyy|"},
    {"date4", "|mm_d|"},
    {"date5", "|ddddddd|"},
    {"date6", "|mmmmmmm_dd,_yyy|"},
    {"date7", "|dddddddd_mmmmmmmm_dd,_yyy|"},
    {"date8", "|mm_d|"},
    {"date9", "|mmmmmmm_dd,_yyy|"},
    {"minutes", ""},
};

/// Placeholders that consist of a name and the number of their code, such as "{vbl 7}".
struct NumberedPlaceholder {
    std::string_view name;
    NumberedCode code;
};

constexpr NumberedPlaceholder kNumberedPlaceholders[] = {
    {"vbl ", kVariableCode},
    {"cnt ", kCounterCode},
};

/// `digits` are those of its number, without leading zeros.
void appendNumberedCode(const NumberedCode& kind, std::string_view digits, std::string& text) {
    text.append(kind.letters).append(kind.digits - digits.size(), '0').append(digits);
}

/// Calls `take(placeholder, code)` for every placeholder, in the order in which they are replaced.
template <class Take>
void forEachPlaceholder(Take take) {
    for (const auto& [name, code] : kNamedPlaceholders)
        take("{" + std::string(name) + "}", std::string(code));
    for (const NumberedPlaceholder& kind : kNumberedPlaceholders)
        for (int number = 1; number <= kind.code.last; ++number) {
            const std::string digits = std::to_string(number);
            std::string code;
            appendNumberedCode(kind.code, digits, code);
            take("{" + std::string(kind.name) + digits + "}", code);
        }
}

std::string replaceAll(const std::string& text, const std::string& placeholder, const std::string& code) {
    std::string result;
    std::size_t from = 0;
    for (std::size_t found = text.find(placeholder); found != text.npos;
         found = text.find(placeholder, from)) {
        result.append(text, from, found - from).append(code);
        from = found + placeholder.size();
    }
    return result.append(text, from);
}

bool looksLikePlaceholder(std::string_view inBraces) {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    constexpr std::string_view lettersAndDigits =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_0123456789";
    constexpr std::string_view blanks = " \x1f"; // with the line end of the older format
    std::string_view rest = inBraces;
    const auto skip = [&](std::string_view characters) {
        rest.remove_prefix(std::min(rest.find_first_not_of(characters), rest.size()));
    };
    skip(blanks);
    if (rest.empty() || letters.find(rest.front()) == letters.npos)
        return false;
    for (const std::string_view characters :
         {lettersAndDigits, blanks, std::string_view("+-"), std::string_view("0123456789"), blanks})
        skip(characters);
    return rest.empty();
}

/// What conversion makes of a text.
struct Converted {
    std::string text;
    std::vector<std::string> losses;

    void loseRemoved(std::string_view inBraces) { lose(inBraces, "which has no code"); }
    /// Does nothing for braces that nobody takes for a placeholder.
    void loseUnknown(std::string_view inBraces) {
        if (looksLikePlaceholder(inBraces))
            lose(inBraces, "which stays as text");
    }
    /// The same for all braces in the text that have none within.
    void loseAllUnknown() {
        std::size_t open = text.npos;
        for (std::size_t place = 0; place < text.size(); ++place)
            if (text[place] == '{') {
                open = place;
            } else if (text[place] == '}' && open != text.npos) {
                loseUnknown(std::string_view(text).substr(open + 1, place - open - 1));
                open = text.npos;
            }
    }

private:
    void lose(std::string_view inBraces, const char* why) {
        losses.push_back("placeholder \"{" + std::string(inBraces) + "}\", " + why);
    }
};

/// One kind of placeholder after another.
Converted replaceInOrder(const std::string& text) {
    Converted converted{text, {}};
    forEachPlaceholder([&](const std::string& placeholder, const std::string& code) {
        if (converted.text.find(placeholder) == text.npos)
            return;
        converted.text = replaceAll(converted.text, placeholder, code);
        if (code.empty())
            converted.loseRemoved(std::string_view(placeholder).substr(1, placeholder.size() - 2));
    });
    converted.loseAllUnknown();
    return converted;
}

/// The number of a placeholder as it is written: decimal, without leading zeros. 0 for anything else.
int plainNumber(std::string_view digits) {
    int number = 0;
    const char* const end = digits.data() + digits.size();
    if (digits.empty() || digits.front() < '1' || digits.front() > '9' ||
        std::from_chars(digits.data(), end, number).ptr != end)
        return 0;
    return number;
}

/// Appends the code of the placeholder between the braces. False if there is no placeholder.
bool appendCode(std::string_view inBraces, Converted& converted) {
    for (const NumberedPlaceholder& kind : kNumberedPlaceholders) {
        if (!inBraces.starts_with(kind.name))
            continue;
        const std::string_view digits = inBraces.substr(kind.name.size());
        const int number = plainNumber(digits);
        if (number < 1 || number > kind.code.last)
            return false;
        appendNumberedCode(kind.code, digits, converted.text);
        return true;
    }
    const auto* const found = std::find_if(std::begin(kNamedPlaceholders), std::end(kNamedPlaceholders),
                                           [&](const auto& named) { return named.name == inBraces; });
    if (found == std::end(kNamedPlaceholders))
        return false;
    converted.text += found->code;
    if (found->code.empty())
        converted.loseRemoved(inBraces);
    return true;
}

/// A new placeholder can only arise around another one, within braces of its own. If no braces are within
/// braces, one pass over the text does the same as a pass for each kind.
Converted convert(const std::string& text) {
    Converted converted;
    std::string& result = converted.text;
    result.reserve(text.size());
    std::size_t copied = 0;
    for (std::size_t open = text.find('{'); open != text.npos; open = text.find('{', copied)) {
        const std::size_t close = text.find('}', open);
        if (close == text.npos)
            break;
        const auto inBraces = std::string_view(text).substr(open + 1, close - open - 1);
        if (inBraces.find('{') != inBraces.npos)
            return replaceInOrder(text);
        result.append(text, copied, open - copied);
        if (!appendCode(inBraces, converted)) {
            result.append(text, open, close + 1 - open);
            converted.loseUnknown(inBraces);
        }
        copied = close + 1;
    }
    result.append(text, copied);
    return converted;
}

} // namespace

std::string ConvertLegacyVariables(const std::string& text) {
    std::vector<std::string> ignored;
    return ConvertLegacyVariables(text, ignored);
}

std::string ConvertLegacyVariables(const std::string& text, std::vector<std::string>& losses) {
    return traced(
        VariableFunction("ConvertLegacyVariables"),
        [&] {
            Converted converted = convert(text);
            std::move(converted.losses.begin(), converted.losses.end(), std::back_inserter(losses));
            return std::move(converted.text);
        },
        Arg{"text", text});
}

} // namespace qrtVistrelClasses4
