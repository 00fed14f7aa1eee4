// The fonts that have a number.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Fonts are numbered from 0; several numbers may stand for one font.
inline constexpr std::int16_t kNumberedFonts = 12;

/// Size of a letter's cell in dots.
struct CellSize {
    std::int16_t width = 0;
    std::int16_t height = 0;
    friend bool operator==(const CellSize&, const CellSize&) = default;
};

class clsFontSizes {
public:
    static constexpr std::string_view ClassName() { return "clsFontSizes"; }

    /// None for a number without a font.
    static std::optional<CellSize> FontSize(std::int16_t FontNumber);
    /// Name of the font's file, without a folder, in the newer or the older set; "" for a number without a
    /// font. In the newer set font 5 has letters of its own for some types of sign.
    static std::string_view FontFile(std::int16_t FontNumber, std::int16_t SignType, bool UseNewFont);
};

/// Finches 104 and 105, and type 22 among the Kestrels, which has their letters.
constexpr bool HasFinchLetters(std::int16_t signType) {
    return signType == 104 || signType == 105 || signType == 22;
}

/// All Kestrels, which are types 16 to 25, and the Finches 104 and 105.
constexpr bool HasKestrelOrFinchLetters(std::int16_t signType) {
    return (signType >= 16 && signType <= 25) || signType == 104 || signType == 105;
}

} // namespace qrtVistrelClasses4
