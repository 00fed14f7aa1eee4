#include "tools/preview/PictureFiles.h"

#include "platform/FileNames.h"
#include "tools/preview/GifPictures.h"
#include "tools/preview/JpegSegments.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace qrtVistrelClasses4 {
namespace {

/// More than the largest PNG that may be read takes, interlaced and with 16 bits for each part of a colour.
constexpr std::size_t kMostMemory = std::size_t{128} << 20;

/// Of the thread that reads a picture.
thread_local std::size_t usedMemory = 0;

/// Before each block is its size.
constexpr std::size_t kBeforeBlock = alignof(std::max_align_t);

std::size_t sizeOfBlock(const char* block) {
    std::size_t size = 0;
    if (block)
        std::memcpy(&size, block, sizeof size);
    return size;
}

/// Memory of zeros, so that whatever the library reads of a picture that its file does not have is always the
/// same. The memory grows if there is some already.
void* takeMemory(std::size_t size, void* memory = nullptr) {
    char* const old = memory ? static_cast<char*>(memory) - kBeforeBlock : nullptr;
    const std::size_t oldSize = sizeOfBlock(old);
    const std::size_t others = usedMemory - oldSize;
    if (size > kMostMemory - others)
        return nullptr;
    auto* const block = static_cast<char*>(std::realloc(old, kBeforeBlock + size));
    if (!block)
        return nullptr;
    std::memcpy(block, &size, sizeof size);
    if (size > oldSize)
        std::memset(block + kBeforeBlock + oldSize, 0, size - oldSize);
    usedMemory = others + size;
    return block + kBeforeBlock;
}

void giveMemoryBack(void* memory) {
    if (!memory)
        return;
    char* const block = static_cast<char*>(memory) - kBeforeBlock;
    usedMemory -= sizeOfBlock(block);
    std::free(block);
}

} // namespace
} // namespace qrtVistrelClasses4

#define STBI_MALLOC(size) qrtVistrelClasses4::takeMemory(size)
#define STBI_REALLOC(memory, size) qrtVistrelClasses4::takeMemory(size, memory)
#define STBI_FREE(memory) qrtVistrelClasses4::giveMemoryBack(memory)
#define STBI_MAX_DIMENSIONS 2048
#define STBI_ONLY_JPEG
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#define STB_IMAGE_STATIC
#define STB_IMAGE_IMPLEMENTATION
#include <stb/stb_image.h>

namespace qrtVistrelClasses4 {
namespace {

static_assert(STBI_MAX_DIMENSIONS == kLargestPictureSide);

constexpr std::string_view kStartOfPng = "\x89PNG";

struct FreedPixels {
    void operator()(stbi_uc* pixels) const { stbi_image_free(pixels); }
};

/// The pixels have four bytes: red, green, blue and how much they cover.
TimedPicture pictureOf(const stbi_uc* bytes, DotSize size) {
    constexpr unsigned whole = 255;
    TimedPicture picture{Raster(size.width, size.height)};
    picture.opacity.reserve(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    for (std::int32_t y = 0; y < size.height; ++y)
        for (Color& pixel : picture.pixels.row(y)) {
            const unsigned opacity = bytes[3];
            const auto overBlack = [&](unsigned part) {
                return static_cast<std::uint8_t>((part * opacity + whole / 2) / whole);
            };
            pixel = Rgb(overBlack(bytes[0]), overBlack(bytes[1]), overBlack(bytes[2]));
            picture.opacity.push_back(static_cast<std::uint8_t>(opacity));
            bytes += 4;
        }
    if (std::ranges::all_of(picture.opacity, [](std::uint8_t opacity) { return opacity == whole; }))
        picture.opacity = {};
    return picture;
}

} // namespace

bool PictureFiles::readsFiles(std::string_view name) {
    static constexpr std::array<std::string_view, 5> endings{"png", "jpg", "jpeg", "jpe", "gif"};
    return std::ranges::any_of(endings, [&](std::string_view ending) { return HasEnding(name, ending); });
}

std::vector<TimedPicture> PictureFiles::read(std::string_view bytes) {
    std::vector<TimedPicture> pictures = ReadGif(bytes);
    if (!pictures.empty())
        return pictures;
    const std::string jpeg = CheckedJpeg(bytes);
    const std::string_view checked = bytes.starts_with(kStartOfPng) ? bytes : std::string_view(jpeg);
    constexpr int bytesOfPixel = 4;
    DotSize size;
    const std::unique_ptr<stbi_uc, FreedPixels> pixels(stbi_load_from_memory(
        reinterpret_cast<const stbi_uc*>(checked.data()), static_cast<int>(checked.size()), &size.width,
        &size.height, nullptr, bytesOfPixel));
    if (pixels)
        pictures.push_back(pictureOf(pixels.get(), size));
    return pictures;
}

} // namespace qrtVistrelClasses4
