// The fonts that the lines of frames are drawn in.
#pragma once

#include "fonts/FontFile.h"
#include <qrtVistrelClasses4/FontFault.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qrtVistrelClasses4 {

struct FontOutcome;

/// A font with the widths of all characters, by code.
struct MeasuredFont : Font {
    explicit MeasuredFont(Font font);
    /// Width of a text in dots, as `WidthOf` has it.
    std::int64_t widthOf(std::string_view text) const {
        std::int64_t sum = 0;
        for (const char character : text)
            sum += widths[static_cast<unsigned char>(character)];
        return sum;
    }

    std::array<std::int32_t, 256> widths{};
};

/// Caches fonts, so that each is usually loaded only once, whatever names lines have for its file.
class FontCache {
public:
    using FontPointer = std::shared_ptr<const MeasuredFont>;

    /// Font 5 depends on the type of the sign.
    explicit FontCache(std::int16_t signType) : signType_(signType) {}

    /// The font of a number. Numbers above the last one mean the font in the file `customFont`. If the font
    /// cannot be loaded, the result is font 0; if that is missing too, a font whose letters have no dots.
    FontPointer find(std::int16_t number, const std::string& customFont);
    /// Whether `find` returned the font without dots.
    bool isEmpty(const FontPointer& font) const { return font == empty_; }

    /// The fonts that could not be loaded since the last call.
    std::vector<FontFault> takeFaults();

    /// Custom fonts that are kept at a time.
    static constexpr std::size_t kMostCustomFonts = 64;

private:
    FontPointer findNumbered(std::int16_t number);
    FontPointer findCustom(const std::string& name);
    /// Replaces the last fault, about a numbered font, by one for all of them, unless there is such a fault
    /// already. Does nothing and returns false if only some numbered fonts are missing.
    bool replaceFaultByNoFonts();
    /// Font 0, in place of the font that the last fault is about.
    FontPointer useFont0();
    FontPointer useEmptyFont();
    /// The font that was loaded from `path`, where it should be. Null, and one more fault, if font 0 has to
    /// replace it.
    FontPointer accept(FontOutcome&& outcome, const std::string& path);
    /// Null, and the fault.
    FontPointer refuse(FontFault fault);

    std::int16_t signType_;
    std::vector<FontFault> faults_;
    std::map<std::int16_t, FontPointer> numbered_;
    FontPointer empty_; ///< Null unless font 0 is missing.
    bool hasNoFonts_ = false;
    /// The files of custom fonts by the names that lines have for them. Nothing if font 0 replaces the font.
    std::unordered_map<std::string, std::optional<std::string>> files_;
    std::unordered_map<std::string, FontPointer> custom_; ///< By file.
};

} // namespace qrtVistrelClasses4
