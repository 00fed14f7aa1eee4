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
constexpr std::int64_t kMostPicturePixels = std::int64_t{16} << 20;

/// Null if the file is too large for a picture, or cannot be read.
std::unique_ptr<InputFile> open(const std::string& path) {
    std::unique_ptr<InputFile> file = platform().files().openToRead(path).valueOr(nullptr);
    return file && file->size() <= kLargestFile ? std::move(file) : nullptr;
}

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
    const auto file = open(pathOnDisk);
    PictureOutcome outcome{isBmp(path) ? unreadable : unknownKind};
    const std::string bytes = file ? startOf(*file, kLargestFile) : std::string();
    outcome.picture = ParseBmp(bytes);
    if (outcome.picture)
        outcome.what = readable;
    else
        outcome.animation = ParseAnimation(bytes);
    return outcome;
}

std::optional<DotSize> readSize(const std::string& path) {
    const std::string pathOnDisk = fileAt(path);
    const auto file = pathOnDisk.empty() ? nullptr : open(pathOnDisk);
    return file ? BmpSize(startOf(*file, kBmpStart), file->size()) : std::nullopt;
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
