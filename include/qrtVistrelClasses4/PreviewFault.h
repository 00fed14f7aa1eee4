// What a preview could not show as the playfile wants it.
#pragma once

#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// A font that font 0 replaces, a picture that is drawn as a box, or text that cannot be seen.
struct PreviewFault {
    enum class What {
        numberedFont,      ///< The file of a numbered font is missing or cannot be read.
        customFont,        ///< The same for a font in a file of its own.
        unknownFontNumber, ///< There is no font of that number.
        unnamedFont,       ///< A line has a custom font, but does not name it.
        noFonts,           ///< None of the numbered fonts was found, so that no text in them is drawn.
        picture,           ///< A BMP file cannot be read.
        missingPicture, ///< The file of a picture does not exist, or the frame does not have its full path.
        lackingCharacters, ///< The font of a line lacks characters of its text.
        cutText, ///< A text that does not scroll is wider than the sign, or a text reaches below it. Of lines
                 ///< that are below the sign altogether, only the first one of a frame that has a text is
                 ///< named.
    };

    What what;
    /// The number of the font, the name of its file as the line has it, or the path of the picture; for
    /// `noFonts` the folder that should have them, and for `lackingCharacters` these, each once.
    std::string name = {};
    /// What loading the font reported to the operator, in order, and whether font 0 is used instead.
    std::vector<std::string> messages = {};
    /// Why the file of the font could not be read.
    std::optional<RuntimeError> error = {};
    std::int32_t frame = 0; ///< Number of the frame with the picture or the text, from 1.
    std::int32_t line = 0;  ///< Number of the line with the text, from 1.
};

} // namespace qrtVistrelClasses4
