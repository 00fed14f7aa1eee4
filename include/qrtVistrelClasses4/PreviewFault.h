// What a preview could not show as the playfile wants it.
#pragma once

#include <qrtVistrelClasses4/RuntimeError.h>

#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// A font that font 0 replaces, or a picture that is drawn as a box.
struct PreviewFault {
    enum class What {
        numberedFont,      ///< The file of a numbered font is missing or cannot be read.
        customFont,        ///< The same for a font in a file of its own.
        unknownFontNumber, ///< There is no font of that number.
        unnamedFont,       ///< A line has a custom font, but does not name it.
        picture,           ///< A BMP file cannot be read.
    };

    What what;
    /// The number of the font, the name of its file as the line has it, or the path of the picture.
    std::string name = {};
    /// What loading the font reported to the operator, in order, and whether font 0 is used instead.
    std::vector<std::string> messages = {};
    /// Why the file of the font could not be read.
    std::optional<RuntimeError> error = {};
};

} // namespace qrtVistrelClasses4
