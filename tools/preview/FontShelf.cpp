#include "tools/preview/FontShelf.h"

#include "fonts/FontSearch.h"
#include "fonts/clsFontSizes.h"
#include "tools/program/Encoding.h"

#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// Fonts in files of their own share it.
constexpr std::int16_t kCustomFont = kNumberedFonts;

} // namespace

FontShelf::FontPointer FontShelf::find(std::int16_t number, const std::string& customFont) {
    return number < kCustomFont ? findNumbered(number) : findCustom(customFont);
}

FontShelf::FontPointer FontShelf::findNumbered(std::int16_t number) {
    if (const auto known = numbered_.find(number); known != numbered_.end())
        return known->second;
    FontPointer font = load(number, {});
    if (!font && number != 0) {
        font = findNumbered(0);
    } else if (!font) {
        font = std::make_shared<classFontMaster>();
        font->FontSizeByNum(0);
    }
    return numbered_[number] = font;
}

FontShelf::FontPointer FontShelf::findCustom(const std::string& name) {
    const auto [known, isNew] = files_.try_emplace(name);
    std::string& file = known->second;
    if (isNew)
        file = FindFont(name);
    if (const auto kept = custom_.find(file); kept != custom_.end())
        return kept->second;
    const FontPointer font = isNew || !file.empty() ? load(kCustomFont, name) : nullptr;
    if (!font || file.empty()) { // font 0 may have been loaded in place of a standard one
        file.clear();
        return findNumbered(0);
    }
    if (custom_.size() == kMostCustomFonts)
        custom_.clear();
    return custom_[file] = font;
}

FontShelf::FontPointer FontShelf::load(std::int16_t number, const std::string& customFont) {
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
        errors_.add(isCustom ? Utf8FromAnsi(message) : message);
    return isLoaded ? font : nullptr;
}

} // namespace qrtVistrelClasses4
