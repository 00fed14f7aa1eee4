#include "Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

json sign(const Program& vistrel, const std::string& name) {
    return json::parse(vistrel.run("signs show --json '" + name + "'").out);
}

/// The list of the samples up to that line; a sign has 48.
std::string samplesUpTo(int lines) {
    const std::string list = ContentOf(QRT_SAMPLES_FOLDER "/Displays.dat");
    std::size_t end = 0;
    for (int line = 0; line < lines; ++line)
        end = list.find('\n', end) + 1;
    return list.substr(0, end);
}

TEST(Signs, ListAndShowPrintTables) {
    const Program vistrel;
    EXPECT_EQ(vistrel.run("signs list").out, Expected("signs.txt"));
    EXPECT_EQ(vistrel.run("signs show 'pier 1'").out, Expected("sign.txt"));
    EXPECT_EQ(json::parse(vistrel.run("signs list --json").out)[0], sign(vistrel, "Pier 1"));
}

TEST(Signs, WhatIsSetIsReadBack) {
    const struct {
        const char *why, *assignments, *pointer;
        json value;
    } cases[] = {
        {"32-bit number, and another", "FrameSize=70000 Switch1=1", "/FrameSize", 70000},
        {"number that the library takes as text", "DisplayType=161", "/DisplayType", 161},
        {"flag", "SwitchOperated=true", "/SwitchOperated", true},
        {"letter beyond ASCII", "AppDesc=Caf\u00e9", "/AppDesc", "Caf\u00e9"},
        {"schedule", "'Schedule4.StartTime=6:30 PM'", "/Schedules/3/StartTime", "6:30 PM"},
    };
    const Program vistrel;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(vistrel.run(std::string("signs set Gate ") + c.assignments).exitCode, 0);
        EXPECT_EQ(sign(vistrel, "Gate")[json::json_pointer(c.pointer)], c.value);
    }
    EXPECT_THAT(ContentOf(vistrel.inHome("Displays.dat")), HasSubstr("\"kept\"\r\n\"too\"\r\n"));
}

TEST(Signs, AreAddedDuplicatedRenamedAndRemoved) {
    const Program vistrel;
    std::filesystem::remove(vistrel.inHome("Displays.dat"));
    EXPECT_THAT(vistrel.run("signs list").out, HasSubstr("No signs: there is no file"));
    EXPECT_EQ(vistrel.run("signs add 12 DisplayWidth=96").exitCode, 0) << "makes the list";
    EXPECT_EQ(vistrel.run("signs duplicate 12 Kiosk").exitCode, 0);
    EXPECT_EQ(vistrel.run("signs set kiosk DisplayName=KIOSK").exitCode, 0) << "its own name, but for case";
    EXPECT_EQ(sign(vistrel, "KIOSK")["DisplayWidth"], 96);
    EXPECT_EQ(sign(vistrel, "12"), sign(vistrel, "#12")) << "a number, found under either name";
    const json told = json::parse(vistrel.run("signs remove '#12' --json").out);
    EXPECT_EQ(told["TotalDisplays"], 1);
}

TEST(Signs, AListThatWouldLoseSignsIsShownButNotSaved) {
    const Program vistrel;
    std::string nameless = samplesUpTo(3 * 48);
    nameless.replace(nameless.find("#42"), 3, "");
    const struct {
        const char* why;
        std::string list;
        const char* reason;
    } cases[] = {
        {"cut in the third sign", samplesUpTo(2 * 48 + 5), "only 3 signs could be read, the last of them"},
        {"line end too many", samplesUpTo(2 * 48) + "\r\n", "only 2 signs could be read"},
        {"last sign without a name", nameless, "counts as empty and hides 3 records"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        std::ofstream(vistrel.inHome("Displays.dat"), std::ios::binary) << c.list;
        const Outcome shown = vistrel.run("signs list");
        EXPECT_EQ(shown.exitCode, 1);
        EXPECT_THAT(shown.out, HasSubstr("Gate"));
        EXPECT_THAT(shown.err, HasSubstr(c.reason));
        for (const char* change : {"add New", "remove Gate", "set Gate Switch1=1"})
            EXPECT_THAT(vistrel.run(std::string("signs ") + change).err, HasSubstr("not saved, since"));
        EXPECT_EQ(ContentOf(vistrel.inHome("Displays.dat")), c.list);
    }
}

TEST(Signs, AreSavedInTheHomeWhereverTheyWereRead) {
    const Program vistrel;
    const std::string elsewhere = vistrel.usersFolder() + "/there.dat";
    std::filesystem::copy(vistrel.inHome("Displays.dat"), elsewhere);
    std::ofstream(vistrel.inHome("registry"))
        << "[HKEY_LOCAL_MACHINE\\Software\\Brivox\\VistrelLite\\Preview]\n\"DisplayDataFile\"=\"" << elsewhere
        << "\"\n";
    EXPECT_EQ(vistrel.run("signs remove Gate").exitCode, 0);
    EXPECT_THAT(ContentOf(elsewhere), HasSubstr("Gate"));
    EXPECT_THAT(vistrel.run("signs list").out, Not(HasSubstr("Gate")));
}

TEST(Signs, AFailedSaveIsTold) {
    const Program vistrel;
    std::filesystem::create_directories(vistrel.inHome("Displays.dat.bak/taken"));
    const Outcome saved = vistrel.run("signs remove Gate");
    EXPECT_EQ(saved.exitCode, 1);
    EXPECT_THAT(saved.out, HasSubstr("removed Gate; 3 signs now"));
    EXPECT_THAT(saved.err, HasSubstr("the previous list could not be kept as " + vistrel.home()));
    std::filesystem::remove(vistrel.inHome("Displays.dat"));
    std::filesystem::create_symlink("nosuch/Displays.dat", vistrel.inHome("Displays.dat"));
    const Outcome outcome = vistrel.run("signs add New");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.err, HasSubstr("while writing Display data to disk"));
    EXPECT_THAT(outcome.err, HasSubstr("not saved"));
}

} // namespace
} // namespace qrtVistrelClasses4
