#include "settings/SettingsInfoClass.h"

#include "HostTest.h"
#include "settings/RegistrySettings.h"

namespace qrtVistrelClasses4 {
namespace {

class SettingsInfo : public HostTest {
protected:
    void load(const std::string& lines) {
        files().put(iniPath_, "[VistrelLite]\r\n" + lines);
        settings_.GetSettingsFromDisk();
    }

    const std::string iniPath_ = host_.inLibrary("VistrelLite.ini");
    const std::string playfiles_ =
        JoinPath(host_.machine.specialFolders.at(kDocumentsFolder), "Vistrel Sign Playfiles");
    SettingsInfoClass settings_;
};

TEST_F(SettingsInfo, StartsWithDefaultsWithoutTouchingTheDiskAndSavesThemInOrder) {
    EXPECT_EQ(settings_.ClassDebugID() + 1, SettingsInfoClass().ClassDebugID());
    EXPECT_EQ(files().fileNames(), Texts());
    EXPECT_EQ(files().kindOf(playfiles_), EntryKind::missing);
    settings_.SaveSettingsToDisk();
    std::string schedules;
    for (const std::string number : {"1", "2", "3", "4"})
        schedules += "ScheduledStartTime" + number + "=12:00 AM\r\nScheduledStopTime" + number +
                     "=12:00 AM\r\nScheduledBrightnessLevel" + number + "=5\r\n";
    EXPECT_EQ(files().content(iniPath_),
              "[VistrelLite]\r\nLastGraphicPath=" + host_.inLibrary("Brivox Graphics") +
                  "\r\nDisplayHeight=64\r\nDisplayWidth=128\r\nDelayMinimum=0\r\nDelayMaximum=10000\r\n"
                  "DelayStep=500\r\nWizardMode=False\r\nSwitchOperated=False\r\nDisplayID=1\r\n"
                  "ScrollPauseDelay=5\r\nTemperatureProbeAdjustment=0\r\nTimeZoneAdjustment=0\r\n"
                  "ResetOnGetParameters=True\r\nScrollingTextSpeed=2\r\nUseDaylightSavingsTime=True\r\n"
                  "DisplayBrightnessLevel=5\r\nSensorLimitMinimum=3\r\nSensorLimitMaximum=7\r\n"
                  "ScheduleDefaultBrightness=5\r\n" +
                  schedules + "DoesDisplaySupporColor=False\r\nLastPlayfilePath=" + playfiles_ +
                  "\r\nSupportOldFirmware=False\r\nPlayAutoEnable=True\r\nChooseDispGetInfo=False\r\n"
                  "ChooseDispTransmit=False\r\nAVIFixedDelay=False\r\nAVIDelay=50\r\nDefaultDelay=3\r\n"
                  "BroadcastTRDelay=500\r\nShowImage=True\r\nAVICrop=False\r\nBMPCrop=False\r\n");
}

TEST_F(SettingsInfo, LoadsWhatItSaved) {
    settings_.LastGraphicFilePath("D:\\Pictures");
    settings_.LastPlayfilePath("D:\\Plays");
    settings_.DelayMinimum(-1.25);
    settings_.DelayMaximum(1e15);
    settings_.DisplayID("12");
    settings_.WizardMode(true);
    settings_.ShowFullPath(true);
    settings_.TimeZoneAdjust(-5);
    for (std::int16_t number = 0; number <= 5; ++number) {
        settings_.ScheduleNumber(number);
        settings_.BrightnessScheduleStartTime(std::to_string(number) + ":30 PM");
        settings_.BrightnessScheduleStopTime(std::to_string(number) + ":45 PM");
        settings_.BrightnessScheduleBrightnessLevel(number);
    }
    EXPECT_EQ(takeErrors(), Numbers(6, 9)) << "schedules are 1 to 4";
    settings_.SaveSettingsToDisk("any name");
    SettingsInfoClass loaded;
    loaded.GetSettingsFromDisk();
    EXPECT_EQ(loaded.Value(), settings_.Value());
    EXPECT_EQ(loaded.LastGraphicFilePath(), "D:\\Pictures");
    EXPECT_FALSE(loaded.ShowFullPath()) << "held in memory only";
    EXPECT_EQ(loaded.ScheduleNumber(), 1);
    loaded.ScheduleNumber(4);
    EXPECT_EQ(loaded.BrightnessScheduleStartTime() + loaded.BrightnessScheduleStopTime(), "4:30 PM4:45 PM");
    EXPECT_EQ(loaded.BrightnessScheduleBrightnessLevel(), 4);
}

TEST_F(SettingsInfo, LoadsForgivinglyUpToAValueThatDoesNotConvert) {
    load("DisplayHeight=32 pixels\r\nDelayMaximum=0\r\nDelayStep=0\r\nWizardMode=tRUE\r\nBMPCrop=-1\r\n"
         "DisplayWidth=\r\n");
    EXPECT_EQ(settings_.DisplayHeight(), 32);
    EXPECT_EQ(settings_.DelayMinimum(), 0);
    EXPECT_EQ(std::pair(settings_.DelayMaximum(), settings_.DelayStep()), std::pair(10000.0, 500.0))
        << "not 0";
    EXPECT_TRUE(settings_.WizardMode() && settings_.BMPCrop());
    EXPECT_EQ(settings_.DisplayWidth(), 0) << "an empty value is there";
    EXPECT_EQ(files().kindOf(playfiles_), EntryKind::folder);
    load("DisplayHeight=16\r\nDisplayWidth=99999\r\nDefaultDelay=9\r\n");
    EXPECT_EQ(takeErrors(), Numbers{6});
    EXPECT_EQ(settings_.DisplayHeight(), 16);
    EXPECT_EQ(settings_.DefaultDelay(), 3);
}

TEST_F(SettingsInfo, TellsWhenSavingIsRefused) {
    const std::string folder = host_.inLibrary("elsewhere");
    WriteSetting("Vistrel3", "Settings", "AppPath", folder);
    files().makeFolders(folder);
    settings_.WriteSetting("Key", "there");
    files().setReadOnly(JoinPath(folder, "VistrelLite.ini"));
    settings_.WriteSetting("Key", "not kept");
    settings_.SaveSettingsToDisk();
    EXPECT_EQ(takeErrors(), Numbers{75}) << "but none for a single key, which interrupts nobody";
    EXPECT_EQ(settings_.GetPrivateSetting("Key", ""), "there");
    EXPECT_EQ(files().fileNames(), Texts{JoinPath(folder, "VistrelLite.ini")});
}

TEST_F(SettingsInfo, LoadsWithoutADocumentsFolder) {
    host_.machine.specialFolders[kDocumentsFolder] = host_.inLibrary("gone");
    load("DisplayHeight=16\r\n");
    EXPECT_EQ(settings_.DisplayHeight(), 16);
    EXPECT_TRUE(host_.reports.all.at(0).error.isQuiet());
    EXPECT_EQ(takeErrors(), Numbers{76}) << "only logged";
    host_.machine.specialFolders.clear();
    load("");
    EXPECT_EQ(settings_.LastPlayfilePath(), "");
}

} // namespace
} // namespace qrtVistrelClasses4
