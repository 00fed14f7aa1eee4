// The parts of a JPEG file, checked before a library decodes them.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// A JPEG file without the parts that mean nothing for its pixels. Empty for other files, for those that are
/// cut short, and for those that stb_image must not see: it would write a table of more than 256 codes beyond
/// its end, and each scan takes time for the whole picture, however few bytes it has.
std::string CheckedJpeg(std::string_view bytes);

} // namespace qrtVistrelClasses4
