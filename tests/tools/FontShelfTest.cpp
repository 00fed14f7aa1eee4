#include "tools/preview/FontShelf.h"

#include "TestHost.h"

#include <gmock/gmock.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(FontShelf, KeepsAFontOnceWhateverItsNameAndFewAtATime) {
    TestHost host;
    ErrorLines errors;
    FontShelf shelf(0, errors);
    const auto put = [&](const std::string& name) {
        host.machine.files().put(host.inLibrary(name), HeaderFontBytes({4, 3, "A"}));
    };
    put("bin/Fstnd08.cmd");
    for (std::size_t number = 0; number <= FontShelf::kMostCustomFonts; ++number)
        put("CustomFonts/" + std::to_string(number) + ".CFF");
    const std::int16_t custom = 12;
    std::weak_ptr<classFontMaster> first = shelf.find(custom, "x/0.CFF");
    EXPECT_EQ(shelf.find(custom, "y/0.CFF"), first.lock());
    for (std::size_t number = 0; number <= FontShelf::kMostCustomFonts; ++number)
        EXPECT_NE(shelf.find(custom, std::to_string(number) + ".CFF"), nullptr);
    EXPECT_TRUE(first.expired());
    EXPECT_TRUE(errors.empty());
    for (const char* missing : {"nowhere", "x/6x8.cmd", "y/6x8.cmd", "", "caf\xe9"})
        EXPECT_EQ(shelf.find(custom, missing), shelf.find(0, "")) << missing;
    EXPECT_THAT(errors.lines(), testing::Contains(testing::EndsWith("Could not find caf\u00e9")));
}

} // namespace
} // namespace qrtVistrelClasses4
