// The numbered fonts.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Fonts are numbered from 0. Several numbers may mean the same font.
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

    /// Nothing for a number without a font.
    static std::optional<CellSize> FontSize(std::int16_t FontNumber);
    /// Name of the font's file, without a folder, in the newer or the older set. Nothing for a number without
    /// a font. In the newer set, some types of sign have a font 5 of their own.
    static std::optional<std::string_view> FontFile(std::int16_t FontNumber, std::int16_t SignType,
                                                    bool UseNewFont);
};

/// Finches (types 104 and 105), and the Kestrel of type 22, which has their letters.
constexpr bool HasFinchLetters(std::int16_t signType) {
    return signType == 104 || signType == 105 || signType == 22;
}

/// Kestrels (types 16 to 25) and Finches (104 and 105).
constexpr bool HasKestrelOrFinchLetters(std::int16_t signType) {
    return (signType >= 16 && signType <= 25) || signType == 104 || signType == 105;
}

} // namespace qrtVistrelClasses4
