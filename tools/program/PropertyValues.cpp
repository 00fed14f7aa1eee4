#include "tools/program/PropertyValues.h"

#include <algorithm>

namespace qrtVistrelClasses4 {

std::string CellText(const nlohmann::ordered_json& value) {
    if (value.is_string())
        return Visible(value.get<std::string>());
    return value.is_number_float() ? NumberToText(value.get<double>()) : value.dump();
}

std::string CellText(std::string_view property, const nlohmann::ordered_json& value) {
    const std::string_view meaning =
        value.is_number_integer() ? NameOfNumber(property, value.get<std::int16_t>()) : "";
    return CellText(value) + (meaning.empty() ? "" : " (" + std::string(meaning) + ")");
}

std::string ChangeText(const ChangedProperty& change) {
    const auto text = [&](const nlohmann::ordered_json& value) {
        const std::string cell = CellText(change.name, value);
        return cell.empty() ? "\"\"" : cell;
    };
    return change.name + ": " + text(change.before) + " -> " + text(change.after);
}

bool LooksLikeName(std::string_view text) {
    const char first = text.empty() ? ' ' : AsciiUpper(text.front());
    return first >= 'A' && first <= 'Z';
}

bool TypedIn<bool>::read(const std::string& text) {
    for (const std::string_view yes : {"yes", "on"})
        if (EqualIgnoringAsciiCase(text, yes))
            return true;
    for (const std::string_view no : {"no", "off"})
        if (EqualIgnoringAsciiCase(text, no))
            return false;
    return TextToBoolean(text);
}

bool HasDoubtfulComma(std::string_view text, bool isWhole) {
    constexpr std::size_t digitsOfThousands = 3;
    const std::size_t comma = text.find(',');
    return comma != text.npos &&
           (isWhole || WithoutBlanks(text.substr(comma + 1)).size() == digitsOfThousands);
}

std::optional<std::pair<std::string_view, std::string_view>> SplitAssignment(std::string_view typed,
                                                                             ErrorLines& errors) {
    const std::size_t equals = typed.find('=');
    if (equals != typed.npos && equals > 0)
        return std::pair(typed.substr(0, equals), typed.substr(equals + 1));
    errors.about(typed);
    errors.add("a property takes the form Property=Value");
    return std::nullopt;
}

std::optional<std::string> AnsiFromTyped(std::string_view typed, ErrorLines& errors) {
    std::optional<std::string> ansi = AnsiFromUtf8(typed);
    if (!ansi) {
        errors.add(WhyNotAnsi(typed));
        return std::nullopt;
    }
    if (std::ranges::any_of(*ansi,
                            [](char character) { return static_cast<unsigned char>(character) < ' '; })) {
        errors.add("a value has no line breaks or other control characters");
        return std::nullopt;
    }
    return ansi;
}

} // namespace qrtVistrelClasses4
