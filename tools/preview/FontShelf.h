// The fonts that lines of frames are drawn in.
#pragma once

#include "fonts/classFontMaster.h"
#include "tools/ErrorLines.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace qrtVistrelClasses4 {

/// Loads each font once, and tells what it does not find.
class FontShelf {
public:
    /// Font 5 depends on the type of the sign. `errors` must outlive the shelf.
    FontShelf(std::int16_t signType, ErrorLines& errors) : signType_(signType), errors_(errors) {}

    /// The font of that number, or for numbers beyond the last one the font in the file `customFont`. Font 0
    /// stands in for one that cannot be loaded; where that is missing, too, letters have no dots.
    classFontMaster& find(std::int16_t number, const std::string& customFont);

private:
    using Key = std::pair<std::int16_t, std::string>;
    std::shared_ptr<classFontMaster> load(const Key& key);

    std::int16_t signType_;
    ErrorLines& errors_;
    std::map<Key, std::shared_ptr<classFontMaster>> fonts_;
};

} // namespace qrtVistrelClasses4
