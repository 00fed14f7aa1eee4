#include "tools/preview/PictureFiles.h"

#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "playfile/MediaFiles.h"
#include "tools/preview/BmpFile.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr std::uint64_t kLargestFile = std::uint64_t{32} << 20; // more than the largest picture takes
constexpr std::int64_t kMostPicturePixels = std::int64_t{16} << 20;

std::optional<PixelBuffer> parseFile(const std::string& path) {
    const auto file = platform().files().openToRead(path);
    if (!file || file.value->size() > kLargestFile)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(file.value->size()), '\0');
    const auto size = file.value->readAt(0, bytes);
    return size ? ParseBmp(std::string_view(bytes).substr(0, size.value)) : std::nullopt;
}

bool isBmp(std::string_view path) {
    constexpr std::string_view ending = ".bmp";
    return path.size() >= ending.size() &&
           EqualIgnoringAsciiCase(path.substr(path.size() - ending.size()), ending);
}

} // namespace

const PixelBuffer* PictureFiles::find(const std::string& path) {
    auto found = known_.find(path);
    if (found == known_.end()) {
        if (pixels_ > kMostPicturePixels) {
            known_.clear();
            pixels_ = 0;
        }
        found = known_.emplace(path, read(path)).first;
        if (found->second)
            pixels_ += std::int64_t{found->second->width()} * found->second->height();
    }
    return found->second ? &*found->second : nullptr;
}

std::optional<PixelBuffer> PictureFiles::read(const std::string& path) {
    if (!FileExists(path))
        return std::nullopt;
    auto picture = parseFile(path);
    if (!picture && isBmp(path))
        errors_.add(std::string(SplitPath(path).name) +
                    " cannot be drawn: it is no uncompressed BMP of up to " +
                    std::to_string(kLargestBmpSide) + " x " + std::to_string(kLargestBmpSide) + " pixels");
    return picture;
}

} // namespace qrtVistrelClasses4
