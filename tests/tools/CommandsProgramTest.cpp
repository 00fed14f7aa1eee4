#include "Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::json;
using testing::HasSubstr;

TEST(Commands, ListPrintsATableAndKeepsTheFile) {
    const Program vistrel;
    EXPECT_EQ(vistrel.run("commands list").out, Expected("commands.txt"));
    EXPECT_EQ(ContentOf(vistrel.inHome("db/VistrelLite.dat")),
              ContentOf(QRT_SAMPLES_FOLDER "/db/VistrelLite.dat"));
    const json commands = json::parse(vistrel.run("commands list --json").out);
    EXPECT_EQ(commands[16]["hiddenBy"], 9);
    EXPECT_EQ(commands[15], json::parse(vistrel.run("commands get '|flash|' --json").out));
}

TEST(Commands, WhatIsSetIsReadBack) {
    const Program vistrel;
    const auto readBack = [&](const std::string& key, const std::string& typed) {
        EXPECT_EQ(vistrel.run("commands set '" + key + "' " + typed).exitCode, 0);
        return vistrel.run("commands get '" + key + "'").out;
    };
    EXPECT_EQ(readBack("##BELL", "1b 8046"), "1B 80 46\n") << "pairs side by side";
    EXPECT_EQ(readBack("##BELL", "'00 FE'"), "00 FE\n") << "smallest and largest byte that fit";
    EXPECT_EQ(readBack("Caf\u00e9", "--text \u20ac 5"), "80 20 35\n") << "letters beyond ASCII, a new row";
    EXPECT_THAT(ContentOf(vistrel.inHome("db/VistrelLite.dat")), HasSubstr("too\r\nCaf\xe9\xff\x80 5\xff"));
}

TEST(Commands, ATableThatCannotBeSavedIsAFailure) {
    const Program vistrel;
    std::filesystem::remove_all(vistrel.inHome("db"));
    std::ofstream(vistrel.inHome("db")) << "in the folder's place";
    for (const char* arguments : {"commands set X 07", "commands list", "text preview '|hm|'"}) {
        const Outcome outcome = vistrel.run(arguments);
        EXPECT_EQ(outcome.exitCode, 1) << arguments;
        EXPECT_THAT(outcome.err, HasSubstr("saved: Path not found (error 76)"));
    }
}

TEST(Commands, InATextAreShownAsOfAMoment) {
    const struct {
        const char *arguments, *out;
    } cases[] = {
        {"'|hm| |m/dd/y| CR07 ##BELL \u00a6' --at '2026-11-21 14:30'", "1430 11/21/26 CR07 7 \u00a6\n"},
        {"'|ddddddd|' --at '2024-02-29 00:05'", "Thursday\n"},
        {"'|hm|' --at '2026-11-21 00:05' --hours -3", "2105\n"},
        {"'|hm|' --at '2026-11-21 00:05' --hours 010", "1005\n"},
    };
    const Program vistrel;
    for (const auto& row : cases)
        EXPECT_EQ(vistrel.run(std::string("text preview ") + row.arguments).out, row.out) << row.arguments;
    EXPECT_EQ(vistrel.run("text convert 'Now {time} {vbl 7} caf\u00e9'").out, "Now |h:m| VBL007 caf\u00e9\n");
}

} // namespace
} // namespace qrtVistrelClasses4
