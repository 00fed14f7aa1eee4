#include "commands/LegacyVariables.h"

#include "commands/NumberedCodes.h"
#include "commands/VariableProcedures.h"
#include "frame/Traced.h"

#include <algorithm>
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

/// Whether somebody takes what is between two braces for a placeholder.
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

/// What becomes of the text between two braces.
struct Replacement {
    int turn = 0; ///< Kinds of placeholders are replaced in the order of their turns. 0 if it is none.
    std::string_view letters;
    std::size_t digits = 0; ///< After the letters: the number of the placeholder, with zeros before it.
    int number = 0;
};

Replacement replacementOf(std::string_view inBraces) {
    constexpr int turnOfNumbers = std::size(kNamedPlaceholders) + 1;
    for (const auto& [name, code] : kNumberedPlaceholders)
        if (inBraces.starts_with(name)) {
            const std::string_view digits = inBraces.substr(name.size());
            const int number = digits.starts_with('0') ? 0 : code.numberOf(digits);
            return number > 0 ? Replacement{turnOfNumbers, code.letters, code.digits, number} : Replacement();
        }
    int turn = 0;
    for (const auto& [name, code] : kNamedPlaceholders)
        if (++turn; name == inBraces)
            return {turn, code};
    return {};
}

/// Replaces placeholders from the start of a text to its end, with the result of replacing one kind after
/// another. Only one that is removed can make another of the text around it, and that one is replaced if its
/// turn is still to come. Each code has a character that no placeholder has.
class Converter {
public:
    explicit Converter(std::vector<std::string>& losses) : losses_(losses) {}

    std::string convert(std::string_view text) {
        result_.reserve(text.size());
        for (std::size_t close = text.find('}'); close != text.npos; close = text.find('}')) {
            append(text.substr(0, close));
            appendClose();
            text.remove_prefix(close + 1);
        }
        result_ += text; // its braces are never closed
        return std::move(result_);
    }

private:
    struct OpenBrace {
        std::size_t place; ///< In the result.
        int lastTurn;      ///< That of the last placeholder to be removed after the brace. 0 if none was.
    };

    /// `text` closes no brace.
    void append(std::string_view text) {
        for (std::size_t open = text.find('{'); open != text.npos; open = text.find('{', open + 1))
            open_.push_back({result_.size() + open, 0});
        result_ += text;
    }

    void appendClose() {
        if (open_.empty()) {
            result_ += '}';
            return;
        }
        const OpenBrace open = open_.back();
        open_.pop_back();
        const std::string_view inBraces = std::string_view(result_).substr(open.place + 1);
        const Replacement replacement = replacementOf(inBraces);
        if (replacement.turn > open.lastTurn) {
            replace(open.place, inBraces, replacement);
            return;
        }
        if (looksLikePlaceholder(inBraces))
            lose(inBraces, "which stays as text");
        result_ += '}';
    }

    void replace(std::size_t place, std::string_view inBraces, const Replacement& by) {
        if (by.letters.empty()) {
            lose(inBraces, "which has no code");
            if (!open_.empty())
                open_.back().lastTurn = std::max(open_.back().lastTurn, by.turn);
        }
        result_.resize(place);
        result_ += by.letters;
        result_.resize(result_.size() + by.digits, '0');
        for (int rest = by.number, back = 1; rest > 0; rest /= 10, ++back)
            *(result_.end() - back) = static_cast<char>('0' + rest % 10);
    }

    void lose(std::string_view inBraces, const char* why) {
        losses_.push_back("placeholder \"{" + std::string(inBraces) + "}\", " + why);
    }

    std::vector<std::string>& losses_;
    std::string result_;
    std::vector<OpenBrace> open_;
};

} // namespace

std::string ConvertLegacyVariables(const std::string& text) {
    std::vector<std::string> ignored;
    return ConvertLegacyVariables(text, ignored);
}

std::string ConvertLegacyVariables(const std::string& text, std::vector<std::string>& losses) {
    return traced(
        VariableFunction("ConvertLegacyVariables"), [&] { return Converter(losses).convert(text); },
        Arg{"text", text});
}

} // namespace qrtVistrelClasses4
