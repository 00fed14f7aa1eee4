#include "media/PictureCache.h"

#include "media/BmpFile.h"
#include "platform/FileNames.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::uint64_t kLargestFile = std::uint64_t{32} << 20; // more than the largest picture takes
constexpr std::uint64_t kStartOfLargeFile = 4096;               // an AVI has the number of its pictures there
constexpr std::int64_t kMostPicturePixels = std::int64_t{16} << 20;

/// The first `most` bytes. Empty if they cannot be read.
std::string startOf(InputFile& file, std::uint64_t most) {
    std::string bytes(static_cast<std::size_t>(std::min(file.size(), most)), '\0');
    bytes.resize(file.readAt(0, bytes).valueOr(0));
    return bytes;
}

bool isBmp(std::string_view path) {
    constexpr std::string_view ending = ".bmp";
    return path.size() >= ending.size() &&
           EqualIgnoringAsciiCase(path.substr(path.size() - ending.size()), ending);
}

/// Path on the disk. Empty unless `path` is a full path of a file.
std::string fileAt(const std::string& path) {
    if (!IsRootedPath(path))
        return {};
    FileSystem& files = platform().files();
    std::string pathOnDisk = PathOnDisk(files, path);
    return files.kindOf(pathOnDisk) == EntryKind::file ? pathOnDisk : std::string();
}

PictureOutcome readPicture(const std::string& path) {
    using enum PictureOutcome::What;
    const std::string pathOnDisk = fileAt(path);
    if (pathOnDisk.empty())
        return {};
    const auto file = platform().files().openToRead(pathOnDisk).valueOr(nullptr);
    PictureOutcome outcome{isBmp(path) ? unreadable : unknownKind};
    outcome.isTooLarge = file && file->size() > kLargestFile;
    const std::string bytes =
        file ? startOf(*file, outcome.isTooLarge ? kStartOfLargeFile : kLargestFile) : std::string();
    if (!outcome.isTooLarge)
        outcome.picture = ParseBmp(bytes);
    if (outcome.picture)
        outcome.what = readable;
    else
        outcome.animation = ParseAnimation(bytes);
    return outcome;
}

std::optional<DotSize> readSize(const std::string& path) {
    const std::string pathOnDisk = fileAt(path);
    const auto file =
        pathOnDisk.empty() ? nullptr : platform().files().openToRead(pathOnDisk).valueOr(nullptr);
    return file && file->size() <= kLargestFile ? BmpSize(startOf(*file, kBmpStart), file->size())
                                                : std::nullopt;
}

} // namespace

const PictureOutcome& PictureCache::find(const std::string& path) {
    auto found = pictures_.find(path);
    if (found == pictures_.end()) {
        if (pixels_ > kMostPicturePixels) {
            pictures_.clear();
            pixels_ = 0;
        }
        found = pictures_.emplace(path, readPicture(path)).first;
        if (const auto& picture = found->second.picture)
            pixels_ += std::int64_t{picture->width()} * picture->height();
    }
    return found->second;
}

std::optional<DotSize> PictureCache::sizeOf(const std::string& path) {
    const auto [known, isNew] = sizes_.try_emplace(path);
    if (isNew)
        known->second = readSize(path);
    return known->second;
}

} // namespace qrtVistrelClasses4
