#include "preview/FontCache.h"

#include "HostTest.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int16_t kCustom = 12;

class Fonts : public HostTest {
protected:
    Fonts() {
        put("bin/Fstnd08.cmd");
        put("bin/Fstnd5x8.cmd");
        put("CustomFonts/A.CFF");
    }
    void put(const std::string& name) { files().put(host_.inLibrary(name), HeaderFontBytes({4, 3, "A"})); }

    FontCache fonts_{0};
};

TEST_F(Fonts, AreLoadedOnceWhateverTheirFileIsCalled) {
    EXPECT_EQ(fonts_.find(3, ""), fonts_.find(3, "A.CFF"));
    EXPECT_NE(fonts_.find(kCustom, "A.CFF"), fonts_.find(0, ""));
    EXPECT_EQ(fonts_.find(kCustom, "x/A.CFF"), fonts_.find(kCustom, "y/a.cff"));
    EXPECT_TRUE(fonts_.takeFaults().empty());
}

TEST_F(Fonts, AreKeptUpToALimit) {
    const std::weak_ptr<const Font> first = fonts_.find(kCustom, "A.CFF");
    for (std::size_t number = 0; number < FontCache::kMostCustomFonts; ++number) {
        EXPECT_FALSE(first.expired());
        put("CustomFonts/" + std::to_string(number));
        fonts_.find(kCustom, std::to_string(number));
    }
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(fonts_.find(kCustom, "A.CFF")->characters, "A") << "loaded again";
    EXPECT_TRUE(fonts_.takeFaults().empty());
}

TEST_F(Fonts, ThatCannotBeLoadedAreReplacedByFont0AndReportedOnce) {
    using enum PreviewFault::What;
    const std::string noFile = "Error Loading Font. Could not find ";
    const struct {
        std::int16_t number;
        std::string name;
        PreviewFault::What what;
        std::string fault, lastMessage;
    } cases[] = {
        {8, "", numberedFont, "8", noFile + host_.inLibrary(JoinPath("bin", "24x24.cmd"))},
        {-1, "", unknownFontNumber, "-1", ""},
        {kCustom, "", unnamedFont, "", ""},
        {kCustom, "nowhere", customFont, "nowhere", noFile + "nowhere"},
        {kCustom, "x/6x8.cmd", customFont, "x/6x8.cmd", "6x8.cmd NOT FOUND"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.fault);
        for (int time = 0; time < 2; ++time)
            EXPECT_EQ(fonts_.find(row.number, row.name), fonts_.find(0, ""));
        const auto faults = fonts_.takeFaults();
        ASSERT_EQ(faults.size(), 1U);
        EXPECT_EQ(faults[0].what, row.what);
        EXPECT_EQ(faults[0].name, row.fault);
        EXPECT_EQ(faults[0].messages.empty() ? "" : faults[0].messages.back(), row.lastMessage);
        EXPECT_FALSE(faults[0].error);
    }
    host_.failReads(1, 2);
    EXPECT_EQ(FontCache(0).find(0, "")->height, 8) << "room, but no dots";
    fonts_.find(4, "");
    const auto faults = fonts_.takeFaults();
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0].error.value().number(), 75);
}

} // namespace
} // namespace qrtVistrelClasses4
