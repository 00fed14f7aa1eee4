#include "Program.h"

#include "playfile/FrameInfoClass.h"
#include "tools/Encoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

std::string expected(const std::string& name) {
    return contentOf(std::string(VISTREL_EXPECTED_FOLDER) + "/" + name);
}

TEST(Show, PrintsTables) {
    struct Case {
        const char* why;
        const char* playfile;
        std::vector<std::string> frames; ///< None: the table of all frames.
        const char* expectedFile;
    };
    const Case cases[] = {
        {"every kind of frame, a loop, a code that no list offers", "harbour.playfile", {}, "harbour.txt"},
        {"more than nine frames, numbers of several lengths", "plant.playfile", {}, "plant.txt"},
        {"flags, stored quotes and a letter beyond ASCII",
         "harbour.playfile",
         {"1", "4", "5"},
         "harbour-frames.txt"},
        {"line break in a text", "plant.playfile", {"3"}, "plant-frame.txt"},
    };
    const Program vistrel;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        std::string shown;
        if (c.frames.empty())
            shown = vistrel.run({"show", vistrel.inHome(c.playfile)}).out;
        for (const std::string& frame : c.frames)
            shown += vistrel.run({"show", vistrel.inHome(c.playfile), "--frame", frame}).out;
        EXPECT_EQ(shown, expected(c.expectedFile));
    }
}

TEST(Show, AFileCutShortShowsWhatWasReadAndFails) {
    const Program vistrel;
    const Outcome outcome = vistrel.run({"show", vistrel.inHome("cut-short.playfile")});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.out, expected("cut-short.txt"));
    EXPECT_THAT(outcome.err, HasSubstr("cut-short.playfile: Input past end of file (error 62)"));
    EXPECT_THAT(outcome.err, HasSubstr("first 3 of 9 frames"));
}

TEST(Show, JsonHoldsWhatTheLibrarySays) {
    const Program vistrel;
    const std::string file = vistrel.inHome("harbour.playfile");
    const Outcome outcome = vistrel.run({"show", file, "--json"});
    const auto frames = nlohmann::json::parse(outcome.out);
    FrameInfoClass playfile;
    ASSERT_TRUE(playfile.GetPlayfileFromDisk(file));
    ASSERT_EQ(frames.size(), static_cast<std::size_t>(playfile.TotalFrames()));
    for (std::int16_t number = 1; number <= playfile.TotalFrames(); ++number) {
        SCOPED_TRACE(number);
        const auto& frame = frames[static_cast<std::size_t>(number) - 1];
        playfile.CurrentFrame(number);
        EXPECT_EQ(frame["FrameName"], Utf8FromAnsi(playfile.FrameName()));
        EXPECT_EQ(frame["FrameType"], static_cast<int>(playfile.FrameType()));
        EXPECT_EQ(frame["PrefixCode"], playfile.PrefixCode());
        EXPECT_EQ(frame["SuffixCode"], playfile.SuffixCode());
        EXPECT_EQ(frame["DelayTime"], playfile.DelayTime());
        EXPECT_EQ(frame["PicturefileName"], Utf8FromAnsi(playfile.PicturefileName()));
        EXPECT_EQ(frame["OverlayFrame"], playfile.OverlayFrame());
        EXPECT_EQ(frame["WinBackColor"], playfile.WinBackColor());
        EXPECT_EQ(frame["Lines"].size(), static_cast<std::size_t>(playfile.TotalLinesAllowed()));
        EXPECT_EQ(frame["Lines"][0]["CurrentLineText"], Utf8FromAnsi(playfile.CurrentLineText()));
        EXPECT_EQ(frame["Lines"][0]["Scrolling"], playfile.Scrolling());
    }
}

TEST(Show, APropertyThatCannotBeReadIsNullAndAFailure) {
    const Program vistrel;
    std::string text = contentOf(vistrel.inHome("harbour.playfile"));
    const std::string colour = "\"4194304\"\r\n\"0\"";
    text.replace(text.find(colour), colour.size(), "\"4194304\"\r\n\"40000\"");
    writeFile(vistrel.inHome("harbour.playfile"), text);
    const Outcome outcome = vistrel.run({"show", vistrel.inHome("harbour.playfile"), "--json"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.err, HasSubstr("frame 7, FixedNumberOfLines: Overflow (error 6)"));
    EXPECT_TRUE(nlohmann::json::parse(outcome.out)[6]["FixedNumberOfLines"].is_null());
}

TEST(Show, RefusesWhatItCannotOpen) {
    struct Case {
        const char* why;
        const char* file;
        const char* reason;
    };
    const Case cases[] = {
        {"older format", "lobby.PL2", "older format (PL2) cannot be opened"},
        {"older format by a small-letter name", "nosuch.pl2", "older format (PL2) cannot be opened"},
        {"missing file", "nosuch.playfile", "File not found (error 53)"},
        {"missing folder", "nosuch/nosuch.playfile", "Path not found (error 76)"},
        {"folder", "db", "Path/File access error (error 75)"},
        {"no playfile at all", "anchor.bmp", "Type mismatch (error 13)"},
    };
    const Program vistrel;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        const Outcome outcome = vistrel.run({"show", vistrel.inHome(c.file)});
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, HasSubstr(c.reason));
        EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1);
    }
}

TEST(Show, AFrameThatThePlayfileLacksIsAFailure) {
    const Program vistrel;
    const Outcome outcome = vistrel.run({"show", vistrel.inHome("harbour.playfile"), "--frame", "10"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.err, HasSubstr("there is no frame 10, the last one is 9"));
}

TEST(Save, SavingWhatWasSavedGivesTheSameBytes) {
    const Program vistrel;
    for (const char* name : {"harbour.playfile", "plant.playfile"}) {
        SCOPED_TRACE(name);
        const std::string first = vistrel.inHome("first"), second = vistrel.inHome("second");
        ASSERT_EQ(vistrel.run({"save", vistrel.inHome(name), first}).exitCode, 0);
        ASSERT_EQ(vistrel.run({"save", first, second}).exitCode, 0);
        EXPECT_EQ(contentOf(first), contentOf(second));
        EXPECT_EQ(vistrel.run({"show", vistrel.inHome(name), "--json"}).out,
                  vistrel.run({"show", second, "--json"}).out);
    }
}

TEST(Save, AFileNameIsBytesWhateverTheyMean) {
    const Program vistrel;
    const std::string copy = vistrel.inHome("\xff Pier");
    EXPECT_EQ(vistrel.run({"save", vistrel.inHome("plant.playfile"), copy}).exitCode, 0);
    EXPECT_EQ(vistrel.run({"show", copy}).out, expected("plant.txt"));
}

TEST(Save, AFailureLeavesTheTargetAlone) {
    struct Case {
        const char* why;
        const char *from, *to;
        const char* reason;
    };
    const Case cases[] = {
        {"playfile cut short", "cut-short.playfile", "plant.playfile", "Input past end of file"},
        {"older format", "lobby.PL2", "plant.playfile", "cannot be opened"},
        {"missing playfile", "nosuch", "plant.playfile", "File not found"},
        {"target in a missing folder", "harbour.playfile", "nosuch/plant.playfile", "Error writing to file."},
        {"target is a folder", "harbour.playfile", "db", "Error writing to file."},
    };
    const Program vistrel;
    const std::string before = contentOf(vistrel.inHome("plant.playfile"));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        const Outcome outcome = vistrel.run({"save", vistrel.inHome(c.from), vistrel.inHome(c.to)});
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_THAT(outcome.err, HasSubstr(c.reason));
        EXPECT_EQ(contentOf(vistrel.inHome("plant.playfile")), before);
    }
}

TEST(Save, AReadOnlyTargetIsAFailureThatLeavesItWhole) {
    const Program vistrel;
    const std::string target = vistrel.inHome("plant.playfile");
    const std::string before = contentOf(target);
    std::filesystem::permissions(target, std::filesystem::perms::owner_read);
    if (std::ofstream(target, std::ios::app))
        GTEST_SKIP() << "this user may write to every file";
    const Outcome outcome = vistrel.run({"save", vistrel.inHome("harbour.playfile"), target});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.err, HasSubstr("Unable to save playfile"));
    EXPECT_EQ(contentOf(target), before);
}

TEST(Effects, TellWhatListsOfferNow) {
    const Program vistrel;
    const auto effectOf = [&](int code) {
        for (const auto& effect : nlohmann::json::parse(vistrel.run({"effects", "--json"}).out))
            if (effect["code"] == code)
                return effect;
        return nlohmann::json();
    };
    EXPECT_EQ(effectOf(115)["prefixName"], "Drop On");
    EXPECT_TRUE(effectOf(115)["prefixListText"].is_null()) << "only TRUE in capitals is on";
    EXPECT_EQ(effectOf(114)["suffixListText"], "Checker Board Off");
    EXPECT_EQ(effectOf(20000)["prefixListText"], "Start Loop");
    std::filesystem::remove(vistrel.inHome("NewEffects.ini"));
    EXPECT_TRUE(effectOf(114)["suffixListText"].is_null());
    EXPECT_EQ(effectOf(5001)["suffixListText"], "Scroll Left to Right");
}

TEST(Usage, WrongUsageIsExitCode2WithAReason) {
    const std::initializer_list<std::string> cases[] = {
        {},
        {"bogus"},
        {"show"},
        {"show", "a", "b"},
        {"show", "a", "--frame", "0"},
        {"show", "a", "--frame", "40000"},
        {"show", "a", "--frame", "two"},
        {"save", "a"},
        {"save", "a", "b", "--yes", "--no"},
        {"settings"},
        {"settings", "get"},
        {"settings", "set", "DisplayHeight"},
        {"effects", "--bogus"},
        {"--home", "nosuch", "effects"},
    };
    const Program vistrel;
    for (const auto& arguments : cases) {
        SCOPED_TRACE(vistrel.commandLine(arguments));
        const Outcome outcome = vistrel.run(arguments);
        EXPECT_EQ(outcome.exitCode, 2);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, Not(IsEmpty()));
    }
}

TEST(Usage, HelpBeginsWithAnExample) {
    const std::initializer_list<std::string> cases[] = {
        {"--help"},
        {"show", "--help"},
        {"save", "--help"},
        {"effects", "--help"},
        {"settings", "--help"},
        {"settings", "list", "--help"},
        {"settings", "get", "--help"},
        {"settings", "set", "--help"},
    };
    const Program vistrel;
    for (const auto& arguments : cases) {
        SCOPED_TRACE(vistrel.commandLine(arguments));
        const Outcome outcome = vistrel.run(arguments);
        EXPECT_EQ(outcome.exitCode, 0);
        EXPECT_THAT(outcome.out, StartsWith("Example: vistrel "));
    }
}

TEST(Output, AReaderThatLeavesIsNoFailure) {
    const Program vistrel;
    const std::string code = vistrel.inHome("code");
    vistrel.runShell("{ sleep 0.2; " + vistrel.commandLine({"effects", "--json"}) + "; echo $? > " + code +
                     "; } | true");
    EXPECT_EQ(contentOf(code), "0\n");
}

TEST(Output, AFullDiskIsAFailure) {
    const Program vistrel;
    const Outcome outcome = vistrel.runShell(vistrel.commandLine({"effects"}) + " > /dev/full");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.err, HasSubstr("standard output cannot be written"));
}

} // namespace
} // namespace qrtVistrelClasses4
