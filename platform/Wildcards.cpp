#include "platform/Wildcards.h"

#include "platform/FileNames.h"
#include "platform/Path.h"
#include "platform/Utf8.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kWildcards = "*?";

bool hasWildcards(std::string_view text) { return text.find_first_of(kWildcards) != text.npos; }

void dropCharacter(std::string_view& text) {
    if (!TakeUtf8Character(text))
        text.remove_prefix(1);
}

/// Both are folded. Takes time in proportion to the product of their sizes at most: only the last "*" may be
/// given more of the name.
bool matches(std::string_view name, std::string_view pattern) {
    std::string_view nameAfterStar, patternAfterStar;
    bool hadStar = false;
    while (!name.empty()) {
        if (pattern.starts_with('*')) {
            pattern.remove_prefix(1);
            nameAfterStar = name;
            patternAfterStar = pattern;
            hadStar = true;
        } else if (pattern.starts_with('?')) {
            pattern.remove_prefix(1);
            dropCharacter(name);
        } else if (pattern.starts_with(name.front())) {
            pattern.remove_prefix(1);
            name.remove_prefix(1);
        } else if (hadStar) {
            dropCharacter(nameAfterStar);
            name = nameAfterStar;
            pattern = patternAfterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*') == pattern.npos;
}

/// All paths that are as `pattern` says. One without wildcards is its own path, if anything has it.
std::vector<std::string> pathsOf(FileSystem& files, const std::string& pattern) {
    if (!hasWildcards(std::string_view(pattern).substr(RootSize(pattern))))
        return files.hasEntry(pattern) ? std::vector{pattern} : std::vector<std::string>();
    const std::string_view trimmed =
        std::string_view(pattern).substr(0, WithoutTrailingSeparators(pattern).size());
    const auto [folder, name] = SplitPath(trimmed);
    const std::string_view end = std::string_view(pattern).substr(trimmed.size());
    std::vector<std::string> paths;
    for (const std::string& above :
         folder.empty() ? std::vector<std::string>{""} : pathsOf(files, std::string(folder))) {
        if (!hasWildcards(name)) {
            if (const std::string path = JoinPath(above, name) + std::string(end); files.hasEntry(path))
                paths.push_back(path);
            continue;
        }
        for (const std::string& found : files.namesIn(above))
            if (MatchesPattern(found, name))
                if (const std::string path = JoinPath(above, found) + std::string(end);
                    end.empty() || files.kindOf(path) == EntryKind::folder)
                    paths.push_back(path);
    }
    return paths;
}

} // namespace

bool MatchesPattern(std::string_view name, std::string_view pattern) {
    if (name == "." || name == ".." || (name.starts_with('.') && !pattern.starts_with('.')))
        return false;
    return pattern == "*.*" || matches(FoldedName(name), FoldedName(pattern));
}

std::vector<std::string> ExpandWildcards(FileSystem& files, const std::string& pattern) {
    if (!hasWildcards(pattern))
        return {pattern};
    std::vector<std::string> paths = pathsOf(files, pattern);
    if (paths.empty())
        return {pattern};
    std::ranges::sort(paths);
    return paths;
}

} // namespace qrtVistrelClasses4
