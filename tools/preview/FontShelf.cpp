#include "tools/preview/FontShelf.h"

#include "fonts/clsFontSizes.h"

#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// Fonts in files of their own share it.
constexpr std::int16_t kCustomFont = kNumberedFonts;

} // namespace

classFontMaster& FontShelf::find(std::int16_t number, const std::string& customFont) {
    const Key key = number < kCustomFont ? Key{number, ""} : Key{kCustomFont, customFont};
    const auto found = fonts_.find(key);
    return found != fonts_.end() ? *found->second : *(fonts_[key] = load(key));
}

std::shared_ptr<classFontMaster> FontShelf::load(const Key& key) {
    const auto& [number, customFont] = key;
    const bool isCustom = number == kCustomFont;
    std::vector<std::string> messages;
    auto font = std::make_shared<classFontMaster>();
    font->UseNewFont(true);
    font->OnMessage([&](const std::string& message) { messages.push_back(message); });
    const bool isLoaded =
        isCustom ? !customFont.empty() && font->LoadFont(customFont, kSizeFromFile, kSizeFromFile)
                 : font->LoadFontByNum(number, signType_);
    font->OnMessage({});
    // A font in another folder than the one named raises one message, which is nobody's concern; one that
    // font 0 has replaced raises another.
    if (isLoaded && messages.size() < 2)
        return font;
    if (isCustom && customFont.empty())
        messages.emplace_back("a line has a custom font, but names none");
    if (number < 0)
        messages.push_back("there is no font " + std::to_string(number));
    for (const std::string& message : messages)
        errors_.add(message);
    if (isLoaded)
        return font;
    if (number == 0) {
        font->FontSizeByNum(0);
        return font;
    }
    find(0, {});
    return fonts_[{std::int16_t{0}, ""}];
}

} // namespace qrtVistrelClasses4
