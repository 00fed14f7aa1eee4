// The font of a sign, and text drawn in it, dot by dot.
#pragma once

#include "fonts/DotPainter.h"
#include "fonts/FontFile.h"
#include "fonts/Letter.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#undef DrawText // the name of a macro where the headers of Windows have been included

namespace qrtVistrelClasses4 {

/// One loaded font. Texts are 8-bit characters; letters in them are numbered from 1. Sizes of fonts are in
/// dots, positions and widths on a target in pixels; a position's fraction is cut off downwards. One thread
/// at a time.
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

    /// Loads the file `path`, or one of its name in "Extended" or "CustomFonts" of the application folder; a
    /// standard font that is nowhere is replaced by font 0. With both sizes `kSizeFromFile` the file tells
    /// them. False when there is none, or when it ends before its glyphs start.
    bool LoadFont(const std::string& path, std::int16_t width, std::int16_t height);
    /// Loads a numbered font from "bin" of the application folder. False for a number without a font.
    bool LoadFontByNum(std::int16_t fontNumber, std::int16_t signType);
    /// Loads `path` itself, without a message: a file that is missing or ends too early is an error. An
    /// empty path loads nothing.
    bool LoadExistingFont(const std::string& path, std::int16_t width, std::int16_t height);
    /// Sets the size alone; a number without a font changes nothing.
    void FontSizeByNum(std::int16_t fontNumber);

    // Letters. A text stands for its first character. One without a glyph is not drawn and has no width.

    /// Index of the glyph in the font's store; below 0 or beyond the store when there is none.
    std::int32_t GlyphOffset(const std::string& letter);
    /// Draws a letter. Its dots start one dot right of `x`. `drawBackground` other than 0: dark dots are
    /// drawn in the target's background colour. `useBitmapDC` other than 0: on the target's bitmap. `advance`
    /// becomes the letter's width, where the next one is to start.
    void DrawLetter(const std::string& letter, DrawingTarget& target, float x, float y,
                    std::int16_t drawBackground, std::int16_t useBitmapDC, std::int32_t& advance);
    /// Width of a letter with the gap behind it.
    std::int32_t LetterWidth(const std::string& letter);

    // Texts.

    /// Width of all letters.
    std::int32_t TextWidth(const std::string& text);
    /// Draws all letters, each where the one before ends, with the device context taken once. `advance`
    /// becomes the text's width.
    void DrawText(const std::string& text, DrawingTarget& target, float x, float y,
                  std::int16_t drawBackground, std::int16_t useBitmapDC, std::int32_t& advance);
    /// Draws the cells of the letters `firstLetter` to `lastLetter` of a text at `x`, `y` with lit dots in
    /// the background colour and all others in `FontColor`, gaps included. Letters outside the text are none.
    void HilightSelection(const std::string& text, DrawingTarget& target, float x, float y,
                          std::int16_t firstLetter, std::int16_t lastLetter, std::int16_t useBitmapDC);
    /// Shows a mark before letter `index` of a text at `x`, `y`, and hides it at the next call. An index
    /// below 1 is the front of the text, one beyond it its end. The mark is one dot wide and takes the last
    /// column of the letter before, whose dots are drawn again when it goes. A shown mark must be hidden with
    /// the index and the text that it was shown with before another is asked for.
    void CycleIndexMarker(const std::string& text, DrawingTarget& target, float x, float y,
                          std::int16_t index, std::int16_t useBitmapDC);

private:
    enum class Fallback { toFont0, none };
    bool load(const std::string& path, std::int16_t width, std::int16_t height, Fallback fallback);
    bool loadNumbered(std::int16_t fontNumber, std::int16_t signType, Fallback fallback);
    /// The file at `path`, or one of its name where fonts are kept. "" when there is none.
    std::string findFont(const std::string& path);
    void tell(const std::string& message);

    std::int64_t widthOf(const Letter& letter) const;
    /// Letters without a glyph have no width.
    std::int64_t widthOf(std::string_view text) const;
    /// As the caller gives it. What is nowhere matters only where something is drawn.
    struct Position {
        float x;
        float y;
    };
    /// The text's width, which has been drawn.
    std::int32_t drawLetters(std::string_view text, DrawingTarget& target, Position position, bool background,
                             bool useBitmapDC);
    DotStyle dotStyle(Ink lit, Ink dark) const { return {magTimes_, fontColor_, lit, dark}; }

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
