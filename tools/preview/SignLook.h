// The sign that a preview is made for.
#pragma once

#include "fonts/DrawingTarget.h"
#include "tools/program/ErrorLines.h"
#include "tools/program/Size.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

inline constexpr Color kAmber = Rgb(255, 170, 0);

/// A sign of one colour, of no special type, if nothing else is known.
struct SignLook {
    std::optional<DotSize> size;
    Color color = kAmber;
    bool showsColors = false; ///< Else pictures have brightness alone.
    std::int16_t type = 0;

    /// The colour of a dot for a pixel of a picture; 0, a dark dot, for a pixel that is nearly black.
    Color dotFor(Color pixel) const;
    /// The sign's own colour at half its brightness.
    Color dimmed() const;
};

/// The sign of the typed name, from the list of signs. Returns nothing, and adds the reason to `errors`, if
/// there is none.
std::optional<SignLook> FindSignLook(const std::string& typed, ErrorLines& errors);

} // namespace qrtVistrelClasses4
