#include "commands/LegacyVariables.h"

#include "commands/NumberedCodes.h"
#include "commands/VariableProcedures.h"
#include "frame/Traced.h"

#include <algorithm>
#include <charconv>
#include <iterator>

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

/// One kind of placeholder after another.
std::string replaceInOrder(std::string text) {
    forEachPlaceholder([&](const std::string& placeholder, const std::string& code) {
        if (text.find(placeholder) != text.npos)
            text = replaceAll(text, placeholder, code);
    });
    return text;
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
bool appendCode(std::string_view inBraces, std::string& text) {
    for (const NumberedPlaceholder& kind : kNumberedPlaceholders) {
        if (!inBraces.starts_with(kind.name))
            continue;
        const std::string_view digits = inBraces.substr(kind.name.size());
        const int number = plainNumber(digits);
        if (number < 1 || number > kind.code.last)
            return false;
        appendNumberedCode(kind.code, digits, text);
        return true;
    }
    const auto* const found = std::find_if(std::begin(kNamedPlaceholders), std::end(kNamedPlaceholders),
                                           [&](const auto& named) { return named.name == inBraces; });
    if (found == std::end(kNamedPlaceholders))
        return false;
    text += found->code;
    return true;
}

/// A new placeholder can only arise around another one, within braces of its own. If no braces are within
/// braces, one pass over the text does the same as a pass for each kind.
std::string convert(const std::string& text) {
    std::string result;
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
        if (!appendCode(inBraces, result))
            result.append(text, open, close + 1 - open);
        copied = close + 1;
    }
    return result.append(text, copied);
}

} // namespace

std::string ConvertLegacyVariables(const std::string& text) {
    return traced(
        VariableFunction("ConvertLegacyVariables"), [&] { return convert(text); }, Arg{"text", text});
}

} // namespace qrtVistrelClasses4
