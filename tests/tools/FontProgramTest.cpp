// Fonts, as the program's user meets them.
#include "Program.h"

#include "playfile/FrameInfoClass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::json;
using testing::HasSubstr;

TEST(Font, IsMadeAgainFromTheSourceThatItIsShownAs) {
    const Program vistrel;
    struct Case {
        const char *why, *name;
    };
    const Case cases[] = {
        {"one byte a row, a gap in the letters", "4x8.cmd"},
        {"strokes of two dots", "Fsacl68b.cmd"},
        {"two bytes a row", "Fstnd16.cmd"},
        {"three bytes a row", "24x32.cmd"},
    };
    for (const auto& [why, name] : cases) {
        SCOPED_TRACE(why);
        const std::string file = std::string("bin/") + name;
        const std::string source = vistrel.run("font show --source " + file).out;
        EXPECT_EQ(vistrel.runShell("cp ../out source").exitCode, 0);
        EXPECT_EQ(vistrel.run("font make source sized").exitCode, 0);
        EXPECT_EQ(ContentOf(vistrel.inHome("sized")), ContentOf(vistrel.inHome(file)));
        EXPECT_EQ(vistrel.run("font make source header --header").exitCode, 0);
        EXPECT_EQ(vistrel.run("font show --source header").out, source);
    }
}

TEST(Font, IsShownAsAPictureAndAsJson) {
    const Program vistrel;
    std::ofstream(vistrel.inHome("source"))
        << "size 5x3\n65 A\n.#.\n#.#\n###\n127\n##\n##\n##\n200\n#\n.\n#\n";
    EXPECT_EQ(vistrel.run("font make source font --header").out, "font: 3 letters of 5 x 3 dots\n");
    EXPECT_EQ(vistrel.run("font show font").out, "5 x 3 dots, 3 letters\n"
                                                 "\n"
                                                 "A  ␡ È\n"
                                                 "▄▀▄██▀\n"
                                                 "▀▀▀▀▀▀\n");
    const json letters = json::parse(vistrel.run("font show font --json").out)["letters"];
    EXPECT_EQ(letters[0],
              json({{"code", 65}, {"character", "A"}, {"width", 3}, {"rows", {".#.", "#.#", "###"}}}));
}

TEST(Font, IsCheckedForTheCharactersThatAPlayfileNeeds) {
    const Program vistrel;
    const std::string name = "bin/6X8.CMD"; // a numbered font in any case of its letters
    std::filesystem::rename(vistrel.inHome("bin/6x8.cmd"), vistrel.inHome(name));
    EXPECT_EQ(vistrel.run("font check " + name + " --for lobby.PL2 --yes").exitCode, 0);

    const Outcome plant = vistrel.run("font check " + name + " --for plant.playfile");
    EXPECT_EQ(plant.exitCode, 1);
    EXPECT_EQ(plant.out, "Code  Character  Times  First in\n"
                         "----  ---------  -----  ---------------\n"
                         " 150  –             23  frame 1, line 3\n"
                         " 189  ½             23  frame 1, line 3\n");
    EXPECT_THAT(plant.err, HasSubstr(name + ": lacks 2 of "));
}

TEST(Font, IsCheckedForWhatIsDrawnAtTheMoment) {
    const Program vistrel;
    std::ofstream(vistrel.inHome("source")) << "size 4x1\n48 0\n#\n49 1\n#\n";
    EXPECT_EQ(vistrel.run("font make source font --header").exitCode, 0);
    FrameInfoClass playfile;
    playfile.TotalFrames(2);
    playfile.CurrentFrame(1);
    playfile.FrameType(StoredFrameType(NEW_FRAME_TYPES::FRAME_TEXT));
    playfile.CurrentLineText("|hm|");
    playfile.CurrentFrame(2);
    playfile.FrameType(StoredFrameType(NEW_FRAME_TYPES::FRAME_GRAPHIC));
    playfile.CurrentLineText("not drawn");
    ASSERT_TRUE(playfile.WritePlayfileToDisk(vistrel.inHome("clock")));
    const std::string check = "font check font --for clock --at '2026-11-21 ";
    EXPECT_EQ(vistrel.run(check + "10:01'").out, "font has all 2 characters of clock\n");
    EXPECT_THAT(vistrel.run(check + "10:21'").err, HasSubstr("font: lacks 1 of 3 characters of clock"));
}

TEST(Font, OfOthersMakingNeverCrashesTheProgram) {
    const Program vistrel;
    struct Case {
        const char *why, *arguments;
        int exitCode;
        const char* error;
    };
    const Case cases[] = {
        {"no font", "font show nosuch.cmd", 1, "nosuch.cmd: File not found"},
        {"no header", "font show empty", 1, "empty: ends before its letters start; a font without a header"},
        {"an empty store", "font show empty --size 6x8", 0, ""},
        {"letters that run past the store", "font show anchor.bmp --size 255x255", 0, ""},
        {"bytes of something else as a header", "font show anchor.bmp --json", 0, ""},
        {"no size", "font show empty --size 6", 2, "takes width and height from 1 to 255"},
        {"no pictures", "font make anchor.bmp new", 1, R"(anchor.bmp: line 1: has to be "size")"},
        {"no height to enlarge to", "font make fonts/6x8.txt new --size 16x15", 1,
         "6x8.txt: letters 8 dots high cannot become 15 high"},
        {"letters wider than any that is drawn", "font make fonts/6x8.txt new --size 48x64", 1,
         "dots wide, and no more than 24 are ever drawn"},
        {"no playfile", "font check bin/6x8.cmd --for nosuch.playfile", 1, "nosuch.playfile: File not found"},
    };
    std::ofstream(vistrel.inHome("empty")).close();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        const Outcome outcome = vistrel.run(c.arguments);
        EXPECT_EQ(outcome.exitCode, c.exitCode) << outcome.err;
        EXPECT_THAT(outcome.err, HasSubstr(c.error));
        EXPECT_FALSE(std::filesystem::exists(vistrel.inHome("new")));
    }
}

} // namespace
} // namespace qrtVistrelClasses4
