#include "media/BmpFile.h"

#include "BmpTesting.h"
#include "HostTest.h"
#include "media/PictureCache.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

/// A letter for each pixel, row by row: "R", "G", "B", "." for black.
std::string lettersOf(const Raster& picture) {
    std::string letters;
    for (std::int32_t y = 0; y < picture.height(); ++y)
        for (const Color pixel : picture.row(y))
            letters += pixel == 0                ? '.'
                       : pixel == Rgb(255, 0, 0) ? 'R'
                       : pixel == Rgb(0, 255, 0) ? 'G'
                       : pixel == Rgb(0, 0, 255) ? 'B'
                                                 : '?';
    return letters;
}

TEST(BmpFile, IsReadInEveryUncompressedForm) {
    const std::string lower24("\0\0\xff\0\xff\0\xff\0\0\0\0\0", 12), upper24(12, '\0');
    const std::string lower32("\0\0\xff\x7f\0\xff\0\0\xff\0\0\0", 12), upper32(12, '\0');
    const std::string fiveBits("\0\x7c\xe0\x03\x1f\0\0\0", 8), upper16(8, '\0');
    const std::string sixGreens("\0\xf8\xe0\x07\x1f\0\0\0", 8);
    const std::string masks565 = BytesOf(0xf800, 4) + BytesOf(0x7e0, 4) + BytesOf(0x1f, 4);
    const std::string masks888 = BytesOf(0xff0000, 4) + BytesOf(0xff00, 4) + BytesOf(0xff, 4);
    const struct {
        const char* why;
        std::string file;
        std::string pixels = "...RGB";
    } cases[] = {
        {"two colours, rows of four bytes", Bmp(1, {"\xa0\0\0\0\0\0\0\0", 8}), "...R.R"},
        {"two pixels a byte", Bmp(4, {"\x12\x30\0\0\0\0\0\0", 8})},
        {"numbers beyond the palette are black", Bmp(8, {"\1\2\3\0\4\xff\0\0", 8})},
        {"three bytes a pixel", Bmp(24, lower24 + upper24)},
        {"four, one of them unused", Bmp(32, lower32 + upper32)},
        {"two, of five bits a colour", Bmp(16, fiveBits + upper16)},
        {"two, with masks", Bmp(16, sixGreens + upper16, 2, 3, masks565)},
        {"four, with masks", Bmp(32, lower32 + upper32, 2, 3, masks888)},
        {"the topmost row first", Bmp(24, upper24 + lower24, -2)},
    };
    for (const auto& [why, file, pixels] : cases) {
        SCOPED_TRACE(why);
        const auto picture = ParseBmp(file);
        ASSERT_TRUE(picture);
        EXPECT_EQ(lettersOf(*picture), pixels);
        EXPECT_EQ(BmpSize(file.substr(0, kBmpStart), file.size()), (DotSize{3, 2})) << "without the pixels";
        for (std::size_t cut = 0; cut < file.size(); ++cut) {
            EXPECT_FALSE(ParseBmp(file.substr(0, cut))) << "cut short at " << cut;
            EXPECT_FALSE(BmpSize(file.substr(0, std::min(cut, kBmpStart)), cut)) << "cut short at " << cut;
        }
    }
}

TEST(BmpFile, IsWrittenInPiecesAsItIsRead) {
    for (std::int32_t width = 1; width <= 5; ++width) {
        Raster lower(width, 1, Rgb(1, 2, 3)), whole(width, 3);
        lower.row(0).back() = Rgb(255, 128, 0);
        std::ranges::copy(lower.row(0), whole.row(2).begin());
        const std::string file = BmpHeader(whole.size()) + BmpRows(lower) + BmpRows({width, 2});
        EXPECT_EQ(ParseBmp(file), whole) << width;
        EXPECT_EQ(file.substr(2, 4), BytesOf(static_cast<std::uint32_t>(file.size()), 4)) << width;
    }
}

TEST(BmpFile, IsNoPictureInAnyOtherForm) {
    const std::string rows(24, '\0');
    const auto changed = [&](std::size_t at, const std::string& bytes) {
        return Bmp(24, rows).replace(at, bytes.size(), bytes);
    };
    const std::pair<const char*, std::string> cases[] = {
        {"compressed", Bmp(8, rows, 2, 1)},
        {"masks for a palette's numbers", Bmp(8, rows, 2, 3)},
        {"no bits at all", Bmp(0, rows)},
        {"no rows", Bmp(24, rows, 0)},
        {"a height without a positive one", Bmp(24, rows, INT32_MIN)},
        {"too many rows", Bmp(24, rows, kLargestPictureSide + 1)},
        {"a width below 0", changed(18, "\xff\xff\xff\xff")},
        {"an old header", changed(14, {"\x0c\0\0\0", 4})},
        {"a header beyond the end", changed(14, "\xff\xff\xff\xff")},
        {"pixels beyond the end", changed(10, "\xff\xff\xff\xff")},
        {"another file", changed(0, "MZ")},
    };
    for (const auto& [why, file] : cases)
        EXPECT_FALSE(ParseBmp(file)) << why;
}

TEST(PictureCache, ReadsAPictureOnceAndForItsSizeOnlyTheStart) {
    TestHost host;
    constexpr std::int32_t side = kLargestPictureSide;
    const std::string path = host.inLibrary("large.bmp");
    host.machine.files().put(
        path, Bmp(1, std::string(side / 8 * side, '\xaa'), side).replace(18, 4, BytesOf(side, 4)));
    int reads = 0;
    host.machine.files().observer = [&](const FileOperation& operation) {
        reads += operation.kind == FileOperation::read ? 1 : 0;
        return SystemError::none;
    };
    PictureCache pictures;
    for (int time = 0; time < 2; ++time)
        EXPECT_EQ(pictures.sizeOf(path), (DotSize{side, side}));
    EXPECT_EQ(reads, 2) << "opened, and its start read";
    EXPECT_EQ(pictures.find(path).pictures.at(0).pixels.size(), (DotSize{side, side}));
    EXPECT_EQ(&pictures.find(path), &pictures.find(path));
    EXPECT_EQ(reads, 4);
    using enum PictureOutcome::What;
    const std::string bad = host.inLibrary("bad.Bmp"), film = host.inLibrary("film.avi");
    for (const std::string& other : {bad, film})
        host.machine.files().put(other, "BM, and no more");
    for (const auto& [other, what] : {std::pair(bad, unreadable),
                                      {film, unknownKind},
                                      {host.inLibrary("no.bmp"), missing},
                                      {"bad.Bmp", missing}})
        EXPECT_TRUE(!pictures.sizeOf(other) && pictures.find(other).what == what) << other;
}

} // namespace
} // namespace qrtVistrelClasses4
