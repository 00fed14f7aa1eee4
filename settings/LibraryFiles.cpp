#include "settings/LibraryFiles.h"

#include "platform/Path.h"
#include "settings/AppFolder.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

bool isFile(const std::string& path) { return platform().files().kindOf(path) == EntryKind::file; }

} // namespace

std::string PlaceIn(const std::string& folder, const LibraryFile& file) {
    FileSystem& files = platform().files();
    const std::string holder =
        file.subfolder.empty() ? folder : files.existingName(JoinPath(folder, file.subfolder));
    return files.existingName(JoinPath(holder, file.name));
}

std::optional<std::string> FindElsewhere(const std::string& folder, const LibraryFile& file) {
    const std::vector<std::string> others = platform().otherFolders(file.use);
    if (others.empty() || isFile(PlaceIn(folder, file)))
        return std::nullopt;
    if (file.use == FileUse::kept && WithTrailingSeparator(folder) != WithTrailingSeparator(LibraryFolder()))
        return std::nullopt;
    for (const std::string& other : others)
        if (std::string place = PlaceIn(other, file); isFile(place))
            return place;
    return std::nullopt;
}

std::string PlaceToRead(const std::string& folder, const LibraryFile& file) {
    std::optional<std::string> elsewhere = FindElsewhere(folder, file);
    return elsewhere ? *std::move(elsewhere) : PlaceIn(folder, file);
}

bool IsElsewhere(const std::string& path, const LibraryFile& file) {
    return std::ranges::any_of(platform().otherFolders(file.use),
                               [&](const std::string& other) { return PlaceIn(other, file) == path; });
}

} // namespace qrtVistrelClasses4
