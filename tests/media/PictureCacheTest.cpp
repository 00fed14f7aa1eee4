#include "media/PictureCache.h"

#include "BmpTesting.h"
#include "HostTest.h"
#include "media/BmpFile.h"

namespace qrtVistrelClasses4 {
namespace {

class Pictures : public HostTest {
protected:
    /// Puts a file into the library's folder and returns its path.
    std::string put(const std::string& name, const std::string& content) {
        const std::string path = host_.inLibrary(name);
        files().put(path, content);
        return path;
    }

    PictureCache pictures_;
};

TEST_F(Pictures, AreReadOnceAndForTheirSizeOnlyTheStart) {
    constexpr std::int32_t side = kLargestBmpSide;
    const std::string path =
        put("large.bmp", Bmp(1, std::string(side / 8 * side, '\xaa'), side).replace(18, 4, BytesOf(side, 4)));
    int reads = 0;
    files().observer = [&](const FileOperation& operation) {
        reads += operation.kind == FileOperation::read ? 1 : 0;
        return SystemError::none;
    };
    for (int time = 0; time < 3; ++time)
        EXPECT_EQ(pictures_.sizeOf(path), (DotSize{side, side}));
    EXPECT_EQ(reads, 2) << "opened, and its start read";
    for (int time = 0; time < 3; ++time)
        EXPECT_EQ(pictures_.find(path)->size(), (DotSize{side, side}));
    EXPECT_EQ(reads, 4);
}

TEST_F(Pictures, ThatCannotBeReadAreNamedOnceIfTheyAreBmpFiles) {
    const std::string bad = put("bad.Bmp", "BM, and no more"), other = put("film.avi", "RIFF");
    for (const std::string& path : {bad, other, host_.inLibrary("missing.bmp"), std::string("bad.Bmp")}) {
        EXPECT_EQ(pictures_.sizeOf(path), std::nullopt) << path;
        EXPECT_EQ(pictures_.find(path), nullptr) << path;
    }
    EXPECT_EQ(pictures_.takeUnreadable(), Texts{bad});
    EXPECT_EQ(pictures_.takeUnreadable(), Texts());
}

} // namespace
} // namespace qrtVistrelClasses4
