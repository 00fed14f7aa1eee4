// The dots of a sign as characters of a terminal.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <ostream>

namespace qrtVistrelClasses4 {

/// Prints dots in their colours. A cell of the terminal shows two dots, one above the other.
void PrintColoredDots(std::ostream& out, const Raster& dots);

/// Prints a letter for each dot: "#" if it is lit, "+" if it is lit to less than half, "." if it is dark.
void PrintPlainDots(std::ostream& out, const Raster& dots);

} // namespace qrtVistrelClasses4
