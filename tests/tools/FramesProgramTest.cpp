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
    const struct {
        const char *why, *edit, *frames, *told;
    } cases[] = {
        {"insert at the front", "insert 1", "-ABCDE", "inserted frame 1; 6 frames now"},
        {"numbers are decimal", "insert 006", "ABCDE-", "inserted frame 6; 6 frames now"},
        {"insert at the end", "insert 6", "ABCDE-", "inserted frame 6; 6 frames now"},
        {"delete the first", "delete 1", "BCDE", "deleted frame 1; 4 frames now"},
        {"delete to the end", "delete 3-5", "AB", "deleted frames 3 to 5; 2 frames now"},
        {"delete all", "delete 1-5", "-", "deleted frames 1 to 5; 1 frame now"},
        {"move down", "move 2 5", "ACDEB", "moved frame 2 to 5; 5 frames now"},
        {"move up", "move 5 1", "EABCD", "moved frame 5 to 1; 5 frames now"},
        {"copy into itself", "copy 2-4 3", "ABBCDCDE", "copied frames 2 to 4 to 3; 8 frames now"},
        {"paste all", "paste other 2", "AXYZBCDE", "pasted frames 1 to 3 of other at 2; 8 frames now"},
        {"paste some", "paste other 6 --frames 2-3", "ABCDEYZ",
         "pasted frames 2 to 3 of other at 6; 7 frames now"},
    };
    const Program vistrel;
    make(vistrel, "other", "XYZ");
    const json told = json::parse(vistrel.run("frames other delete 2 --no --json --out new").out);
    EXPECT_EQ(told, json({{"file", "new"}, {"done", "deleted frame 2"}, {"TotalFrames", 2}}));
    for (const auto& c : cases) {
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

TEST(Export, WritesBesideThePlayfileOrWhereItIsTold) {
    const Program vistrel;
    std::filesystem::remove(vistrel.inHome("anchor.bmp")); // or its place would be in the export
    EXPECT_EQ(vistrel.run("export harbour.playfile").out, "harbour.playfile.xml\n");
    EXPECT_EQ(vistrel.run("export harbour.playfile --out pier").out, "pier.xml\n");
    for (const char* file : {"harbour.playfile.xml", "pier.xml"})
        EXPECT_EQ(ContentOf(vistrel.inHome(file)), Expected("harbour.xml")) << file;
}

} // namespace
} // namespace qrtVistrelClasses4
