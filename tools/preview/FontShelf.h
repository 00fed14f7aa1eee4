// The fonts that lines of frames are drawn in.
#pragma once

#include "fonts/classFontMaster.h"
#include "tools/program/ErrorLines.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>

namespace qrtVistrelClasses4 {

/// Loads each font as good as once, by whatever names lines call its file, and tells what it does not find.
class FontShelf {
public:
    using FontPointer = std::shared_ptr<classFontMaster>;

    /// Font 5 depends on the type of the sign. `errors` must outlive the shelf.
    FontShelf(std::int16_t signType, ErrorLines& errors) : signType_(signType), errors_(errors) {}

    /// The font of that number, or for numbers beyond the last one the font in the file `customFont`. Font 0
    /// stands in for one that cannot be loaded; where that is missing, too, letters have no dots.
    FontPointer find(std::int16_t number, const std::string& customFont);

    /// Fonts in files of their own that are kept at a time.
    static constexpr std::size_t kMostCustomFonts = 64;

private:
    FontPointer findNumbered(std::int16_t number);
    FontPointer findCustom(const std::string& name);
    /// Null, after telling why, where font 0 has to stand in.
    FontPointer load(std::int16_t number, const std::string& customFont);

    std::int16_t signType_;
    ErrorLines& errors_;
    std::map<std::int16_t, FontPointer> numbered_;
    std::unordered_map<std::string, std::string> files_;  ///< By name; "" where font 0 stands in.
    std::unordered_map<std::string, FontPointer> custom_; ///< By file.
};

} // namespace qrtVistrelClasses4
