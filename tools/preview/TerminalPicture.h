// The dots of a sign in letters.
#pragma once

#include "fonts/PixelBuffer.h"

#include <ostream>

namespace qrtVistrelClasses4 {

/// In colours, two dots above each other in one cell of the terminal.
void PrintColoredDots(std::ostream& out, const PixelBuffer& dots);

/// A letter a dot: "#" for one that is lit, "+" when not even to half, "." for a dark one.
void PrintPlainDots(std::ostream& out, const PixelBuffer& dots);

} // namespace qrtVistrelClasses4
