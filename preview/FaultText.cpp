#include "preview/FaultText.h"

#include "platform/FileNames.h"
#include "platform/Path.h"
#include <qrtVistrelClasses4/PictureReader.h>
#include <qrtVistrelClasses4/Utf8.h>

namespace qrtVistrelClasses4 {
namespace {

/// The name of a font's file without its folder: the file was looked for in several.
std::string fontName(const std::string& path) {
    const std::string name(SplitPath(path).name);
    return Utf8FromName(name.empty() ? path : name);
}

/// What is wrong with a font.
std::string textOfFontFault(const PreviewFault& fault, const std::string& reason) {
    using enum PreviewFault::What;
    switch (fault.what) {
    case unnamedFont:
        return "a custom font has no name";
    case unknownFontNumber:
        return "there is no font " + fault.name;
    case missingFont:
        return "the font " + fontName(fault.name) + " is missing";
    case unreadableFont:
        return "the font " + Utf8FromName(fault.name) + " cannot be read: " + reason;
    default:
        return "the font " + Utf8FromName(fault.name) + " is cut short";
    }
}

/// Characters of a font with blanks between them. A blank itself is in quotation marks.
std::string listOfCharacters(const std::string& characters) {
    std::string list;
    for (const char character : characters)
        list += (list.empty() ? "" : " ") +
                (character == ' ' ? std::string("\" \"") : Utf8FromAnsi(std::string(1, character)));
    return list;
}

} // namespace

std::string TextOfFault(const PreviewFault& fault, const std::string& reason) {
    using enum PreviewFault::What;
    switch (fault.what) {
    case noFonts:
        return "there are no fonts: put the font files of the sign into " + Utf8FromName(fault.name);
    case lackingCharacters:
        return "the font lacks " + listOfCharacters(fault.name);
    case cutText:
        return "the text is cut at the edge of the sign";
    case missingPicture:
        return Utf8FromName(fault.name) + " is missing";
    case picture: {
        const std::string side = std::to_string(kLargestPictureSide);
        const std::string largest = side + " x " + side + " pixels";
        return Utf8FromName(SplitPath(fault.name).name) + " cannot be drawn: it is " +
               (HasEnding(fault.name, "bmp")
                    ? "not an uncompressed BMP of up to " + largest
                    : "damaged, of a form that is not read, or larger than " + largest);
    }
    default:
        return textOfFontFault(fault, reason) +
               (fault.isReplaced ? "; font 0 is used instead" : "; its lines stay empty");
    }
}

} // namespace qrtVistrelClasses4
