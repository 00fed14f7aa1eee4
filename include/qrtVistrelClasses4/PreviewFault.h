// What a preview could not show as the playfile wants it.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/FontFault.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstdint>
#include <optional>
#include <string>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// A font that font 0 replaces, a picture that is drawn as a box, or text that cannot be seen.
struct PreviewFault {
    enum class What {
        missingFont,       ///< The file of a font is missing.
        unreadableFont,    ///< The file of a font cannot be read.
        cutShortFont,      ///< The file of a font ends before its letters start.
        unknownFontNumber, ///< There is no font of that number.
        unnamedFont,       ///< A line has a custom font, but does not name it.
        noFonts,           ///< None of the numbered fonts was found, so that no text in them is drawn.
        picture,           ///< A picture of a kind that is read cannot be read.
        missingPicture, ///< The file of a picture does not exist, or the frame does not have its full path.
        lackingCharacters, ///< The font of a line lacks characters of its text.
        cutText, ///< A text that does not scroll is wider than the sign, or a text reaches below it. Of lines
                 ///< that are below the sign altogether, only the first one of a frame that has a text is
                 ///< named.
    };

    What what;
    /// The path of the font's file or of the picture, or the number of a font that there is not; for
    /// `noFonts` the folder that should have them, and for `lackingCharacters` these, each once. The path of
    /// a missing font in a file of its own is what the line has.
    std::string name = {};
    /// Whether font 0 is used instead of the font. Otherwise its lines have no dots.
    bool isReplaced = false;
    /// Why the file of the font could not be read.
    std::optional<RuntimeError> error = {};
    std::int32_t frame = 0; ///< Number of the frame with the picture or the text, from 1.
    std::int32_t line = 0;  ///< Number of the line with the text, from 1.
};

/// The same for a font that could not be loaded.
QRT_PUBLIC PreviewFault PreviewFaultOf(FontFault fault);

} // namespace qrtVistrelClasses4
