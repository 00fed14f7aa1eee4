// Texts of the older generation's playfiles, and what their placeholders become.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace qrtVistrelClasses4::bench {

inline constexpr std::size_t kTexts = 1049;
inline constexpr std::size_t kTextSize = 255;
inline constexpr std::size_t kPlaceholdersInText = 8;

struct Replacement {
    std::string placeholder;
    std::string code;
};

/// All placeholders, in the order that they are replaced in.
std::vector<Replacement> MakeReplacements();

/// `kTexts` texts: any placeholders, evenly spread among words. The same at every call.
std::vector<std::string> MakeTexts(const std::vector<Replacement>& replacements);

} // namespace qrtVistrelClasses4::bench
