// Playfiles of the older format, as the program's user meets them.
#include "Program.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::json;
using testing::HasSubstr;

TEST(Legacy, APlayfileSavedAsACurrentOneShowsTheSame) {
    const Program vistrel;
    const Outcome shown = vistrel.run("show lobby.PL2 --yes");
    EXPECT_EQ(shown.exitCode, 0) << shown.err;
    EXPECT_EQ(shown.out, Expected("lobby.txt"));
    EXPECT_THAT(vistrel.run("save lobby.PL2 lobby.playfile --yes").out,
                HasSubstr("frame 5 loses its width 128"));
    EXPECT_EQ(vistrel.run("show lobby.playfile").out, shown.out);
    EXPECT_EQ(vistrel.run("export lobby.PL2 --yes").out, "lobby.PL2.xml\n");
    EXPECT_THAT(vistrel.run("frames lobby.PL2 delete 2 --yes --out six").out,
                HasSubstr("six: deleted frame 2; 6 frames now\n"));
}

TEST(Convert, GoesOnPastBadFilesAndTellsOfEach) {
    const Program vistrel;
    const Outcome outcome = vistrel.run(
        "convert nosuch.PL2 not-legacy.PL2 cut-short.PL2 harbour.playfile lobby.PL2 ./lobby.PL2 --to new");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.out, "cut-short.PL2 -> new/cut-short.playfile; 2 frames\n"
                           "lobby.PL2: frame 5 loses its width 128\n"
                           "lobby.PL2: frame 6 loses its unknown prefix keyword \"OT\"\n"
                           "lobby.PL2 -> new/lobby.playfile; 7 frames\n"
                           "Converted 2 of 6 files, 1 of them not completely\n");
    EXPECT_EQ(outcome.err,
              "vistrel: nosuch.PL2: File not found (error 53)\n"
              "vistrel: not-legacy.PL2: not a playfile of the older format (PL2): it does not start "
              "with \"PLWREV 1.50\"\n"
              "vistrel: cut-short.PL2: the last 500 bytes are no whole frame\n"
              "vistrel: harbour.playfile: not converted: it is a current playfile already\n"
              "vistrel: ./lobby.PL2: not converted: new/lobby.playfile is there already\n");
    EXPECT_EQ(vistrel.run("show new/lobby.playfile").out, Expected("lobby.txt"));
    EXPECT_EQ(vistrel.run("convert lobby.PL2 --to newer").exitCode, 0);
    EXPECT_THAT(vistrel.run("convert lobby.PL2 --to Displays.dat").err, HasSubstr("vistrel: Displays.dat: "));
}

TEST(Convert, MakesNoFileThatALinkNames) {
    const Program vistrel;
    std::filesystem::create_symlink("elsewhere", vistrel.inHome("lobby.playfile"));
    const Outcome outcome = vistrel.run("convert lobby.PL2 --to .");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.err, HasSubstr("lobby.playfile is there already"));
    EXPECT_FALSE(std::filesystem::exists(vistrel.inHome("elsewhere")));
}

TEST(Inspect, ShowsRecordsAsTheyAreAndWhatIsLeftBehind) {
    const Program vistrel;
    EXPECT_EQ(vistrel.run("inspect lobby.PL2").out, Expected("lobby-records.txt"));
    EXPECT_THAT(vistrel.run("inspect cut-short.PL2").out,
                HasSubstr("Bytes behind the last whole record: 500\n"));
    const json records = json::parse(vistrel.run("inspect lobby.PL2 --json").out)["records"];
    EXPECT_EQ(records[1]["unknownBytes"]["count"], 0);
    EXPECT_EQ(records[5]["unknownBytes"]["ranges"][1], json({23, 287})) << "between prefix keyword and delay";
    EXPECT_THAT(vistrel.run("inspect harbour.playfile").err, HasSubstr("not a playfile of the older format"));
}

} // namespace
} // namespace qrtVistrelClasses4
