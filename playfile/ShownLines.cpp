#include "playfile/ShownLines.h"

#include "fonts/TextDrawing.h"

namespace qrtVistrelClasses4 {

std::int64_t ShownLines::widthOf(const LineRecord& line) { return WidthOf({*fontOf(line)}, textOf(line)); }

} // namespace qrtVistrelClasses4
