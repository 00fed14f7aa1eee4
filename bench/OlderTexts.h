// Texts of the older generation's playfiles, and what their placeholders become.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
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

/// `kTexts` texts: any placeholders, evenly spread among words. One text in seven has a brace without its
/// other half, or braces in braces. The same at every call.
std::vector<std::string> MakeTexts(const std::vector<Replacement>& replacements);

/// What a good programmer would write by hand to replace the placeholders of such texts.
class CarefulConverter {
public:
    CarefulConverter();

    /// Goes over the text once, and again only if a placeholder without a code lay in braces.
    std::string converted(const std::string& text) const;

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    std::unordered_map<std::string, std::string, Hash, std::equal_to<>> codes_; ///< By placeholder.
};

} // namespace qrtVistrelClasses4::bench
