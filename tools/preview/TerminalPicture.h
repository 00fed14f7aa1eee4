// The dots of a sign as characters of a terminal.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <cstdint>
#include <ostream>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Prints dots as the screen of `out` can show them: with block elements, one dot wide and two high, or two
/// by two if the screen is too narrow otherwise; else with a letter for each dot, "#" if it is lit, "+" if it
/// is lit to less than half, "." if it is dark. Cuts off what is still too wide.
void PrintDots(std::ostream& out, const Raster& dots);

/// Prints a line on how pictures `width` dots wide are made to fit, unless they fit anyway. `remedy` ends it
/// if something is cut off.
void PrintWidthNote(std::ostream& out, std::int32_t width, std::string_view remedy);

} // namespace qrtVistrelClasses4
