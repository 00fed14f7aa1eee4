#include "TestHost.h"
#include "fonts/classFontMaster.h"
#include "fonts/clsFontSizes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

/// A host of one font. Paths are below the application folder, with "/".
struct FontHost {
    FontHost() {
        fonts.OnMessage([this](const std::string& message) { messages_.push_back(message); });
    }
    FontHost(const FontHost&) = delete;
    FontHost& operator=(const FontHost&) = delete;

    std::string full(std::string path) {
        std::replace(path.begin(), path.end(), '/', kPathSeparator);
        return host.inLibrary(path);
    }
    /// Puts a font of the characters from 32 on, whose blank tells `mark`.
    void put(const std::string& path, int mark) {
        host.machine.files().put(full(path), std::string(1, static_cast<char>(mark)));
    }
    /// Mark of the font that is loaded; 0 for none.
    int loaded() { return fonts.LetterWidth(" ") - (fonts.FontHeight() > 8 ? 3 : 0); }
    CellSize size() const { return {fonts.FontWidth(), fonts.FontHeight()}; }
    /// The messages since the last call, with "~" for the application folder, and "/".
    Texts takeMessages() {
        Texts messages = std::exchange(messages_, {});
        const std::string folder = host.machine.library;
        for (std::string& message : messages) {
            for (std::size_t at = 0; (at = message.find(folder)) != message.npos;)
                message.replace(at, folder.size(), "~");
            std::replace(message.begin(), message.end(), kPathSeparator, '/');
        }
        return messages;
    }

    TestHost host;
    classFontMaster fonts;

private:
    Texts messages_;
};

TEST(FontLoading, KnowsTheFontOfEveryNumber) {
    using Shorts = std::vector<std::int16_t>;
    struct Case {
        Shorts numbers;
        CellSize size;
        std::string newFile, file;
        Shorts signTypes;
    };
    const Case cases[] = {
        {{0, 1}, {6, 8}, "Fstnd08.cmd", "6x8.cmd", {20}},
        {{2}, {4, 8}, "4x8.cmd", "4x8.cmd", {20}},
        {{3, 4}, {5, 8}, "Fstnd5x8.cmd", "5x8.cmd", {20}},
        {{5}, {6, 8}, "Fsacl68b.cmd", "6x8fb.cmd", {16, 20, 21, 23, 25}},
        {{5}, {6, 8}, "Fstnd68b.cmd", "6x8fb.cmd", {0, 15, 22, 26, 103, 104, 105, 106, -1}},
        {{6, 7}, {16, 16}, "Fstnd16.cmd", "16x16.cmd", {20}},
        {{8, 9}, {24, 24}, "24x24.cmd", "24x24.cmd", {20}},
        {{10, 11}, {24, 32}, "24x32.cmd", "24x32.cmd", {20}},
    };
    FontHost host;
    int mark = 0;
    for (const Case& c : cases)
        for (const std::int16_t number : c.numbers)
            for (const std::int16_t signType : c.signTypes)
                for (const bool isNew : {true, false}) {
                    SCOPED_TRACE(testing::Message() << number << " on " << signType << " " << isNew);
                    host.put("bin/" + (isNew ? c.newFile : c.file), ++mark);
                    host.fonts.UseNewFont(isNew);
                    EXPECT_TRUE(host.fonts.LoadFontByNum(number, signType));
                    EXPECT_EQ(host.loaded(), mark);
                    EXPECT_EQ(host.size(), c.size);
                    host.fonts.LoadExistingFont(host.full("bin/" + c.file), 1, 1);
                    host.fonts.FontSizeByNum(number);
                    EXPECT_EQ(host.size(), c.size);
                }
    for (const std::int16_t number : Shorts{-1, 12, 32767}) {
        host.fonts.FontSizeByNum(number);
        EXPECT_FALSE(host.fonts.LoadFontByNum(number, 20));
        EXPECT_EQ(host.size(), (CellSize{24, 32})) << "as it was";
    }
    EXPECT_EQ(host.takeMessages(), Texts());
}

TEST(FontLoading, SearchesAFontAndTells) {
    struct Case {
        const char* why;
        std::string path;
        Texts files;
        int loaded; ///< Number of the file, from 1; 0 for none.
        Texts messages;
    };
    const std::string missing = "My.cmd NOT FOUND @ ~/fonts/My.cmd in ~/fonts/";
    const std::string nowhere = "Error Loading Font. Could not find ~/fonts/My.cmd";
    const std::string noStandard = "6x8.cmd NOT FOUND @ ~/6x8.cmd in ~/";
    const std::string noNewStandard = "FSTND08.cmd NOT FOUND @ ~/FSTND08.cmd in ~/";
    const std::string noFont0At = "Error Loading Font. Could not find ~/bin/6x8.cmd";
    const std::string noFont0 = "6x8.cmd NOT FOUND @ ~/bin/6x8.cmd in ~/bin/";
    const Case cases[] = {
        {"at its place", "fonts/My.cmd", {"fonts/My.cmd", "Extended/My.cmd"}, 1, {}},
        {"in another case", "fonts/My.cmd", {"fonts/mY.CMD"}, 1, {}},
        {"not a longer name", "fonts/My.cmd", {"fonts/My.cmd.bak"}, 0, {missing, nowhere}},
        {"not a folder", "fonts/My.cmd", {"fonts/My.cmd/My.cmd"}, 0, {missing, nowhere}},
        {"extended", "fonts/My.cmd", {"CustomFonts/My.cmd", "extended/my.cmd"}, 2, {missing}},
        {"custom", "fonts/My.cmd", {"bin/6x8.cmd", "CustomFonts/My.cmd"}, 2, {missing}},
        {"a standard font, extended", "6x8.cmd", {"bin/6x8.cmd", "Extended/6x8.cmd"}, 2, {noStandard}},
        {"font 0 for it", "FSTND08.cmd", {"BIN/6X8.CMD"}, 1, {noNewStandard, "FSTND08.cmd NOT FOUND"}},
        {"no font 0", "6x8.cmd", {}, 0, {noStandard, "6x8.cmd NOT FOUND", noFont0, noFont0At}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        FontHost host;
        for (std::size_t i = 0; i < c.files.size(); ++i)
            host.put(c.files[i], static_cast<int>(i) + 1);
        EXPECT_EQ(host.fonts.LoadFont(host.full(c.path), 6, 8), c.loaded != 0);
        EXPECT_EQ(host.loaded(), c.loaded);
        EXPECT_EQ(host.takeMessages(), c.messages);
        EXPECT_TRUE(host.host.reports.all.empty());
    }
    FontHost host;
    EXPECT_FALSE(host.fonts.LoadFont("", 6, 8));
    EXPECT_EQ(host.takeMessages().back(), "Error Loading Font. Could not find ");
}

TEST(FontLoading, LeavesTheFontAloneWhenItFails) {
    FontHost host;
    host.put("bin/6x8.cmd", 6);
    ASSERT_TRUE(host.fonts.LoadFontByNum(0, 0));
    host.host.machine.files().put(host.full("short.cmd"), std::string("\0\2\5\7A", 5));
    EXPECT_FALSE(host.fonts.LoadFont(host.full("SHORT.cmd"), -1, -1));
    EXPECT_EQ(host.takeMessages(), Texts{"Error Loading Font. Cut short: ~/short.cmd"});

    struct Case {
        const char* why;
        std::string path;
        Numbers errors;
    };
    const Case cases[] = {
        {"no path", "", {}},
        {"not there, and not searched", host.full("6x8.cmd"), {53}},
        {"cut short", host.full("short.cmd"), {62}},
        {"a folder", host.full("bin"), {75}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_FALSE(host.fonts.LoadExistingFont(c.path, -1, -1));
        EXPECT_EQ(host.host.reports.takeNumbers(), c.errors);
    }
    host.host.machine.files().observer = [](const FileOperation& operation) {
        return operation.kind == FileOperation::read ? SystemError::deviceFailure : SystemError::none;
    };
    EXPECT_FALSE(host.fonts.LoadFontByNum(0, 0));
    EXPECT_EQ(host.host.reports.takeNumbers(), Numbers{57});
    EXPECT_EQ(host.takeMessages(), Texts()) << "messages tell of fonts that are missing or cut short";
    EXPECT_EQ(host.loaded(), 6);
    EXPECT_EQ(host.size(), (CellSize{6, 8}));
}

} // namespace
} // namespace qrtVistrelClasses4
