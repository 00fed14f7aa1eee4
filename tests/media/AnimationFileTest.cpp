#include "media/AnimationFile.h"

#include "AnimationTesting.h"

namespace qrtVistrelClasses4 {
namespace {

TEST(AnimationFile, CountsPicturesAndTakesNothingFromWhatIsCutShort) {
    for (const std::string& whole : {Avi(3, 128, 64), Gif(3, 128, 64)}) {
        EXPECT_EQ(ParseAnimation(whole), (Animation{{128, 64}, 3}));
        EXPECT_EQ(ParseAnimation(whole + "more"), (Animation{{128, 64}, 3}));
        for (std::size_t size = 0; size < whole.size(); ++size)
            EXPECT_EQ(ParseAnimation(whole.substr(0, size)), std::nullopt) << size;
    }
    EXPECT_EQ(ParseAnimation(Avi(0x80000000, 128, 64)), std::nullopt);
    EXPECT_EQ(ParseAnimation(Avi(3, 0x10000, 64)), std::nullopt);
    EXPECT_EQ(ParseAnimation(Gif(3, 0, 64)), std::nullopt);
}

} // namespace
} // namespace qrtVistrelClasses4
