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
using testing::StartsWith;

TEST(Show, PrintsTables) {
    const Program vistrel;
    const auto show = [&](const std::string& arguments) { return vistrel.run("show " + arguments).out; };
    EXPECT_EQ(show("harbour.playfile"), Expected("harbour.txt"));
    EXPECT_EQ(show("plant.playfile"), Expected("plant.txt")) << "numbers of several lengths";
    EXPECT_EQ(show("plant.playfile --frame 3"), Expected("plant-frame.txt")) << "line break in a text";
    std::string frames;
    for (const char* frame : {"1", "4", "5"})
        frames += show(std::string("harbour.playfile --frame ") + frame);
    EXPECT_EQ(frames, Expected("harbour-frames.txt")) << "flags, quotes, a letter beyond ASCII";
}

TEST(Show, JsonIsThatOfOneArray) {
    const Program vistrel;
    FrameInfoClass none;
    none.TotalFrames(0);
    ASSERT_TRUE(none.WritePlayfileToDisk(vistrel.inHome("none")));
    for (const auto& [arguments, size] :
         {std::pair("harbour.playfile", 9), std::pair("plant.playfile --frame 3", 1), std::pair("none", 0)}) {
        const std::string out = vistrel.run(std::string("show --json ") + arguments).out;
        const auto frames = nlohmann::ordered_json::parse(out);
        EXPECT_EQ(frames.size(), static_cast<std::size_t>(size)) << arguments;
        EXPECT_EQ(out, frames.dump(2, ' ', true) + '\n') << arguments;
    }
}

TEST(Show, AFileCutShortShowsWhatWasReadAndFails) {
    const Outcome outcome = Program().run("show cut-short.playfile");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.out, Expected("cut-short.txt"));
    EXPECT_THAT(outcome.err, HasSubstr("cut-short.playfile: Input past end of file (error 62)"));
    EXPECT_THAT(outcome.err, HasSubstr("first 3 of 9 frames"));
}

TEST(Show, APropertyThatCannotBeReadIsNullAndAFailure) {
    const Program vistrel;
    std::string text = ContentOf(vistrel.inHome("harbour.playfile"));
    const std::string colour = "\"4194304\"\r\n\"0\"";
    text.replace(text.find(colour), colour.size(), "\"4194304\"\r\n\"40000\"");
    std::ofstream(vistrel.inHome("harbour.playfile"), std::ios::binary) << text;
    const Outcome outcome = vistrel.run("show harbour.playfile --json");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.err, HasSubstr("frame 7, FixedNumberOfLines: Overflow (error 6)"));
    const json frames = json::parse(outcome.out);
    EXPECT_EQ(frames.size(), 9U);
    EXPECT_TRUE(frames[6]["FixedNumberOfLines"].is_null());
    EXPECT_EQ(frames[6]["WinBackColor"], 4194304);
    EXPECT_EQ(frames[6]["OverlayFrame"], true);
}

TEST(Save, SavingWhatWasSavedGivesTheSameBytes) {
    const Program vistrel;
    const std::string second = "\xff-name"; // bytes, whatever they mean
    ASSERT_EQ(vistrel.run("save harbour.playfile first").exitCode, 0);
    ASSERT_EQ(vistrel.run("save first " + second).exitCode, 0);
    EXPECT_EQ(ContentOf(vistrel.inHome("first")), ContentOf(vistrel.inHome(second)));
    EXPECT_EQ(vistrel.run("show harbour.playfile --json").out, vistrel.run("show --json " + second).out);
}

TEST(Effects, TellWhatListsOfferNow) {
    const Program vistrel;
    const auto effectOf = [&](int code) {
        const json effects = json::parse(vistrel.run("effects --json").out);
        return *std::ranges::find_if(effects, [&](const json& effect) { return effect["code"] == code; });
    };
    EXPECT_EQ(effectOf(115)["prefixName"], "Drop On");
    EXPECT_TRUE(effectOf(115)["prefixListText"].is_null()) << "only TRUE in capitals is on";
    EXPECT_EQ(effectOf(114)["suffixListText"], "Checker Board Off");
    std::filesystem::remove(vistrel.inHome("NewEffects.ini"));
    EXPECT_TRUE(effectOf(114)["suffixListText"].is_null());
    EXPECT_EQ(effectOf(5001)["suffixListText"], "Scroll Left to Right");
}

TEST(Usage, HelpBeginsWithAnExample) {
    const Program vistrel;
    for (const char* command :
         {"",           "show",          "save",          "export",       "convert",         "inspect",
          "frames",     "frames insert", "frames delete", "frames move",  "frames copy",     "frames paste",
          "effects",    "settings",      "settings list", "settings get", "settings set",    "signs",
          "signs list", "signs show",    "signs add",     "signs remove", "signs duplicate", "signs set"}) {
        SCOPED_TRACE(command);
        const Outcome outcome = vistrel.run(std::string(command) + " --help");
        EXPECT_EQ(outcome.exitCode, 0);
        EXPECT_THAT(outcome.out, StartsWith("Example: vistrel "));
    }
}

TEST(Output, AReaderThatLeavesIsNoFailure) {
    const Program vistrel;
    vistrel.runShell("{ sleep 0.2; " + vistrel.line("effects --json") + "; echo $? > code; } | true");
    EXPECT_EQ(ContentOf(vistrel.inHome("code")), "0\n");
}

TEST(Output, ThatIsLongArrivesWholeAndFailsLikeAnyOther) {
    const Program vistrel;
    constexpr int records = 5;
    std::string bytes = "PLWREV 1.50";
    for (int pair = 0; pair < records * 18704 / 2; ++pair)
        bytes += std::string("\0\1", 2);
    std::ofstream(vistrel.inHome("long.PL2"), std::ios::binary) << bytes;
    const Outcome whole = vistrel.run("inspect long.PL2 --json");
    EXPECT_EQ(whole.exitCode, 0);
    EXPECT_GT(whole.out.size(), std::size_t{1} << 20) << "more than one piece";
    EXPECT_EQ(json::parse(whole.out)["records"].size(), records);
    EXPECT_EQ(vistrel.runShell(vistrel.line("inspect long.PL2 --json") + " > /dev/full").exitCode, 1);
    vistrel.runShell("{ " + vistrel.line("inspect long.PL2 --json") + "; echo $? > code; } | head -c 9");
    EXPECT_EQ(ContentOf(vistrel.inHome("code")), "0\n");
}

TEST(Output, AFullDiskIsAFailure) {
    const Program vistrel;
    const Outcome outcome = vistrel.runShell(vistrel.line("effects") + " > /dev/full");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.err, HasSubstr("standard output cannot be written"));
}

} // namespace
} // namespace qrtVistrelClasses4
