#include "tools/preview/BmpFile.h"

#include "TestHost.h"
#include "playfile/FrameRules.h"
#include "tools/preview/FramePicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using Pixels = std::vector<std::vector<Color>>;

Pixels pixelsOf(const PixelBuffer& picture) {
    Pixels rows;
    for (std::int32_t y = 0; y < picture.height(); ++y)
        rows.emplace_back(picture.row(y).begin(), picture.row(y).end());
    return rows;
}

constexpr Color kRed = Rgb(255, 0, 0), kGreen = Rgb(0, 255, 0), kBlue = Rgb(0, 0, 255);

std::string bytesOf(std::uint32_t number, int count) {
    std::string bytes;
    for (; count-- > 0; number >>= 8)
        bytes += static_cast<char>(number & 0xff);
    return bytes;
}

/// A file with two rows of three pixels.
std::string bmp(unsigned bits, const std::string& rows, std::int32_t height = 2, unsigned compression = 0,
                const std::string& masks = "") {
    const std::string red("\0\0\xff\0", 4), green("\0\xff\0\0", 4), blue("\xff\0\0\0", 4), black(4, '\0');
    const std::string palette = bits == 1 ? black + red : bits <= 8 ? black + red + green + blue : "";
    const auto colors = static_cast<std::uint32_t>(palette.size() / 4);
    return "BM" + bytesOf(0, 8) + bytesOf(static_cast<std::uint32_t>(54 + palette.size() + masks.size()), 4) +
           bytesOf(40, 4) + bytesOf(3, 4) + bytesOf(static_cast<std::uint32_t>(height), 4) + bytesOf(1, 2) +
           bytesOf(bits, 2) + bytesOf(compression, 4) + bytesOf(0, 12) + bytesOf(colors, 4) + bytesOf(0, 4) +
           palette + masks + rows;
}

TEST(BmpFile, IsReadInEveryUncompressedForm) {
    const std::string lower24("\0\0\xff\0\xff\0\xff\0\0\0\0\0", 12), upper24(12, '\0');
    const std::string lower32("\0\0\xff\x7f\0\xff\0\0\xff\0\0\0", 12), upper32(12, '\0');
    const std::string fiveBits("\0\x7c\xe0\x03\x1f\0\0\0", 8), upper16(8, '\0');
    const std::string sixGreens("\0\xf8\xe0\x07\x1f\0\0\0", 8);
    const std::string masks565 = bytesOf(0xf800, 4) + bytesOf(0x7e0, 4) + bytesOf(0x1f, 4);
    const std::string masks888 = bytesOf(0xff0000, 4) + bytesOf(0xff00, 4) + bytesOf(0xff, 4);
    const Pixels colors{{0, 0, 0}, {kRed, kGreen, kBlue}}, twoColors{{0, 0, 0}, {kRed, 0, kRed}};
    const struct {
        const char* why;
        std::string file;
        Pixels pixels;
    } cases[] = {
        {"two colours, rows of four bytes", bmp(1, {"\xa0\0\0\0\0\0\0\0", 8}), twoColors},
        {"two pixels a byte", bmp(4, {"\x12\x30\0\0\0\0\0\0", 8}), colors},
        {"numbers beyond the palette are black", bmp(8, {"\1\2\3\0\4\xff\0\0", 8}), colors},
        {"three bytes a pixel", bmp(24, lower24 + upper24), colors},
        {"four, one of them unused", bmp(32, lower32 + upper32), colors},
        {"two, of five bits a colour", bmp(16, fiveBits + upper16), colors},
        {"two, with masks", bmp(16, sixGreens + upper16, 2, 3, masks565), colors},
        {"four, with masks", bmp(32, lower32 + upper32, 2, 3, masks888), colors},
        {"the topmost row first", bmp(24, upper24 + lower24, -2), colors},
    };
    for (const auto& [why, file, pixels] : cases) {
        SCOPED_TRACE(why);
        const auto picture = ParseBmp(file);
        ASSERT_TRUE(picture);
        EXPECT_EQ(pixelsOf(*picture), pixels);
        const auto size = BmpSize(file.substr(0, kBmpStart), file.size());
        ASSERT_TRUE(size);
        EXPECT_EQ(std::pair(size->width, size->height), std::pair(3, 2)) << "without the pixels";
        for (std::size_t cut = 0; cut < file.size(); ++cut) {
            EXPECT_FALSE(ParseBmp(file.substr(0, cut))) << "cut short at " << cut;
            EXPECT_FALSE(BmpSize(file.substr(0, std::min(cut, kBmpStart)), cut)) << "cut short at " << cut;
        }
    }
}

TEST(BmpFile, IsNoPictureInAnyOtherForm) {
    const std::string rows(24, '\0');
    const auto changed = [&](std::size_t at, const std::string& bytes) {
        return bmp(24, rows).replace(at, bytes.size(), bytes);
    };
    const std::pair<const char*, std::string> cases[] = {
        {"compressed", bmp(8, rows, 2, 1)},
        {"masks for a palette's numbers", bmp(8, rows, 2, 3)},
        {"no bits at all", bmp(0, rows)},
        {"no rows", bmp(24, rows, 0)},
        {"a height without a positive one", bmp(24, rows, INT32_MIN)},
        {"too many rows", bmp(24, rows, kLargestBmpSide + 1)},
        {"a width below 0", changed(18, "\xff\xff\xff\xff")},
        {"an old header", changed(14, {"\x0c\0\0\0", 4})},
        {"a header beyond the end", changed(14, "\xff\xff\xff\xff")},
        {"pixels beyond the end", changed(10, "\xff\xff\xff\xff")},
        {"another file", changed(0, "MZ")},
    };
    for (const auto& [why, file] : cases)
        EXPECT_FALSE(ParseBmp(file)) << why;
}

TEST(Pictures, AreLookedIntoOnceForTheSizeOfASign) {
    TestHost host;
    MemoryFileSystem& files = host.machine.files();
    constexpr std::int32_t side = kLargestBmpSide;
    const std::string large =
        bmp(1, std::string(side / 8 * side, '\xaa'), side).replace(18, 4, bytesOf(side, 4));
    OneBasedArray<FrameRecord> frames(60);
    int number = 0;
    for (FrameRecord& frame : frames) {
        SetFrameType(frame, StoredFrameType(NEW_FRAME_TYPES::FRAME_GRAPHIC));
        frame.PicturefileName = host.inLibrary(std::to_string(number++ % 6) + ".bmp");
        files.put(frame.PicturefileName, large);
    }
    ErrorLines errors;
    FramePainter painter({}, errors);
    int reads = 0;
    files.observer = [&](const FileOperation& operation) {
        reads += operation.kind == FileOperation::read ? 1 : 0;
        return SystemError::none;
    };
    const DotSize size = painter.sizeFor(frames);
    EXPECT_EQ(std::pair(size.width, size.height), std::pair(512, 128));
    EXPECT_EQ(reads, 12) << "each of six opened, and its start read";
    EXPECT_TRUE(errors.empty());
}

} // namespace
} // namespace qrtVistrelClasses4
