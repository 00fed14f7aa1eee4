// Fonts that could not be loaded.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstdint>
#include <optional>
#include <string>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// A font of a line that could not be loaded.
struct FontFault {
    enum class What : std::uint8_t {
        missing,       ///< Its file is missing.
        unreadable,    ///< Its file cannot be read.
        cutShort,      ///< Its file ends before its letters start.
        unknownNumber, ///< There is no font of that number.
        unnamed,       ///< A line has a custom font, but does not name it.
        noFonts,       ///< None of the numbered fonts was found, so that no text in them is drawn.
    };

    What what;
    /// The path of the font's file, or the number of a font that there is not; for `noFonts` the folder that
    /// should have them. The path of a missing font in a file of its own is what the line has.
    std::string name = {};
    /// Whether font 0 is used instead of the font. Otherwise its lines have no dots.
    bool isReplaced = false;
    /// Why the file of the font could not be read.
    std::optional<RuntimeError> error = {};
};

} // namespace qrtVistrelClasses4
