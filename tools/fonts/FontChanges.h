// What a new font changes in the one that it replaces.
#pragma once

#include "tools/fonts/FontPictures.h"

#include <string>

namespace qrtVistrelClasses4 {

/// For example "changed: A, B; new: É; removed: x". Without a difference "nothing has changed".
std::string ChangesOf(const FontPictures& before, const FontPictures& after);

} // namespace qrtVistrelClasses4
