#include "tools/program/Size.h"

#include <charconv>

namespace qrtVistrelClasses4 {

std::optional<std::int32_t> NumberFromText(std::string_view text, std::int32_t least, std::int32_t most) {
    std::int32_t number = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end || text.front() == '-' || number < least || number > most)
        return std::nullopt;
    return number;
}

std::optional<DotSize> SizeFromText(std::string_view text, std::int32_t largest) {
    const std::size_t by = text.find_first_of("xX");
    if (by == text.npos)
        return std::nullopt;
    const auto width = NumberFromText(text.substr(0, by), 1, largest);
    const auto height = NumberFromText(text.substr(by + 1), 1, largest);
    return width && height ? std::optional(DotSize{*width, *height}) : std::nullopt;
}

void AddSizeOption(CLI::App& command, std::optional<DotSize>& size, std::int32_t largest,
                   const std::string& description) {
    const auto take = [&size, largest](const std::string& text) {
        size = SizeFromText(text, largest);
        if (!size)
            throw CLI::ValidationError("--size", "takes width and height from 1 to " +
                                                     std::to_string(largest) + ", as in 128x32");
    };
    command.add_option_function<std::string>("--size", take, description)->type_name("WIDTHxHEIGHT");
}

} // namespace qrtVistrelClasses4
