// The font of a sign, and text drawn in it, dot by dot.
#pragma once

#include "fonts/DrawingTarget.h"
#include "fonts/FontFile.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// One loaded font. Texts are 8-bit characters; letters in them are numbered from 1. Sizes of fonts are in
/// dots, positions and widths on a target in pixels. One thread at a time.
///
/// All members but the accessors of properties are traced, and trap their errors: the result is then 0 or
/// false. A load that fails leaves the font as it was.
class classFontMaster {
public:
    static constexpr std::string_view ClassName() { return "classFontMaster"; }

    // Properties.

    /// Takes the newer files in `LoadFontByNum`.
    bool UseNewFont() const { return useNewFont_; }
    void UseNewFont(bool vData) { useNewFont_ = vData; }
    /// Kept for the host.
    bool UseNew16x16() const { return useNew16x16_; }
    void UseNew16x16(bool vData) { useNew16x16_ = vData; }
    /// Pixels from one dot to the next, down as well as across. Nothing is drawn below 1.
    std::int16_t MagTimes() const { return magTimes_; }
    void MagTimes(std::int16_t vData) { magTimes_ = vData; }
    /// Colour of lit dots.
    Color FontColor() const { return fontColor_; }
    void FontColor(Color vData) { fontColor_ = vData; }
    /// Kept for the host.
    std::int16_t DisplayWidth() const { return displayWidth_; }
    void DisplayWidth(std::int16_t vData) { displayWidth_ = vData; }
    /// Size of a letter's cell.
    std::int16_t FontWidth() const { return font_.width; }
    std::int16_t FontHeight() const { return font_.height; }

    // Loading. File names are found in any case of their letters.

    using MessageHandler = std::function<void(const std::string& message)>;
    /// Hears what `LoadFont` and `LoadFontByNum` have to tell the operator.
    void OnMessage(MessageHandler handler) { onMessage_ = std::move(handler); }

    /// Loads the file `sPath`, or one of its name in "Extended" or "CustomFonts" of the application folder; a
    /// standard font that is nowhere is replaced by font 0. With both sizes `kSizeFromFile` the file tells
    /// them. False when there is none, or when it ends before its glyphs start.
    bool LoadFont(const std::string& sPath, std::int16_t iWidth, std::int16_t iHeight);
    /// Loads a numbered font from "bin" of the application folder. False for a number without a font.
    bool LoadFontByNum(std::int16_t FontNumber, std::int16_t SignType);
    /// Loads `sPath` itself, without a message: a file that is missing or ends too early is an error. An
    /// empty path loads nothing.
    bool LoadExistingFont(const std::string& sPath, std::int16_t iWidth, std::int16_t iHeight);
    /// Sets the size alone; a number without a font changes nothing.
    void FontSizeByNum(std::int16_t FontNumber);

    // Letters. A text stands for its first character. One without a glyph is not drawn and has no width.

    /// Index of the glyph in the font's store; below 0 or beyond the store when there is none.
    std::int32_t GlyphOffset(const std::string& sLetter);
    /// Draws a letter. Its dots start one dot right of `X`. `DrawBackground` other than 0: dark dots are
    /// drawn in the target's background colour. `UseBitmapDC` other than 0: on the target's bitmap. `Advance`
    /// becomes the letter's width, where the next one is to start.
    void DrawLetter(const std::string& sLetter, DrawingTarget& Target, float X, float Y,
                    std::int16_t DrawBackground, std::int16_t UseBitmapDC, std::int32_t& Advance);
    /// Width of a letter with the gap behind it.
    std::int32_t LetterWidth(const std::string& sLetter);

    // Texts.

    /// Width of all letters.
    std::int32_t TextWidth(const std::string& sText);
    /// Draws all letters, each where the one before ends. `Advance` becomes the text's width.
    void DrawText(const std::string& sText, DrawingTarget& Target, float X, float Y,
                  std::int16_t DrawBackground, std::int16_t UseBitmapDC, std::int32_t& Advance);
    /// Draws the cells of the letters `FirstLetter` to `LastLetter` of a text at `X`, `Y` with lit dots in
    /// the background colour and all others in `FontColor`, gaps included. Letters outside the text are none.
    void HilightSelection(const std::string& sText, DrawingTarget& Target, float X, float Y,
                          std::int16_t FirstLetter, std::int16_t LastLetter, std::int16_t UseBitmapDC);
    /// Shows a mark before letter `Index` of a text at `X`, `Y`, and hides it at the next call. An index
    /// below 1 is the front of the text, one beyond it its end. The mark is one dot wide and takes the last
    /// column of the letter before, whose dots are drawn again when it goes.
    void CycleIndexMarker(const std::string& sText, DrawingTarget& Target, float X, float Y,
                          std::int16_t Index, std::int16_t UseBitmapDC);

private:
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
