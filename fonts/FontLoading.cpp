// Where fonts are searched, and what the operator is told of it.
#include "fonts/FontProcedures.h"
#include "fonts/FontSearch.h"
#include "fonts/classFontMaster.h"
#include "fonts/clsFontSizes.h"
#include "frame/Traced.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/AppFolder.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

/// Folders of the application in which a font is searched that is not where it should be.
constexpr std::string_view kOtherFolders[] = {"Extended", "CustomFonts"};

/// Fonts that font 0 stands in for.
constexpr std::string_view kReplacedFonts[] = {"6x8.cmd", "Fstnd08.cmd"};

/// "" when there is no such file.
std::string existingFile(const std::string& path) {
    FileSystem& files = platform().files();
    std::string existing = files.existingName(path);
    return files.kindOf(existing) == EntryKind::file ? existing : std::string();
}

std::string inApplicationFolder(std::string_view folder, std::string_view name) {
    return JoinPath(platform().files().existingName(JoinPath(GetAppFolder(), folder)), name);
}

/// A file of that name in one of the folders; "" when there is none.
std::string findInOtherFolders(std::string_view name) {
    for (const std::string_view folder : kOtherFolders)
        if (std::string found = existingFile(inApplicationFolder(folder, name)); !found.empty())
            return found;
    return {};
}

std::optional<Font> readFont(const std::string& path, std::int16_t width, std::int16_t height) {
    const auto file = ValueOf(platform().files().openToRead(path));
    std::string bytes(kLargestFontFile, '\0');
    bytes.resize(ValueOf(file->readAt(0, bytes)));
    return ParseFont(bytes, width, height);
}

bool isReplacedByFont0(std::string_view name) {
    return std::ranges::any_of(
        kReplacedFonts, [&](std::string_view replaced) { return EqualIgnoringAnsiCase(name, replaced); });
}

} // namespace

std::string FindFont(const std::string& path) {
    std::string found = existingFile(path);
    return found.empty() ? findInOtherFolders(SplitPath(path).name) : found;
}

bool classFontMaster::LoadFont(const std::string& path, std::int16_t width, std::int16_t height) {
    return traced(
        FontFunction("LoadFont"), [&] { return load(path, width, height, Fallback::toFont0); },
        Arg{"path", path}, Arg{"width", width}, Arg{"height", height});
}

bool classFontMaster::LoadFontByNum(std::int16_t fontNumber, std::int16_t signType) {
    return traced(
        FontFunction("LoadFontByNum"), [&] { return loadNumbered(fontNumber, signType, Fallback::toFont0); },
        Arg{"fontNumber", fontNumber}, Arg{"signType", signType});
}

bool classFontMaster::LoadExistingFont(const std::string& path, std::int16_t width, std::int16_t height) {
    return traced(
        FontFunction("LoadExistingFont"),
        [&] {
            if (path.empty())
                return false;
            const auto font = readFont(platform().files().existingName(path), width, height);
            if (!font)
                Raise(ErrorNumber::inputPastEnd);
            font_ = *font;
            return true;
        },
        Arg{"path", path}, Arg{"width", width}, Arg{"height", height});
}

void classFontMaster::FontSizeByNum(std::int16_t fontNumber) {
    traced(
        FontSub("FontSizeByNum"),
        [&] {
            const auto size = clsFontSizes::FontSize(fontNumber);
            if (!size)
                return;
            font_.width = size->width;
            font_.height = size->height;
        },
        Arg{"fontNumber", fontNumber});
}

bool classFontMaster::loadNumbered(std::int16_t fontNumber, std::int16_t signType, Fallback fallback) {
    const auto size = clsFontSizes::FontSize(fontNumber);
    if (!size)
        return false;
    const auto name = clsFontSizes::FontFile(fontNumber, signType, useNewFont_);
    return load(inApplicationFolder("bin", name), size->width, size->height, fallback);
}

bool classFontMaster::load(const std::string& path, std::int16_t width, std::int16_t height,
                           Fallback fallback) {
    const std::string found = findFont(path);
    const std::string name(SplitPath(path).name);
    if (found.empty() && fallback == Fallback::toFont0 && isReplacedByFont0(name)) {
        tell(name + " NOT FOUND");
        return loadNumbered(0, 0, Fallback::none);
    }
    if (found.empty()) {
        tell("Error Loading Font. Could not find " + path);
        return false;
    }
    const auto font = readFont(found, width, height);
    if (!font) {
        tell("Error Loading Font. Cut short: " + found);
        return false;
    }
    font_ = *font;
    return true;
}

std::string classFontMaster::findFont(const std::string& path) {
    std::string found = existingFile(path);
    if (!found.empty())
        return found;
    const auto [folder, name] = SplitPath(path);
    tell(std::string(name) + " NOT FOUND @ " + path + " in " + std::string(folder));
    return findInOtherFolders(name);
}

void classFontMaster::tell(const std::string& message) {
    if (const MessageHandler handler = onMessage_) // a copy, since the handler may replace itself
        handler(message);
}

} // namespace qrtVistrelClasses4
