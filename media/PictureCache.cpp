#include "media/PictureCache.h"

#include "media/BmpFile.h"
#include "platform/FileNames.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

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

} // namespace

template <class Parse>
auto PictureCache::read(const std::string& path, std::uint64_t most, Parse parse) {
    decltype(parse(std::string(), most)) result;
    FileSystem& files = platform().files();
    const std::string pathOnDisk = PathOnDisk(files, path);
    if (!IsRootedPath(path) || files.kindOf(pathOnDisk) != EntryKind::file)
        return result;
    if (const auto file = open(pathOnDisk))
        result = parse(startOf(*file, most), file->size());
    if (!result && isBmp(path) && reported_.insert(path).second)
        unreadable_.push_back(path);
    return result;
}

const Raster* PictureCache::find(const std::string& path) {
    auto found = pictures_.find(path);
    if (found == pictures_.end()) {
        if (pixels_ > kMostPicturePixels) {
            pictures_.clear();
            pixels_ = 0;
        }
        const auto parse = [](std::string_view bytes, std::uint64_t) { return ParseBmp(bytes); };
        found = pictures_.emplace(path, read(path, kLargestFile, parse)).first;
        if (const auto& picture = found->second)
            pixels_ += std::int64_t{picture->width()} * picture->height();
    }
    return found->second ? &*found->second : nullptr;
}

std::optional<DotSize> PictureCache::sizeOf(const std::string& path) {
    const auto [known, isNew] = sizes_.try_emplace(path);
    if (isNew)
        known->second = read(path, kBmpStart, BmpSize);
    return known->second;
}

std::vector<std::string> PictureCache::takeUnreadable() { return std::exchange(unreadable_, {}); }

} // namespace qrtVistrelClasses4
