// Loading fonts: where their files are found, and what is loaded in place of a missing one.
#pragma once

#include "fonts/FontFile.h"
#include "fonts/clsFontSizes.h"
#include "platform/SystemError.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// The file that a font was loaded from.
enum class FontSource {
    requestedFile,     ///< The file that was asked for.
    sameNameElsewhere, ///< A file of the same name in another folder.
    font0,             ///< The file of font 0, in place of a standard font that is missing.
};

/// What came of loading a font.
struct [[nodiscard]] FontOutcome {
    /// Nothing if no file was found, or if it could not be read or ends before its glyphs start.
    std::optional<Font> font;
    /// The file that was found, spelt as on the disk.
    std::optional<std::string> path;
    FontSource source = FontSource::requestedFile;
    /// Messages for the operator, in order.
    std::vector<std::string> messages;
    /// Why the file that was found could not be read.
    SystemError error = SystemError::none;
};

/// Reads the font in the file `path`. Nothing if the file ends before its glyphs start.
Result<std::optional<Font>> ReadFont(const std::string& path, std::int16_t width, std::int16_t height);

/// Gives the font in the file `path` letters that it lacks, from the extended fonts that are there for its
/// name or for its size. Returns the names of those that are damaged, which are left out.
std::vector<std::string> AddExtendedLetters(Font& font, const std::string& path);
/// What a file is to an extended font.
enum class ExtendedPart { none, ofWhole, ofDamaged };
/// A file ending in ".IDX" is a part of one, and a file ending in ".CFF" if there is such a file beside it.
ExtendedPart ExtendedPartOf(const std::string& path);

/// The file `path`, or the one of that name in "Extended" or "CustomFonts", as `LoadFontFile` finds it.
std::optional<std::string> FindFontFile(const std::string& path);

/// Loads the font in the file `path`, or in a file of that name in "Extended" or "CustomFonts" of the
/// application folder, of the program's folder or of what was installed with the program. If a standard font
/// is in none of them, font 0 is loaded instead. Names of files are found in any case of their letters. If
/// `width` and `height` are `kSizeFromFile`, the file holds the size. `useNewFont` chooses the set of
/// numbered fonts that font 0 is taken from.
FontOutcome LoadFontFile(const std::string& path, std::int16_t width, std::int16_t height, bool useNewFont);

/// Loads a numbered font from "bin" of the same folders. If it is not there, searches for it as
/// `LoadFontFile` does. A number without a font gives no font and no message.
FontOutcome LoadNumberedFont(std::int16_t fontNumber, std::int16_t signType, bool useNewFont);

/// The folder that should have the numbered fonts of a set, if none of them is found.
std::optional<std::string> FolderWithoutFonts(std::int16_t signType, bool useNewFont);

/// Full names of the files in the folders "Extended" and "CustomFonts" of the application folder and of what
/// was installed with the program, in order.
std::vector<std::string> OtherFontFiles();

// The steps of both, for `classFontMaster`, which has each on the trace.

/// The place of a numbered font.
struct NumberedFontFile {
    std::string path;
    CellSize size;
};
/// Nothing for a number without a font.
std::optional<NumberedFontFile> FindNumberedFont(std::int16_t fontNumber, std::int16_t signType,
                                                 bool useNewFont);

/// Loads a font like `LoadFontFile`, but not font 0. If `mayUseFont0` and font 0 has to be loaded instead,
/// the outcome's source is `font0`, and it has neither a font nor a path.
FontOutcome LoadFontUnlessReplaced(const std::string& path, CellSize size, bool mayUseFont0);

} // namespace qrtVistrelClasses4
