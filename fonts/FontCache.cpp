#include "fonts/FontCache.h"

#include "fonts/FontLoading.h"
#include "fonts/TextDrawing.h"
#include "fonts/clsFontSizes.h"
#include "frame/SystemErrors.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr bool kUseNewFont = true;

/// Font 0 if its file is missing: its lines have a height, but its letters no dots.
Font emptyFont() {
    const CellSize size = clsFontSizes::FontSize(0).value_or(CellSize());
    return {size.width, size.height, {}};
}

} // namespace

MeasuredFont::MeasuredFont(Font font) : Font(std::move(font)) {
    for (std::size_t code = 0; code < widths.size(); ++code) {
        const char character = static_cast<char>(code);
        widths[code] = static_cast<std::int32_t>(WidthOf({*this}, {&character, 1}));
    }
}

FontCache::FontPointer FontCache::find(std::int16_t number, const std::string& customFont) {
    return number < kNumberedFonts ? findNumbered(number) : findCustom(customFont);
}

std::vector<FontFault> FontCache::takeFaults() { return std::exchange(faults_, {}); }

FontCache::FontPointer FontCache::findNumbered(std::int16_t number) {
    if (const auto known = numbered_.find(number); known != numbered_.end())
        return known->second;
    using enum FontFault::What;
    const auto file = FindNumberedFont(number, signType_, kUseNewFont);
    FontPointer font =
        file ? accept(LoadFontFile(file->path, file->size.width, file->size.height, kUseNewFont), file->path)
             : refuse({unknownNumber, std::to_string(number)});
    if (!font && file && replaceFaultByNoFonts())
        font = useEmptyFont();
    else if (!font)
        font = number != 0 ? useFont0() : useEmptyFont();
    return numbered_[number] = font;
}

FontCache::FontPointer FontCache::useEmptyFont() {
    if (!empty_)
        empty_ = std::make_shared<const MeasuredFont>(emptyFont());
    return empty_;
}

bool FontCache::replaceFaultByNoFonts() {
    if (!hasNoFonts_) {
        const auto folder = FolderWithoutFonts(signType_, kUseNewFont);
        if (!folder)
            return false;
        hasNoFonts_ = true;
        faults_.back() = {FontFault::What::noFonts, *folder};
    } else {
        faults_.pop_back();
    }
    return true;
}

FontCache::FontPointer FontCache::findCustom(const std::string& name) {
    if (const auto known = files_.find(name); known != files_.end()) {
        if (!known->second)
            return findNumbered(0);
        if (const auto kept = custom_.find(*known->second); kept != custom_.end())
            return kept->second;
    }
    FontOutcome outcome =
        name.empty() ? FontOutcome() : LoadFontFile(name, kSizeFromFile, kSizeFromFile, kUseNewFont);
    const std::string file = outcome.path.value_or("");
    const FontPointer font =
        name.empty() ? refuse({FontFault::What::unnamed}) : accept(std::move(outcome), name);
    if (!font) {
        files_[name].reset();
        return useFont0();
    }
    files_[name] = file;
    if (const auto kept = custom_.find(file); kept != custom_.end()) // under another name
        return kept->second;
    if (custom_.size() == kMostCustomFonts)
        custom_.clear();
    return custom_[file] = font;
}

FontCache::FontPointer FontCache::useFont0() {
    const std::size_t fault = faults_.size() - 1;
    FontPointer font = findNumbered(0);
    faults_.at(fault).isReplaced = !isEmpty(font);
    return font;
}

FontCache::FontPointer FontCache::accept(FontOutcome&& outcome, const std::string& path) {
    using enum FontFault::What;
    if (outcome.source == FontSource::font0 || !outcome.path)
        return refuse({missing, path});
    if (outcome.error != SystemError::none)
        return refuse({.what = unreadable, .name = *outcome.path, .error = ErrorFor(outcome.error)});
    if (!outcome.font)
        return refuse({cutShort, *outcome.path});
    return std::make_shared<const MeasuredFont>(*std::move(outcome.font));
}

FontCache::FontPointer FontCache::refuse(FontFault fault) {
    faults_.push_back(std::move(fault));
    return nullptr;
}

} // namespace qrtVistrelClasses4
