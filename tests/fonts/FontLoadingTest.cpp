#include "TestHost.h"
#include "fonts/classFontMaster.h"
#include "fonts/clsFontSizes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

/// A host of one font.
struct FontHost {
    FontHost() {
        fonts.OnMessage([this](const std::string& message) { messages.push_back(message); });
    }

    /// A path with "/" below the application folder.
    std::string full(std::string path) {
        std::ranges::replace(path, '/', kPathSeparator);
        return host.inLibrary(path);
    }
    /// Puts a font of the characters from 32 on, whose blank tells `mark`.
    void put(const std::string& path, int mark) {
        host.machine.files().put(full(path), std::string(1, static_cast<char>(mark)));
    }
    /// Mark of the font that is loaded; 0 for none.
    int loaded() { return fonts.LetterWidth(" "); }
    std::string size() const {
        return std::to_string(fonts.FontWidth()) + 'x' + std::to_string(fonts.FontHeight());
    }

    TestHost host;
    classFontMaster fonts;
    Texts messages;
};

TEST(FontLoading, LetsAHandlerReplaceItself) {
    FontHost host;
    std::string heard;
    host.fonts.OnMessage([&, own = std::string(100, 'x')](const std::string& message) {
        host.fonts.OnMessage(nullptr);
        heard = own + message;
    });
    EXPECT_FALSE(host.fonts.LoadFont("gone.cmd", 6, 8));
    EXPECT_EQ(heard, std::string(100, 'x') + "gone.cmd NOT FOUND @ gone.cmd in ");
}

TEST(FontLoading, KnowsTheFontOfEveryNumber) {
    FontHost host;
    std::string all;
    for (std::int16_t number = 0; number < 12; ++number) {
        host.fonts.FontSizeByNum(number);
        all += host.size();
        for (const bool isNew : {true, false})
            all.append(" ").append(clsFontSizes::FontFile(number, 0, isNew));
        all += ", ";
    }
    EXPECT_EQ(all, "6x8 Fstnd08.cmd 6x8.cmd, 6x8 Fstnd08.cmd 6x8.cmd, 4x8 4x8.cmd 4x8.cmd, "
                   "5x8 Fstnd5x8.cmd 5x8.cmd, 5x8 Fstnd5x8.cmd 5x8.cmd, 6x8 Fstnd68b.cmd 6x8fb.cmd, "
                   "16x16 Fstnd16.cmd 16x16.cmd, 16x16 Fstnd16.cmd 16x16.cmd, 24x24 24x24.cmd 24x24.cmd, "
                   "24x24 24x24.cmd 24x24.cmd, 24x32 24x32.cmd 24x32.cmd, 24x32 24x32.cmd 24x32.cmd, ");
    EXPECT_EQ(clsFontSizes::FontFile(12, 0, true), "");
    for (std::int16_t type = -1; type < 200; ++type)
        EXPECT_EQ(clsFontSizes::FontFile(5, type, true) == "Fsacl68b.cmd",
                  type >= 16 && type <= 25 && type != 22);
    host.put("bin/Fsacl68b.cmd", 7);
    host.fonts.UseNewFont(true);
    EXPECT_TRUE(host.fonts.LoadFontByNum(5, 20));
    EXPECT_FALSE(host.fonts.LoadFontByNum(-1, 20) || host.fonts.LoadFontByNum(12, 20));
    host.fonts.FontSizeByNum(12);
    EXPECT_EQ(host.size(), "6x8") << "as it was";
    EXPECT_EQ(host.loaded(), 7);
    EXPECT_EQ(host.messages, Texts());
}

TEST(FontLoading, SearchesAFontAndTells) {
    FontHost paths;
    const auto missing = [&](const std::string& folder, const std::string& name) {
        return name + " NOT FOUND @ " + paths.full(folder + name) + " in " + paths.full(folder);
    };
    const std::string noMy = missing("fonts/", "My.cmd"), no6x8 = missing("", "6x8.cmd");
    const std::string nowhere = "Error Loading Font. Could not find " + paths.full("fonts/My.cmd");
    const std::string noFont0 = "Error Loading Font. Could not find " + paths.full("bin/6x8.cmd");
    const struct {
        const char* why;
        std::string path;
        Texts files;
        int loaded; ///< Number of the file, from 1; 0 for none.
        Texts messages;
    } cases[] = {
        {"at its place", "fonts/My.cmd", {"fonts/My.cmd", "Extended/My.cmd"}, 1, {}},
        {"not a folder", "fonts/My.cmd", {"fonts/My.cmd/My.cmd"}, 0, {noMy, nowhere}},
        {"extended", "fonts/My.cmd", {"CustomFonts/My.cmd", "extended/my.cmd"}, 2, {noMy}},
        {"custom", "fonts/My.cmd", {"bin/6x8.cmd", "CustomFonts/My.cmd"}, 2, {noMy}},
        {"before font 0", "6x8.cmd", {"bin/6x8.cmd", "Extended/6x8.cmd"}, 2, {no6x8}},
        {"font 0", "FSTND08.cmd", {"BIN/6X8.CMD"}, 1, {missing("", "FSTND08.cmd"), "FSTND08.cmd NOT FOUND"}},
        {"no font 0", "6x8.cmd", {}, 0, {no6x8, "6x8.cmd NOT FOUND", missing("bin/", "6x8.cmd"), noFont0}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        FontHost host;
        for (std::size_t i = 0; i < row.files.size(); ++i)
            host.put(row.files[i], static_cast<int>(i) + 1);
        EXPECT_EQ(host.fonts.LoadFont(host.full(row.path), 6, 8), row.loaded != 0);
        EXPECT_EQ(host.loaded(), row.loaded);
        EXPECT_EQ(host.messages, row.messages);
    }
}

TEST(FontLoading, LeavesTheFontAloneWhenItFails) {
    FontHost host;
    host.put("bin/6x8.cmd", 6);
    ASSERT_TRUE(host.fonts.LoadFontByNum(0, 0));
    const std::string shortPath = host.full("short.cmd");
    host.host.machine.files().put(shortPath, std::string("\0\2\5\7A", 5));
    EXPECT_FALSE(host.fonts.LoadFont(host.full("SHORT.cmd"), -1, -1));
    EXPECT_EQ(host.messages, Texts{"Error Loading Font. Cut short: " + shortPath});
    const std::pair<std::string, Numbers> cases[] = {
        {"", {}}, {host.full("6x8.cmd"), {53}}, {shortPath, {62}}, {host.full("bin"), {75}}};
    for (const auto& [path, errors] : cases) {
        EXPECT_FALSE(host.fonts.LoadExistingFont(path, -1, -1));
        EXPECT_EQ(host.host.reports.takeNumbers(), errors) << path;
    }
    host.host.failReads(1, 1, SystemError::deviceFailure);
    EXPECT_FALSE(host.fonts.LoadFontByNum(0, 0));
    EXPECT_EQ(host.host.reports.takeNumbers(), Numbers{57});
    EXPECT_EQ(host.messages.size(), 1u) << "messages tell of fonts that are missing or cut short";
    EXPECT_EQ(host.size() + " " + std::to_string(host.loaded()), "6x8 6");
}

} // namespace
} // namespace qrtVistrelClasses4
