#include "fonts/FontLoading.h"

#include "HostTest.h"
#include "fonts/classFontMaster.h"
#include "fonts/clsFontSizes.h"
#include "platform/LetterCase.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

class FontLoading : public HostTest {
protected:
    /// A path below the application folder, given with "/".
    std::string full(std::string path) {
        std::ranges::replace(path, '/', kPathSeparator);
        return host_.inLibrary(path);
    }
    /// Puts a font of the characters from 32 on, whose blank is `mark` dots wide.
    void put(const std::string& path, int mark) {
        files().put(full(path), std::string(1, static_cast<char>(mark)));
    }
    static int markOf(const FontOutcome& outcome) { return outcome.font ? outcome.font->store[0] : 0; }
    /// Size of the class's font and the width of its blank.
    std::string loaded() {
        return std::to_string(fonts_.FontWidth()) + 'x' + std::to_string(fonts_.FontHeight()) + ' ' +
               std::to_string(fonts_.LetterWidth(" "));
    }

    classFontMaster fonts_;
};

TEST_F(FontLoading, KnowsTheFontOfEveryNumber) {
    std::string all;
    for (std::int16_t number = 0; number < 12; ++number) {
        fonts_.FontSizeByNum(number);
        all += loaded().substr(0, loaded().find(' '));
        for (const bool isNew : {true, false})
            all.append(" ").append(clsFontSizes::FontFile(number, 0, isNew));
        all += ", ";
    }
    EXPECT_EQ(all, "6x8 Fstnd08.cmd 6x8.cmd, 6x8 Fstnd08.cmd 6x8.cmd, 4x8 4x8.cmd 4x8.cmd, "
                   "5x8 Fstnd5x8.cmd 5x8.cmd, 5x8 Fstnd5x8.cmd 5x8.cmd, 6x8 Fstnd68b.cmd 6x8fb.cmd, "
                   "16x16 Fstnd16.cmd 16x16.cmd, 16x16 Fstnd16.cmd 16x16.cmd, 24x24 24x24.cmd 24x24.cmd, "
                   "24x24 24x24.cmd 24x24.cmd, 24x32 24x32.cmd 24x32.cmd, 24x32 24x32.cmd 24x32.cmd, ");
    for (std::int16_t type = -1; type < 200; ++type)
        EXPECT_EQ(clsFontSizes::FontFile(5, type, true) == "Fsacl68b.cmd",
                  type >= 16 && type <= 25 && type != 22);
    put("bin/Fsacl68b.cmd", 7);
    EXPECT_EQ(markOf(LoadNumberedFont(5, 20, true)), 7);
    for (const std::int16_t number : {std::int16_t{-1}, kNumberedFonts}) {
        const FontOutcome none = LoadNumberedFont(number, 20, true);
        EXPECT_TRUE(!none.font && !none.path && none.messages.empty()) << number;
    }
}

TEST_F(FontLoading, ReportsWhichFileWasLoadedInItsPlace) {
    const auto missing = [&](const std::string& folder, const std::string& name) {
        return name + " NOT FOUND @ " + full(folder + name) + " in " + full(folder);
    };
    const std::string noMy = missing("fonts/", "My.cmd"), no6x8 = missing("", "6x8.cmd");
    const std::string nowhere = "Error Loading Font. Could not find " + full("fonts/My.cmd");
    const std::string noFont0 = "Error Loading Font. Could not find " + full("bin/6x8.cmd");
    using enum FontSource;
    const struct {
        const char* why;
        std::string path;
        Texts files;
        int loaded; ///< Number of the file, from 1; 0 for none.
        FontSource source;
        Texts messages;
    } cases[] = {
        {"at its place", "fonts/My.cmd", {"fonts/My.cmd", "Extended/My.cmd"}, 1, requestedFile, {}},
        {"not a folder", "fonts/My.cmd", {"fonts/My.cmd/My.cmd"}, 0, requestedFile, {noMy, nowhere}},
        {"extended", "fonts/My.cmd", {"CustomFonts/My.cmd", "extended/my.cmd"}, 2, sameNameElsewhere, {noMy}},
        {"custom", "fonts/My.cmd", {"bin/6x8.cmd", "CustomFonts/My.cmd"}, 2, sameNameElsewhere, {noMy}},
        {"before font 0", "6x8.cmd", {"bin/6x8.cmd", "Extended/6x8.cmd"}, 2, sameNameElsewhere, {no6x8}},
        {"font 0",
         "FSTND08.cmd",
         {"BIN/6X8.CMD"},
         1,
         font0,
         {missing("", "FSTND08.cmd"), "FSTND08.cmd NOT FOUND"}},
        {"no font 0",
         "6x8.cmd",
         {},
         0,
         font0,
         {no6x8, "6x8.cmd NOT FOUND", missing("bin/", "6x8.cmd"), noFont0}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        TestHost host; // another machine, of the same folders
        for (std::size_t i = 0; i < row.files.size(); ++i)
            host.machine.files().put(full(row.files[i]), std::string(1, static_cast<char>(i + 1)));
        const FontOutcome outcome = LoadFontFile(full(row.path), 6, 8, false);
        EXPECT_EQ(markOf(outcome), row.loaded);
        EXPECT_EQ(outcome.source, row.source);
        EXPECT_EQ(outcome.messages, row.messages);
        const auto file = static_cast<std::size_t>(row.loaded) - 1;
        EXPECT_TRUE(row.loaded == 0 ? !outcome.path
                                    : EqualIgnoringAnsiCase(*outcome.path, full(row.files[file])));
        Texts heard;
        fonts_.OnMessage([&](const std::string& message) { heard.push_back(message); });
        EXPECT_EQ(fonts_.LoadFont(full(row.path), 6, 8), row.loaded != 0);
        EXPECT_EQ(heard, row.messages);
    }
}

TEST_F(FontLoading, LetsAHandlerReplaceItself) {
    std::string heard;
    fonts_.OnMessage([&, own = std::string(100, 'x')](const std::string& message) {
        fonts_.OnMessage(nullptr);
        heard = own + message;
    });
    EXPECT_FALSE(fonts_.LoadFont("gone.cmd", 6, 8));
    EXPECT_EQ(heard, std::string(100, 'x') + "gone.cmd NOT FOUND @ gone.cmd in ");
}

TEST_F(FontLoading, LeavesTheFontAloneWhenItFails) {
    put("bin/6x8.cmd", 6);
    ASSERT_TRUE(fonts_.LoadFontByNum(0, 0));
    Texts messages;
    fonts_.OnMessage([&](const std::string& message) { messages.push_back(message); });
    const std::string shortPath = full("short.cmd");
    files().put(shortPath, std::string("\0\2\5\7A", 5));
    EXPECT_FALSE(fonts_.LoadFont(full("SHORT.cmd"), -1, -1));
    EXPECT_EQ(messages, Texts{"Error Loading Font. Cut short: " + shortPath});
    const std::pair<std::string, Numbers> cases[] = {
        {"", {}}, {full("6x8.cmd"), {53}}, {shortPath, {62}}, {full("bin"), {75}}};
    for (const auto& [path, errors] : cases) {
        EXPECT_FALSE(fonts_.LoadExistingFont(path, -1, -1));
        EXPECT_EQ(takeErrors(), errors) << path;
    }
    host_.failReads(1, 1, SystemError::deviceFailure);
    EXPECT_FALSE(fonts_.LoadFontByNum(0, 0));
    EXPECT_EQ(takeErrors(), Numbers{57});
    EXPECT_EQ(messages.size(), 1u) << "an error is no message";
    EXPECT_EQ(loaded(), "6x8 6");
}

} // namespace
} // namespace qrtVistrelClasses4
