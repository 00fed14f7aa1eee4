#include "tools/preview/PictureFiles.h"

#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "playfile/MediaFiles.h"
#include "tools/preview/BmpFile.h"
#include "tools/program/Encoding.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::uint64_t kLargestFile = std::uint64_t{32} << 20; // more than the largest picture takes
constexpr std::int64_t kMostPicturePixels = std::int64_t{16} << 20;

/// None when it is too large to hold a picture, or cannot be read.
std::unique_ptr<InputFile> open(const std::string& path) {
    std::unique_ptr<InputFile> file = platform().files().openToRead(path).valueOr(nullptr);
    return file && file->size() <= kLargestFile ? std::move(file) : nullptr;
}

/// The first `most` bytes; "" when they cannot be read.
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
auto PictureFiles::read(const std::string& path, std::uint64_t most, Parse parse) {
    decltype(parse(std::string(), most)) result;
    if (!FileExists(path))
        return result;
    if (const auto file = open(path))
        result = parse(startOf(*file, most), file->size());
    if (!result && isBmp(path))
        errors_.add(Utf8FromAnsi(SplitPath(path).name) +
                    " cannot be drawn: it is no uncompressed BMP of up to " +
                    std::to_string(kLargestBmpSide) + " x " + std::to_string(kLargestBmpSide) + " pixels");
    return result;
}

const PixelBuffer* PictureFiles::find(const std::string& path) {
    auto found = known_.find(path);
    if (found == known_.end()) {
        if (pixels_ > kMostPicturePixels) {
            known_.clear();
            pixels_ = 0;
        }
        const auto parse = [](std::string_view bytes, std::uint64_t) { return ParseBmp(bytes); };
        found = known_.emplace(path, read(path, kLargestFile, parse)).first;
        if (found->second)
            pixels_ += std::int64_t{found->second->width()} * found->second->height();
    }
    return found->second ? &*found->second : nullptr;
}

std::optional<DotSize> PictureFiles::sizeOf(const std::string& path) {
    const auto [known, isNew] = sizes_.try_emplace(path);
    if (isNew)
        known->second = read(path, kBmpStart, BmpSize);
    return known->second;
}

} // namespace qrtVistrelClasses4
