#include "tools/program/PropertyValues.h"

#include <algorithm>

namespace qrtVistrelClasses4 {

std::string CellText(const nlohmann::ordered_json& value) {
    if (value.is_string())
        return Visible(value.get<std::string>());
    return value.is_number_float() ? NumberToText(value.get<double>()) : value.dump();
}

std::optional<std::string> AnsiFromTyped(std::string_view typed, ErrorLines& errors) {
    std::optional<std::string> ansi = AnsiFromUtf8(typed);
    if (!ansi) {
        errors.add("a character of the value is not in Windows-1252");
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
