#include "fonts/FontLoading.h"

#include "fonts/clsFontSizes.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/AppFolder.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Folders of the application that are searched for a font that is not where it should be.
constexpr std::string_view kOtherFolders[] = {"Extended", "CustomFonts"};

/// Fonts that font 0 replaces when they are missing.
constexpr std::string_view kReplacedFonts[] = {"6x8.cmd", "Fstnd08.cmd"};

std::optional<std::string> existingFile(const std::string& path) {
    FileSystem& files = platform().files();
    std::string existing = files.existingName(path);
    return files.kindOf(existing) == EntryKind::file ? std::optional(std::move(existing)) : std::nullopt;
}

std::string inApplicationFolder(std::string_view folder, std::string_view name) {
    return JoinPath(platform().files().existingName(JoinPath(GetAppFolder(), folder)), name);
}

std::optional<std::string> findInOtherFolders(std::string_view name) {
    for (const std::string_view folder : kOtherFolders)
        if (auto found = existingFile(inApplicationFolder(folder, name)))
            return found;
    return std::nullopt;
}

bool isReplacedByFont0(std::string_view name) {
    return std::ranges::any_of(
        kReplacedFonts, [&](std::string_view replaced) { return EqualIgnoringAnsiCase(name, replaced); });
}

/// Loads one font into an outcome.
class FontLoader {
public:
    explicit FontLoader(bool useNewFont) : useNewFont_(useNewFont) {}

    FontOutcome load(const std::string& path, CellSize size) {
        const auto [folder, name] = SplitPath(path);
        outcome_.path = existingFile(path);
        if (!outcome_.path) {
            say(std::string(name) + " NOT FOUND @ " + path + " in " + std::string(folder));
            outcome_.path = findInOtherFolders(name);
            if (outcome_.path && mayUseFont0_)
                outcome_.source = FontSource::sameNameElsewhere;
        }
        if (outcome_.path)
            read(size);
        else if (mayUseFont0_ && isReplacedByFont0(name))
            return loadFont0(name);
        else
            say("Error Loading Font. Could not find " + path);
        return std::move(outcome_);
    }

    FontOutcome loadNumbered(std::int16_t fontNumber, std::int16_t signType) {
        const auto size = clsFontSizes::FontSize(fontNumber);
        const auto name = clsFontSizes::FontFile(fontNumber, signType, useNewFont_);
        return size && name ? load(inApplicationFolder("bin", *name), *size) : FontOutcome();
    }

private:
    FontOutcome loadFont0(std::string_view missing) {
        say(std::string(missing) + " NOT FOUND");
        mayUseFont0_ = false;
        outcome_.source = FontSource::font0;
        return loadNumbered(0, 0);
    }

    void read(CellSize size) {
        auto font = ReadFont(*outcome_.path, size.width, size.height);
        outcome_.error = font.error();
        outcome_.font = std::move(font).valueOr(std::nullopt);
        if (outcome_.error == SystemError::none && !outcome_.font)
            say("Error Loading Font. Cut short: " + *outcome_.path);
    }

    void say(std::string message) { outcome_.messages.push_back(std::move(message)); }

    bool useNewFont_;
    bool mayUseFont0_ = true; ///< False while font 0 itself is loaded in place of another font.
    FontOutcome outcome_;
};

} // namespace

Result<std::optional<Font>> ReadFont(const std::string& path, std::int16_t width, std::int16_t height) {
    const auto file = platform().files().openToRead(path);
    if (!file)
        return file.error();
    std::string bytes(kLargestFontFile, '\0');
    const auto size = file.value()->readAt(0, bytes);
    if (!size)
        return size.error();
    bytes.resize(size.value());
    return ParseFont(bytes, width, height);
}

FontOutcome LoadFontFile(const std::string& path, std::int16_t width, std::int16_t height, bool useNewFont) {
    return FontLoader(useNewFont).load(path, {width, height});
}

FontOutcome LoadNumberedFont(std::int16_t fontNumber, std::int16_t signType, bool useNewFont) {
    return FontLoader(useNewFont).loadNumbered(fontNumber, signType);
}

} // namespace qrtVistrelClasses4
