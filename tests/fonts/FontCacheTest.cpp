#include "fonts/FontCache.h"

#include "fonts/FontTesting.h"
#include "platform/Path.h"

namespace qrtVistrelClasses4 {
namespace {

struct CachedFonts : HostTest {
    void put(const std::string& name) { files().put(host_.inLibrary(name), HeaderFontBytes({4, 3, "A"})); }

    FontCache fonts_{0};
};

TEST_F(CachedFonts, AreLoadedOnceWhateverTheirFileIsCalledAndFewKept) {
    constexpr std::int16_t custom = 12;
    for (std::size_t number = 0; number <= FontCache::kMostCustomFonts; ++number)
        put("CustomFonts/" + std::to_string(number) + ".CFF");
    const std::weak_ptr<const Font> first = fonts_.find(custom, "x/0.CFF");
    EXPECT_EQ(fonts_.find(custom, "y/0.cff"), first.lock());
    for (std::size_t number = 0; number <= FontCache::kMostCustomFonts; ++number)
        EXPECT_EQ(fonts_.find(custom, std::to_string(number) + ".CFF")->characters, "A");
    EXPECT_TRUE(first.expired());
    EXPECT_NE(fonts_.find(custom, "x/0.CFF"), nullptr) << "loaded again";
    EXPECT_TRUE(fonts_.takeFaults().empty());
}

TEST_F(CachedFonts, ThatCannotBeReadAreReplacedByFont0AndReportedOnce) {
    put("bin/Fstnd08.cmd");
    put("bin/Fstnd5x8.cmd");
    host_.failReads(1, 1, SystemError::deviceFailure);
    const auto replaced = fonts_.find(4, "");
    EXPECT_TRUE(replaced == fonts_.find(0, "") && replaced == fonts_.find(4, ""));
    const auto faults = fonts_.takeFaults();
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0].name + " " + std::to_string(faults[0].error.value().number()),
              host_.inLibrary(JoinPath("bin", "Fstnd5x8.cmd")) + " 57");
    EXPECT_TRUE(faults[0].isReplaced);
}

} // namespace
} // namespace qrtVistrelClasses4
