#include "Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <map>

namespace qrtVistrelClasses4 {
namespace {

using testing::HasSubstr;

TEST(Settings, ListTellsValuesAndWhichAreDefaults) {
    const Program vistrel;
    const std::string list = vistrel.run("settings list --json").out;
    std::map<std::string, nlohmann::json> settings;
    for (const auto& setting : nlohmann::json::parse(list))
        settings[setting["property"]] = setting;
    EXPECT_EQ(settings["DisplayHeight"]["value"], 32);
    EXPECT_EQ(settings["DisplayHeight"]["isDefault"], false);
    EXPECT_EQ(settings["AVIDelay"]["isDefault"], true);
    EXPECT_EQ(settings["DelayMaximum"]["value"], 10000) << "a stored 0 counts as the default";
    EXPECT_EQ(settings["BrightnessScheduleStartTime2"]["value"], "6:30 PM");
    EXPECT_EQ(settings["DoesDisplaySupportColor"]["key"], "DoesDisplaySupporColor");
    EXPECT_EQ(settings["LastPlayfilePath"]["value"], vistrel.inHome("Vistrel Sign Playfiles"));
}

TEST(Settings, WhatIsSetIsReadBackUnderEitherName) {
    const struct {
        const char* why;
        std::string setName, typed, getName, read;
    } cases[] = {
        {"whole number", "DisplayHeight", "48", "DisplayHeight", "48"},
        {"negative number is no option", "TimeZoneAdjust", "-3", "TimeZoneAdjustment", "-3"},
        {"key in another case", "timezoneadjustment", "4", "TIMEZONEADJUST", "4"},
        {"flag as a number", "DoesDisplaySupporColor", "0", "DoesDisplaySupportColor", "False"},
        {"decimal comma, which the file does not know", "DelayStep", "2,5", "DelayStep", "2.5"},
        {"one of the schedules", "BrightnessScheduleBrightnessLevel4", "9", "ScheduledBrightnessLevel4", "9"},
        {"letter beyond ASCII", "DisplayID", "Caf\u00e9", "DisplayID", "Caf\u00e9"},
        {"empty text instead of the default", "LastPlayfilePath", "", "LastPlayfilePath", ""},
    };
    const Program vistrel;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(vistrel.run("settings set " + c.setName + " '" + c.typed + "'").exitCode, 0);
        EXPECT_EQ(vistrel.run("settings get " + c.getName).out, c.read + "\n");
    }
    EXPECT_THAT(ContentOf(vistrel.inHome("VistrelLite.ini")), HasSubstr("DisplayID=Caf\xe9\r\n"))
        << "stored in the code page of the file";
    for (const std::string& typed : {std::string("' 1'"), std::string(255, 'x')}) { // trimmed, cut
        const Outcome outcome = vistrel.run("settings set DisplayID " + typed);
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_THAT(outcome.err, HasSubstr("does not read back"));
    }
}

TEST(Settings, AFileThatDoesNotConvertNamesTheKeyAtFault) {
    const Program vistrel;
    std::ofstream(vistrel.inHome("VistrelLite.ini"))
        << "[VistrelLite]\nDisplayWidth=96\nWizardMode=perhaps\n";
    const Outcome outcome = vistrel.run("settings get DisplayWidth");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.out, "96\n");
    EXPECT_THAT(outcome.err, HasSubstr("Key=WizardMode"));
}

TEST(Settings, AHomeKeepsTheUsersFolderUntouched) {
    const Program vistrel;
    vistrel.run("settings set DisplayID 7");
    vistrel.run("effects");
    vistrel.run("show nosuch");
    EXPECT_TRUE(std::filesystem::is_empty(vistrel.usersFolder()));
}

TEST(Recent, FilesAreAddedInFrontAndRemoved) {
    const Program vistrel;
    EXPECT_EQ(vistrel.run("recent add 'c:\\signs\\PLANT.playfile'").exitCode, 0);
    EXPECT_EQ(vistrel.run("recent add Caf\u00e9").exitCode, 0);
    EXPECT_EQ(vistrel.run("recent remove CAF\u00c9 --json").out,
              "[\n  \"c:\\\\signs\\\\PLANT.playfile\",\n  \"C:\\\\Signs\\\\harbour.playfile\"\n]\n");
    EXPECT_THAT(vistrel.run("recent add 'a\"b'").err, HasSubstr("cannot hold quotes"));
    std::filesystem::remove(vistrel.inHome("VistrelLite.MRU"));
    EXPECT_EQ(vistrel.run("recent list").out, "No files\n");
    std::filesystem::create_symlink("nosuch/list", vistrel.inHome("VistrelLite.MRU"));
    EXPECT_THAT(vistrel.run("recent add x").err, HasSubstr("recent files: Path not found (error 76)"));
}

} // namespace
} // namespace qrtVistrelClasses4
