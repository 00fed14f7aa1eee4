#include "platform/FileNames.h"

#include "platform/CodePage.h"
#include "platform/FileSystem.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Utf8.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

/// Whether a name is the same in both encodings.
bool isAscii(std::string_view name) { return std::ranges::all_of(name, IsAscii); }

/// Whether an entry that is listed under another name might be found by this one. Windows and its disks have
/// short names such as "LONGNA~1.BMP", drop dots and blanks at the end, and know more letters' cases.
bool mayBeSecondName(std::string_view name) {
    return kPathSeparator == '\\' || !isAscii(name) || name.find('~') != name.npos || name.ends_with('.') ||
           name.ends_with(' ');
}

/// Removes the first character of a name, and returns it in UTF-8.
std::string takeCharacter(std::string_view& name) {
    const std::string_view start = name;
    if (TakeUtf8Character(name))
        return std::string(start.substr(0, start.size() - name.size()));
    return TakeCodePageCharacter(name);
}

} // namespace

bool IsFullOnWindows(std::string_view name) {
    return (name.size() > 2 && name[1] == ':' && IsPathSeparator(name[2])) || name.starts_with("\\\\");
}

bool HasEnding(std::string_view name, std::string_view ending) {
    const std::size_t dot = name.rfind('.');
    return dot != name.npos && EqualIgnoringAsciiCase(name.substr(dot + 1), ending);
}

std::optional<char> ForbiddenInName(std::string_view name) {
    constexpr std::string_view forbidden = kPathSeparator == '\\' ? "<>\"|?*" : "";
    const std::size_t found = name.find_first_of(forbidden);
    return found == name.npos ? std::nullopt : std::optional(name[found]);
}

std::string Utf8FromName(std::string_view name) {
    std::string utf8;
    while (!name.empty())
        utf8 += takeCharacter(name);
    return utf8;
}

std::string FoldedName(std::string_view name) {
    if (!AreNamesUtf8() || isAscii(name))
        return AnsiUpperCase(name);
    std::string result;
    while (!name.empty()) {
        const std::string character = takeCharacter(name);
        const std::optional<std::string> narrow = CodePageFromUtf8(character);
        const std::string upper = narrow ? AnsiUpperCase(*narrow) : character;
        std::string_view rest = upper;
        result += narrow ? TakeCodePageCharacter(rest) : character;
    }
    return result;
}

std::string NameForPlayfile(const std::string& path) {
    if (!AreNamesUtf8() || isAscii(path))
        return path;
    std::string name;
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find(kPathSeparator, start), path.size() - 1) + 1;
        const std::string part = path.substr(start, end - start);
        name += CodePageFromUtf8(part).value_or(part);
        start = end;
    }
    // The bytes of a few names, such as the letters A with tilde and paragraph sign, would be UTF-8 again.
    return Utf8FromName(name) == path ? name : path;
}

std::string PathOnDisk(FileSystem& files, const std::string& path) {
    if (!AreNamesUtf8() || isAscii(path) || files.hasEntry(path))
        return path;
    std::string utf8 = Utf8FromName(path);
    return files.hasEntry(utf8) ? utf8 : path;
}

std::optional<std::string> FolderNames::find(std::string_view name) {
    if (!isListed_)
        list();
    const auto found = names_.find(FoldedName(name));
    return found == names_.end() ? std::nullopt : std::optional(found->second);
}

Listed FolderNames::lists(std::string_view name) const {
    const auto found = names_.find(FoldedName(name));
    if (found != names_.end())
        return found->second == name ? Listed::yes : Listed::unclear;
    return names_.empty() || mayBeSecondName(name) ? Listed::unclear : Listed::no; // empty: not listable
}

void FolderNames::list() {
    isListed_ = true;
    std::vector<std::string> names = files_.namesIn(folder_);
    names_.reserve(names.size());
    for (std::string& name : names) {
        const auto [known, isNew] = names_.try_emplace(FoldedName(name));
        if (isNew || name < known->second)
            known->second = std::move(name);
    }
}

std::string FindExistingName(FileSystem& files, const std::string& path) {
    std::string asGiven = PathOnDisk(files, path);
    if (files.hasEntry(asGiven))
        return asGiven;
    const SplitPathResult parts = SplitPath(path);
    const std::string folder = PathOnDisk(files, std::string(parts.folder));
    const std::optional<std::string> name = FolderNames(files, folder).find(parts.name);
    return name ? folder + *name : path;
}

} // namespace qrtVistrelClasses4
