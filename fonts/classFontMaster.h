// The font of a sign, and texts drawn in it dot by dot. Internal: a header of the system that makes a macro
// of `DrawText` must not be included together with this one.
#pragma once

#include "fonts/FontLoading.h"
#include "fonts/TextDrawing.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {

/// One loaded font. Texts are 8-bit characters, and letters in them are numbered from 1. Sizes of fonts are
/// in dots, positions and widths on a target in pixels. A fraction of a position is rounded down. One thread
/// at a time.
///
/// All members except the accessors of properties are traced and trap their errors; they then return 0 or
/// false. If loading fails, the font stays as it was.
class classFontMaster {
public:
    static constexpr std::string_view ClassName() { return "classFontMaster"; }

    // Properties.

    /// Makes `LoadFontByNum` take the newer files.
    bool UseNewFont() const { return useNewFont_; }
    void UseNewFont(bool vData) { useNewFont_ = vData; }
    /// Stored for the host.
    bool UseNew16x16() const { return useNew16x16_; }
    void UseNew16x16(bool vData) { useNew16x16_ = vData; }
    /// Pixels from one dot to the next, across and down. Below 1 nothing is drawn.
    std::int16_t MagTimes() const { return magTimes_; }
    void MagTimes(std::int16_t vData) { magTimes_ = vData; }
    /// Colour of lit dots.
    Color FontColor() const { return fontColor_; }
    void FontColor(Color vData) { fontColor_ = vData; }
    /// Stored for the host.
    std::int16_t DisplayWidth() const { return displayWidth_; }
    void DisplayWidth(std::int16_t vData) { displayWidth_ = vData; }
    /// Size of a letter's cell.
    std::int16_t FontWidth() const { return font_.width; }
    std::int16_t FontHeight() const { return font_.height; }
    /// The loaded font.
    const Font& Value() const { return font_; }

    // Loading. File names are found in any case of their letters.

    using MessageHandler = std::function<void(const std::string& message)>;
    /// Sets what receives the messages of `LoadFont` and `LoadFontByNum` for the operator. They arrive after
    /// the search that they are about, and before the font changes.
    void OnMessage(MessageHandler handler) { onMessage_ = std::move(handler); }

    /// Loads the file `path`, or a file of that name in "Extended" or "CustomFonts" of the application
    /// folder, or font 0 if a standard font is missing; see `LoadFontFile`. If both sizes are
    /// `kSizeFromFile`, the file holds the size. False if there is no such file, or if it ends before its
    /// glyphs start.
    bool LoadFont(const std::string& path, std::int16_t width, std::int16_t height);
    /// Loads a numbered font from "bin" of the application folder. False for a number without a font.
    bool LoadFontByNum(std::int16_t fontNumber, std::int16_t signType);
    /// Loads the file `path` itself, without a search or a message. A file that is missing or ends too early
    /// is an error. An empty path loads nothing.
    bool LoadExistingFont(const std::string& path, std::int16_t width, std::int16_t height);
    /// Sets only the size. A number without a font changes nothing.
    void FontSizeByNum(std::int16_t fontNumber);

    // Letters. Of a text, only the first character counts. A character without a glyph is not drawn and has
    // no width.

    /// Index of the glyph's first byte in the font's store, which may be outside the store; -1 for a
    /// character that the font lacks.
    std::int32_t GlyphOffset(const std::string& letter);
    /// Draws a letter. Its dots start one dot right of `x`. If `drawBackground` is not 0, dark dots are drawn
    /// in the target's background colour. If `useBitmapDC` is not 0, the letter is drawn on the target's
    /// bitmap. `advance` becomes the letter's width: the distance to the next one.
    void DrawLetter(const std::string& letter, DrawingTarget& target, float x, float y,
                    std::int16_t drawBackground, std::int16_t useBitmapDC, std::int32_t& advance);
    /// Width of a letter, including the gap after it.
    std::int32_t LetterWidth(const std::string& letter);

    // Texts.

    /// Width of all letters.
    std::int32_t TextWidth(const std::string& text);
    /// Draws all letters side by side. The device context is taken once. `advance` becomes the text's width.
    void DrawText(const std::string& text, DrawingTarget& target, float x, float y,
                  std::int16_t drawBackground, std::int16_t useBitmapDC, std::int32_t& advance);
    /// Draws the cells of the letters `firstLetter` to `lastLetter` of a text at `x`, `y`, with lit dots in
    /// the background colour and all others in `FontColor`, gaps included.
    void HilightSelection(const std::string& text, DrawingTarget& target, float x, float y,
                          std::int16_t firstLetter, std::int16_t lastLetter, std::int16_t useBitmapDC);
    /// Shows a mark before letter `index` of a text at `x`, `y`; the next call hides it. An index below 1
    /// means the start of the text, and one above the number of letters its end. The mark is one dot wide and
    /// covers the last column of the letter before it, whose dots are drawn again when the mark goes. Hide a
    /// mark with the text and the index that it was shown with before showing another.
    void CycleIndexMarker(const std::string& text, DrawingTarget& target, float x, float y,
                          std::int16_t index, std::int16_t useBitmapDC);

private:
    // Font 0 is loaded in place of another font only once.
    bool loadFile(const std::string& path, std::int16_t width, std::int16_t height, bool mayUseFont0);
    bool loadNumbered(std::int16_t fontNumber, std::int16_t signType, bool mayUseFont0);

    Lettering lettering() const { return {font_, magTimes_, fontColor_}; }

    Font font_;
    bool useNewFont_ = false;
    bool useNew16x16_ = false;
    std::int16_t magTimes_ = 1;
    Color fontColor_ = 0;
    std::int16_t displayWidth_ = 0;
    bool isMarkerShown_ = false;
    MessageHandler onMessage_;
};

} // namespace qrtVistrelClasses4
