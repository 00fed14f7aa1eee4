#include "preview/FontCache.h"

#include "HostTest.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int16_t kCustom = 12;

class Fonts : public HostTest {
protected:
    void put(const std::string& name) { files().put(host_.inLibrary(name), HeaderFontBytes({4, 3, "A"})); }

    FontCache fonts_{0};
};

TEST_F(Fonts, AreLoadedOnceWhateverTheirFileIsCalledAndFewKept) {
    for (std::size_t number = 0; number <= FontCache::kMostCustomFonts; ++number)
        put("CustomFonts/" + std::to_string(number) + ".CFF");
    const std::weak_ptr<const Font> first = fonts_.find(kCustom, "x/0.CFF");
    EXPECT_EQ(fonts_.find(kCustom, "y/0.cff"), first.lock());
    for (std::size_t number = 0; number <= FontCache::kMostCustomFonts; ++number)
        EXPECT_EQ(fonts_.find(kCustom, std::to_string(number) + ".CFF")->characters, "A");
    EXPECT_TRUE(first.expired());
    EXPECT_NE(fonts_.find(kCustom, "x/0.CFF"), nullptr) << "loaded again";
    EXPECT_TRUE(fonts_.takeFaults().empty());
}

TEST_F(Fonts, ThatCannotBeReadAreReplacedByFont0AndReportedOnce) {
    put("bin/Fstnd08.cmd");
    put("bin/Fstnd5x8.cmd");
    host_.failReads(1, 1, SystemError::deviceFailure);
    const auto replaced = fonts_.find(4, "");
    EXPECT_TRUE(replaced == fonts_.find(0, "") && replaced == fonts_.find(4, ""));
    const auto faults = fonts_.takeFaults();
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0].name + " " + std::to_string(faults[0].error.value().number()), "4 57");
}

} // namespace
} // namespace qrtVistrelClasses4
