#include "media/PictureCache.h"

#include "BmpTesting.h"
#include "HostTest.h"
#include "media/BmpFile.h"

namespace qrtVistrelClasses4 {
namespace {

TEST(PictureCache, ReadsAPictureOnceAndForItsSizeOnlyTheStartAndReportsBadOnesOnce) {
    TestHost host;
    constexpr std::int32_t side = kLargestBmpSide;
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
    EXPECT_EQ(pictures.find(path)->size(), (DotSize{side, side}));
    EXPECT_EQ(pictures.find(path), pictures.find(path));
    EXPECT_EQ(reads, 4);
    const std::string bad = host.inLibrary("bad.Bmp"), film = host.inLibrary("film.avi");
    for (const std::string& other : {bad, film, host.inLibrary("missing.bmp"), std::string("bad.Bmp")}) {
        if (other == bad || other == film)
            host.machine.files().put(other, "BM, and no more");
        EXPECT_TRUE(!pictures.sizeOf(other) && !pictures.find(other)) << other;
    }
    EXPECT_EQ(pictures.takeUnreadable(), Texts{bad});
}

} // namespace
} // namespace qrtVistrelClasses4
