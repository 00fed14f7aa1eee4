#include "media/PictureCache.h"

#include "media/BmpFile.h"
#include "platform/FileNames.h"
#include "platform/Path.h"
#include "platform/Platform.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

constinit PictureReader* installedReader = nullptr;

constexpr std::uint64_t kLargestFile = std::uint64_t{32} << 20; // more than the largest picture takes
constexpr std::uint64_t kStartOfLargeFile = 4096;               // an AVI has the number of its pictures there
constexpr std::int64_t kMostPicturePixels = std::int64_t{16} << 20;

/// The first `most` bytes. Empty if they cannot be read.
std::string startOf(InputFile& file, std::uint64_t most) {
    std::string bytes(static_cast<std::size_t>(std::min(file.size(), most)), '\0');
    bytes.resize(file.readAt(0, bytes).valueOr(0));
    return bytes;
}

/// Path on the disk. Empty unless `path` is a full path of a file.
std::string fileAt(const std::string& path) {
    if (!IsRootedPath(path))
        return {};
    FileSystem& files = platform().files();
    std::string pathOnDisk = PathOnDisk(files, path);
    return files.kindOf(pathOnDisk) == EntryKind::file ? pathOnDisk : std::string();
}

/// All pictures in the bytes of a file; none if they cannot be read.
std::vector<TimedPicture> picturesIn(std::string_view bytes) {
    std::vector<TimedPicture> pictures;
    std::optional<Raster> still = ParseBmp(bytes);
    if (!still)
        still = FirstPictureOfAvi(bytes);
    if (still)
        pictures.push_back({*std::move(still)});
    else if (installedReader)
        pictures = installedReader->read(bytes);
    return pictures;
}

bool isOfReadKind(std::string_view path) {
    return HasEnding(path, "bmp") || (installedReader && installedReader->readsFiles(path));
}

PictureOutcome readPicture(const std::string& path) {
    using enum PictureOutcome::What;
    const std::string pathOnDisk = fileAt(path);
    if (pathOnDisk.empty())
        return {};
    const auto file = platform().files().openToRead(pathOnDisk).valueOr(nullptr);
    PictureOutcome outcome{isOfReadKind(path) ? unreadable : unknownKind};
    outcome.isTooLarge = file && file->size() > kLargestFile;
    const std::string bytes =
        file ? startOf(*file, outcome.isTooLarge ? kStartOfLargeFile : kLargestFile) : std::string();
    if (!outcome.isTooLarge)
        outcome.pictures = picturesIn(bytes);
    if (!outcome.pictures.empty())
        outcome.what = readable;
    outcome.animation = ParseAnimation(bytes);
    return outcome;
}

/// Of a BMP file.
std::optional<DotSize> readBmpSize(const std::string& path) {
    const std::string pathOnDisk = fileAt(path);
    const auto file =
        pathOnDisk.empty() ? nullptr : platform().files().openToRead(pathOnDisk).valueOr(nullptr);
    return file && file->size() <= kLargestFile ? BmpSize(startOf(*file, kBmpStart), file->size())
                                                : std::nullopt;
}

} // namespace

template <>
PictureReader*& ScopedPictureReader::installed() {
    return installedReader;
}

const PictureOutcome& PictureCache::find(const std::string& path) {
    auto found = pictures_.find(path);
    if (found == pictures_.end()) {
        if (pixels_ > kMostPicturePixels) {
            pictures_.clear();
            pixels_ = 0;
        }
        found = pictures_.emplace(path, readPicture(path)).first;
        for (const auto& [pixels, opacity, time] : found->second.pictures)
            pixels_ += std::int64_t{pixels.width()} * pixels.height();
    }
    return found->second;
}

std::optional<DotSize> PictureCache::sizeOf(const std::string& path) {
    const auto [known, isNew] = sizes_.try_emplace(path);
    if (!isNew)
        return known->second;
    std::optional<DotSize>& size = known->second;
    size = readBmpSize(path);
    if (!size)
        if (const auto& pictures = find(path).pictures; !pictures.empty())
            size = pictures.front().pixels.size();
    return size;
}

} // namespace qrtVistrelClasses4
