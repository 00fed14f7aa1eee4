#include "fonts/clsFontSizes.h"

#include <array>
#include <cstddef>

namespace qrtVistrelClasses4 {
namespace {

struct NumberedFont {
    CellSize size;
    std::string_view newFile;
    std::string_view file;
};

constexpr NumberedFont kStandard{{6, 8}, "Fstnd08.cmd", "6x8.cmd"};
constexpr NumberedFont kNarrow{{4, 8}, "4x8.cmd", "4x8.cmd"};
constexpr NumberedFont kCondensed{{5, 8}, "Fstnd5x8.cmd", "5x8.cmd"};
constexpr NumberedFont kBold{{6, 8}, "Fstnd68b.cmd", "6x8fb.cmd"};
constexpr NumberedFont kTwoLines{{16, 16}, "Fstnd16.cmd", "16x16.cmd"};
constexpr NumberedFont kThreeLines{{24, 24}, "24x24.cmd", "24x24.cmd"};
constexpr NumberedFont kFourLines{{24, 32}, "24x32.cmd", "24x32.cmd"};

constexpr std::string_view kKestrelBoldFile = "Fsacl68b.cmd";
constexpr std::int16_t kBoldNumber = 5;

constexpr std::array<const NumberedFont*, kNumberedFonts> kFonts{
    &kStandard, &kStandard, &kNarrow,     &kCondensed,  &kCondensed, &kBold,
    &kTwoLines, &kTwoLines, &kThreeLines, &kThreeLines, &kFourLines, &kFourLines};

const NumberedFont* find(std::int16_t number) {
    return number >= 0 && number < kNumberedFonts ? kFonts[static_cast<std::size_t>(number)] : nullptr;
}

} // namespace

std::optional<CellSize> clsFontSizes::FontSize(std::int16_t FontNumber) {
    const NumberedFont* font = find(FontNumber);
    return font ? std::optional(font->size) : std::nullopt;
}

std::optional<std::string_view> clsFontSizes::FontFile(std::int16_t FontNumber, std::int16_t SignType,
                                                       bool UseNewFont) {
    const NumberedFont* font = find(FontNumber);
    if (!font)
        return std::nullopt;
    if (!UseNewFont)
        return font->file;
    const bool isKestrel = HasKestrelOrFinchLetters(SignType) && !HasFinchLetters(SignType);
    return FontNumber == kBoldNumber && isKestrel ? kKestrelBoldFile : font->newFile;
}

} // namespace qrtVistrelClasses4
