// Where the files of fonts are searched.
#pragma once

#include <string>

namespace qrtVistrelClasses4 {

/// The file at `path`, or one of its name in "Extended" or "CustomFonts" of the application folder, each
/// found in any case of its letters; "" when there is none.
std::string FindFont(const std::string& path);

} // namespace qrtVistrelClasses4
