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
    struct Case {
        const char* why;
        std::string setName, typed, getName, read;
    };
    const Case cases[] = {
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
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(vistrel.run("settings set " + c.setName + " '" + c.typed + "'").exitCode, 0);
        EXPECT_EQ(vistrel.run("settings get " + c.getName).out, c.read + "\n");
    }
    EXPECT_THAT(ContentOf(vistrel.inHome("VistrelLite.ini")), HasSubstr("DisplayID=Caf\xe9\r\n"))
        << "stored in the code page of the file";
}

TEST(Settings, WhatCannotBeSetIsRefusedWithAReason) {
    struct Case {
        const char* why;
        std::string name, typed;
        int exitCode;
        const char* reason;
    };
    const Case cases[] = {
        {"no number", "DisplayHeight", "high", 2, "takes a whole number from -32768 to 32767, not \"high\""},
        {"number too large", "DisplayHeight", "40000", 2, "takes a whole number"},
        {"no delay", "DelayStep", "1s", 2, "takes a number"},
        {"no flag", "BMPCrop", "perhaps", 2, "takes True or False"},
        {"letter that the file cannot hold", "DisplayID", "\u042b", 2, "not in Windows-1252"},
        {"misspelt name", "DisplayHeigt", "32", 2, "the nearest name is DisplayHeight"},
        {"schedule without a number", "BrightnessScheduleStartTime", "", 2, "BrightnessScheduleStartTime1"},
        {"text that the file would trim", "DisplayID", " 1", 1, "does not read back"},
        {"text longer than a value can be", "DisplayID", std::string(255, 'x'), 1, "does not read back"},
    };
    const Program vistrel;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        const Outcome outcome = vistrel.run("settings set " + c.name + " '" + c.typed + "'");
        EXPECT_EQ(outcome.exitCode, c.exitCode);
        EXPECT_THAT(outcome.err, HasSubstr(c.reason));
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

} // namespace
} // namespace qrtVistrelClasses4
