#include "Program.h"

#include "playfile/FrameInfoClass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;

/// Initials of the frames' names; an empty name is "-".
std::string framesOf(const Program& vistrel, const std::string& file) {
    std::string initials;
    for (const json& frame : json::parse(vistrel.run("show --json " + file).out)) {
        const std::string name = frame["FrameName"];
        initials += name.empty() ? "-" : name.substr(0, 1);
    }
    return initials;
}

/// A playfile whose frames have names of one letter.
void make(const Program& vistrel, const std::string& file, const std::string& names) {
    FrameInfoClass frames;
    frames.TotalFrames(static_cast<std::int16_t>(names.size()));
    for (std::size_t i = 0; i < names.size(); ++i) {
        frames.CurrentFrame(static_cast<std::int16_t>(i + 1));
        frames.FrameName(names.substr(i, 1));
    }
    ASSERT_TRUE(frames.WritePlayfileToDisk(vistrel.inHome(file)));
}

TEST(Frames, AreEditedInPlaceOrIntoANewFile) {
    struct Case {
        const char* why;
        const char *edit, *frames, *told;
    };
    const Case cases[] = {
        {"insert at the front", "insert 1", "-ABCDE", "inserted frame 1; 6 frames now"},
        {"numbers are decimal", "insert 006", "ABCDE-", "inserted frame 6; 6 frames now"},
        {"insert before the last", "insert 5", "ABCD-E", "inserted frame 5; 6 frames now"},
        {"insert at the end", "insert 6", "ABCDE-", "inserted frame 6; 6 frames now"},
        {"delete the first", "delete 1", "BCDE", "deleted frame 1; 4 frames now"},
        {"delete to the end", "delete 3-5", "AB", "deleted frames 3 to 5; 2 frames now"},
        {"delete all", "delete 1-5", "-", "deleted frames 1 to 5; 1 frame now"},
        {"move down", "move 2 5", "ACDEB", "moved frame 2 to 5; 5 frames now"},
        {"move up", "move 5 1", "EABCD", "moved frame 5 to 1; 5 frames now"},
        {"copy into itself", "copy 2-4 3", "ABBCDCDE", "copied frames 2 to 4 to 3; 8 frames now"},
        {"copy to the end", "copy 1-2 6", "ABCDEAB", "copied frames 1 to 2 to 6; 7 frames now"},
        {"paste all", "paste other 2", "AXYZBCDE", "pasted frames 1 to 3 of other at 2; 8 frames now"},
        {"paste some", "paste other 6 --frames 2-3", "ABCDEYZ",
         "pasted frames 2 to 3 of other at 6; 7 frames now"},
    };
    const Program vistrel;
    make(vistrel, "other", "XYZ");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        make(vistrel, "signs", "ABCDE");
        const std::string edit = std::string("frames signs ") + c.edit;
        EXPECT_EQ(vistrel.run(edit + " --out new").out, "new: " + std::string(c.told) + "\n");
        EXPECT_EQ(framesOf(vistrel, "new"), c.frames);
        EXPECT_EQ(framesOf(vistrel, "signs"), "ABCDE");
        EXPECT_EQ(vistrel.run(edit).exitCode, 0);
        EXPECT_EQ(ContentOf(vistrel.inHome("signs")), ContentOf(vistrel.inHome("new")));
    }
}

TEST(Frames, NumbersOutsideThemWriteNothing) {
    struct Case {
        const char *edit, *reason;
    };
    const Case cases[] = {
        {"insert 0", "signs: AT is 0, but 1 to 6 are allowed"},
        {"insert 7", "AT is 7, but 1 to 6 are allowed"},
        {"delete 6", "FRAMES is 6, but 1 to 5 are allowed"},
        {"delete 0-2", "FRAMES is 0, but 1 to 5 are allowed"},
        {"delete 4-6", "FRAMES is 6, but 1 to 5 are allowed"},
        {"delete 4-3", "FRAMES ends before it begins"},
        {"move 0 0", "FROM is 0, but 1 to 5 are allowed"},
        {"move 1 70000", "TO is 70000, but 1 to 5 are allowed"},
        {"copy 6 1", "FRAMES is 6, but 1 to 5 are allowed"},
        {"copy 1 7", "AT is 7, but 1 to 6 are allowed"},
        {"paste single 7", "signs: AT is 7, but 1 to 6 are allowed"},
        {"paste single 1 --frames 2", "single: FRAMES is 2, but only 1 is allowed"},
        {"paste none 1", "none: FRAMES is 1, but there is no frame"},
        {"paste nosuch 1", "nosuch: File not found (error 53)"},
    };
    const Program vistrel;
    make(vistrel, "signs", "ABCDE");
    make(vistrel, "single", "X");
    make(vistrel, "none", "");
    const std::string before = ContentOf(vistrel.inHome("signs"));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.edit);
        for (const char* out : {"", " --out new"}) {
            const Outcome outcome = vistrel.run(std::string("frames signs ") + c.edit + out);
            EXPECT_EQ(outcome.exitCode, 1);
            EXPECT_THAT(outcome.out, IsEmpty());
            EXPECT_THAT(outcome.err, HasSubstr(c.reason));
            EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1);
        }
        EXPECT_EQ(ContentOf(vistrel.inHome("signs")), before);
        EXPECT_FALSE(std::filesystem::exists(vistrel.inHome("new")));
    }
}

TEST(Frames, BeyondTheMostThatAreAllowedAreRefused) {
    const Program vistrel;
    make(vistrel, "full", std::string(1047, 'A'));
    EXPECT_EQ(vistrel.run("frames full insert 1048").exitCode, 0) << "the last one that is allowed";
    for (const char* edit : {"insert 1", "copy 1 1049", "paste full 1 --frames 1"}) {
        SCOPED_TRACE(edit);
        const Outcome outcome = vistrel.run(std::string("frames full ") + edit);
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_THAT(outcome.err, HasSubstr("there would be 1049 frames, but at most 1048 are allowed"));
    }
}

TEST(Frames, OptionsMayStandBehindTheEdit) {
    const Program vistrel;
    make(vistrel, "signs", "AB");
    const json told = json::parse(vistrel.run("frames signs delete 2 --no --json --out new").out);
    EXPECT_EQ(told, json({{"file", "new"}, {"done", "deleted frame 2"}, {"TotalFrames", 1}}));
}

TEST(Export, WritesBesideThePlayfileOrWhereItIsTold) {
    const Program vistrel;
    std::filesystem::remove(vistrel.inHome("anchor.bmp")); // or its place would be in the export
    EXPECT_EQ(vistrel.run("export harbour.playfile").out, "harbour.playfile.xml\n");
    EXPECT_EQ(vistrel.run("export harbour.playfile --out pier").out, "pier.xml\n");
    for (const char* file : {"harbour.playfile.xml", "pier.xml"})
        EXPECT_EQ(ContentOf(vistrel.inHome(file)), Expected("harbour.xml")) << file;
}

TEST(Export, AFailureIsToldAndWritesNothing) {
    const Program vistrel;
    Outcome outcome = vistrel.run("export cut-short.playfile");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_FALSE(std::filesystem::exists(vistrel.inHome("cut-short.playfile.xml")));
    outcome = vistrel.run("export harbour.playfile --out nosuch/pier");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, HasSubstr("nosuch/pier.xml: not written"));
}

} // namespace
} // namespace qrtVistrelClasses4
