#include "fonts/FontLoading.h"

#include "fonts/ExtendedFont.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/AppFolder.h"
#include "settings/LibraryFiles.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// Folders of the application that are searched for a font that is not where it should be.
constexpr std::string_view kExtendedFolder = "Extended";
constexpr std::string_view kOtherFolders[] = {kExtendedFolder, "CustomFonts"};

/// Endings of the files of an extended font.
constexpr std::string_view kDotsEnding = ".CFF", kIndexEnding = ".IDX";

/// Fonts that font 0 replaces when they are missing.
constexpr std::string_view kReplacedFonts[] = {"6x8.cmd", "Fstnd08.cmd"};

std::optional<std::string> existingFile(const std::string& path) {
    FileSystem& files = platform().files();
    std::string existing = files.existingName(path);
    return files.kindOf(existing) == EntryKind::file ? std::optional(std::move(existing)) : std::nullopt;
}

/// The font in a folder of the application, or else in that of the program or of all users.
std::string inApplicationFolder(std::string_view folder, std::string_view name) {
    const std::string application = GetAppFolder();
    auto found = FindElsewhere(application, {std::string(name), std::string(folder), FileUse::onlyRead});
    return found ? *std::move(found)
                 : JoinPath(platform().files().existingName(JoinPath(application, folder)), name);
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

Result<std::string> startOf(const std::string& path, std::size_t most) {
    const auto file = platform().files().openToRead(path);
    if (!file)
        return file.error();
    std::string bytes(most, '\0');
    const auto size = file.value()->readAt(0, bytes);
    if (!size)
        return size.error();
    bytes.resize(size.value());
    return bytes;
}

/// Nothing if a file cannot be read, or both are not a whole extended font.
std::optional<std::vector<ExtendedLetter>> readExtendedFont(const std::string& index,
                                                            const std::string& dots) {
    const auto indexBytes = startOf(index, kLargestExtendedIndex + 1);
    const auto dotBytes = startOf(dots, kLargestExtendedDots);
    return indexBytes && dotBytes ? ParseExtendedFont(indexBytes.value(), dotBytes.value()) : std::nullopt;
}

/// The part of a name before its ending.
std::string_view withoutEnding(std::string_view name) { return name.substr(0, name.rfind('.')); }

/// Names of the extended fonts of a font, without endings. Letters of the first that has them are used.
std::vector<std::string> namesOfExtendedFonts(const Font& font, const std::string& path) {
    const std::string name(withoutEnding(SplitPath(path).name));
    return {name + "L", name + "X", "Ex" + std::to_string(font.width) + "x" + std::to_string(font.height)};
}

void read(CellSize size, FontOutcome& outcome) {
    auto font = ReadFont(*outcome.path, size.width, size.height);
    outcome.error = font.error();
    outcome.font = std::move(font).valueOr(std::nullopt);
    if (outcome.error == SystemError::none && !outcome.font)
        outcome.messages.push_back("Error Loading Font. Cut short: " + *outcome.path);
    if (outcome.font)
        for (const std::string& name : AddExtendedLetters(*outcome.font, *outcome.path))
            outcome.messages.push_back("Error Loading Extended Font [" + name); // hosts know it without "]"
}

/// Adds what came of loading font 0 to the messages about the font that it replaces.
FontOutcome loadFont0(const std::vector<std::string>& messages, bool useNewFont) {
    const auto file = FindNumberedFont(0, 0, useNewFont);
    FontOutcome outcome = file ? LoadFontUnlessReplaced(file->path, file->size, false) : FontOutcome();
    outcome.source = FontSource::font0;
    outcome.messages.insert(outcome.messages.begin(), messages.begin(), messages.end());
    return outcome;
}

} // namespace

Result<std::optional<Font>> ReadFont(const std::string& path, std::int16_t width, std::int16_t height) {
    const auto bytes = startOf(path, kLargestFontFile);
    return bytes ? Result(ParseFont(bytes.value(), width, height)) : bytes.error();
}

std::vector<std::string> AddExtendedLetters(Font& font, const std::string& path) {
    std::vector<std::string> damaged;
    auto letters = std::make_shared<ExtendedLetters>(font.height);
    for (std::string& name : namesOfExtendedFonts(font, path)) {
        const auto index =
            existingFile(inApplicationFolder(kExtendedFolder, name + std::string(kIndexEnding)));
        if (!index)
            continue;
        const std::string dots = JoinPath(SplitPath(*index).folder, name + std::string(kDotsEnding));
        if (const auto found = readExtendedFont(*index, platform().files().existingName(dots))) {
            for (const ExtendedLetter& letter : *found)
                letters->add(letter);
            font.extended = letters;
        } else {
            damaged.push_back(std::move(name));
        }
    }
    return damaged;
}

ExtendedPart ExtendedPartOf(const std::string& path) {
    const std::string start = path.substr(0, path.size() - std::min(path.size(), kIndexEnding.size()));
    const std::string_view ending = std::string_view(path).substr(start.size());
    const auto index = existingFile(start + std::string(kIndexEnding));
    if (!index ||
        !(EqualIgnoringAnsiCase(ending, kIndexEnding) || EqualIgnoringAnsiCase(ending, kDotsEnding)))
        return ExtendedPart::none;
    const std::string dots = platform().files().existingName(start + std::string(kDotsEnding));
    return readExtendedFont(*index, dots) ? ExtendedPart::ofWhole : ExtendedPart::ofDamaged;
}

std::optional<std::string> FindFontFile(const std::string& path) {
    auto file = existingFile(path);
    return file ? file : findInOtherFolders(SplitPath(path).name);
}

std::optional<std::string> FolderWithoutFonts(std::int16_t signType, bool useNewFont) {
    std::string folder;
    for (std::int16_t number = 0; number < kNumberedFonts; ++number)
        if (const auto file = FindNumberedFont(number, signType, useNewFont)) {
            if (FindFontFile(file->path))
                return std::nullopt;
            folder = SplitPath(file->path).folder;
        }
    return folder;
}

std::vector<std::string> OtherFontFiles() {
    FileSystem& files = platform().files();
    std::vector<std::string> folders = platform().otherFolders(FileUse::onlyRead), found;
    folders.insert(folders.begin(), GetAppFolder());
    for (const std::string& above : folders)
        for (const std::string_view name : kOtherFolders) {
            const std::string folder = files.existingName(JoinPath(above, name));
            for (const std::string& file : files.namesIn(folder))
                if (std::string path = JoinPath(folder, file); files.kindOf(path) == EntryKind::file)
                    found.push_back(std::move(path));
        }
    std::ranges::sort(found);
    return found;
}

std::optional<NumberedFontFile> FindNumberedFont(std::int16_t fontNumber, std::int16_t signType,
                                                 bool useNewFont) {
    const auto size = clsFontSizes::FontSize(fontNumber);
    const auto name = clsFontSizes::FontFile(fontNumber, signType, useNewFont);
    return size && name ? std::optional(NumberedFontFile{inApplicationFolder("bin", *name), *size})
                        : std::nullopt;
}

FontOutcome LoadFontUnlessReplaced(const std::string& path, CellSize size, bool mayUseFont0) {
    FontOutcome outcome;
    const auto [folder, name] = SplitPath(path);
    outcome.path = existingFile(path);
    if (!outcome.path) {
        outcome.path = findInOtherFolders(name);
        if (outcome.path)
            outcome.source = FontSource::sameNameElsewhere;
        else if (mayUseFont0 && isReplacedByFont0(name))
            outcome.source = FontSource::font0;
        const bool isReplaced = outcome.source == FontSource::font0;
        outcome.messages.push_back(std::string(name) + " NOT FOUND @ " + path + " in " + std::string(folder) +
                                   (isReplaced ? " (loading font 0 instead)" : ""));
    }
    if (outcome.path)
        read(size, outcome);
    else if (outcome.source == FontSource::font0)
        outcome.messages.push_back(std::string(name) + " NOT FOUND");
    else
        outcome.messages.push_back("Error Loading Font. Could not find " + path);
    return outcome;
}

FontOutcome LoadFontFile(const std::string& path, std::int16_t width, std::int16_t height, bool useNewFont) {
    FontOutcome outcome = LoadFontUnlessReplaced(path, {width, height}, true);
    return outcome.source == FontSource::font0 ? loadFont0(outcome.messages, useNewFont) : outcome;
}

FontOutcome LoadNumberedFont(std::int16_t fontNumber, std::int16_t signType, bool useNewFont) {
    const auto file = FindNumberedFont(fontNumber, signType, useNewFont);
    return file ? LoadFontFile(file->path, file->size.width, file->size.height, useNewFont) : FontOutcome();
}

} // namespace qrtVistrelClasses4
