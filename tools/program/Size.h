// Sizes in dots, as people type them.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <CLI/CLI.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The number in `text`, which must consist of digits alone. Nothing unless it is from `least` to `most`.
std::optional<std::int32_t> NumberFromText(std::string_view text, std::int32_t least, std::int32_t most);

/// "128x32" or "128X32". Nothing unless both are numbers from 1 to `largest`.
std::optional<DotSize> SizeFromText(std::string_view text, std::int32_t largest);

/// "--size", which takes sizes up to `largest`. `size` must outlive the command.
void AddSizeOption(CLI::App& command, std::optional<DotSize>& size, std::int32_t largest,
                   const std::string& description);

} // namespace qrtVistrelClasses4
