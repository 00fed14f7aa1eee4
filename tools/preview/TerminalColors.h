// Colours as terminals know them.
#pragma once

#include "platform/Terminal.h"
#include <qrtVistrelClasses4/Color.h>

#include <string>

namespace qrtVistrelClasses4 {

/// What a colour is for.
enum class Ground { letter, back };

/// The escape sequence that sets the colour, or the nearest one that there is. Of sixteen colours, only black
/// itself is shown as black. Empty without colours.
std::string ColorSequence(Ground ground, Color color, ColorDepth depth);

inline constexpr const char* kUsualColors = "\x1b[0m";

/// How different two colours look.
int ColorDistance(Color one, Color other);

} // namespace qrtVistrelClasses4
