#include "settings/SettingsInfoClass.h"

#include "TestHost.h"
#include "settings/RegistrySettings.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

class SettingsInfo : public testing::Test {
protected:
    MemoryFileSystem& files() { return host_.machine.files(); }
    std::string ini() { return files().content(iniPath_).value_or(""); }
    void putIni(const std::string& lines) { files().put(iniPath_, "[VistrelLite]\r\n" + lines); }
    std::string playfileFolder() {
        return JoinPath(host_.machine.specialFolders.at(kDocumentsFolder), "Vistrel Sign Playfiles");
    }

    TestHost host_;
    std::string iniPath_ = host_.inLibrary("VistrelLite.ini");
    SettingsInfoClass settings_;
};

/// The whole file, as every version has written it.
std::string defaultIni(const std::string& graphics, const std::string& playfiles) {
    std::string text = "[VistrelLite]\r\nLastGraphicPath=" + graphics +
                       "\r\nDisplayHeight=64\r\nDisplayWidth=128\r\nDelayMinimum=0\r\nDelayMaximum=10000\r\n"
                       "DelayStep=500\r\nWizardMode=False\r\nSwitchOperated=False\r\nDisplayID=1\r\n"
                       "ScrollPauseDelay=5\r\nTemperatureProbeAdjustment=0\r\nTimeZoneAdjustment=0\r\n"
                       "ResetOnGetParameters=True\r\nScrollingTextSpeed=2\r\nUseDaylightSavingsTime=True\r\n"
                       "DisplayBrightnessLevel=5\r\nSensorLimitMinimum=3\r\nSensorLimitMaximum=7\r\n"
                       "ScheduleDefaultBrightness=5\r\n";
    for (const std::string number : {"1", "2", "3", "4"})
        text += "ScheduledStartTime" + number + "=12:00 AM\r\nScheduledStopTime" + number +
                "=12:00 AM\r\nScheduledBrightnessLevel" + number + "=5\r\n";
    return text + "DoesDisplaySupporColor=False\r\nLastPlayfilePath=" + playfiles +
           "\r\nSupportOldFirmware=False\r\nPlayAutoEnable=True\r\nChooseDispGetInfo=False\r\n"
           "ChooseDispTransmit=False\r\nAVIFixedDelay=False\r\nAVIDelay=50\r\nDefaultDelay=3\r\n"
           "BroadcastTRDelay=500\r\nShowImage=True\r\nAVICrop=False\r\nBMPCrop=False\r\n";
}

TEST_F(SettingsInfo, StartsWithDefaultsWithoutTouchingTheDiskAndSavesThemInOrder) {
    EXPECT_EQ(settings_.ScheduleNumber(), 1);
    EXPECT_FALSE(settings_.ShowFullPath());
    EXPECT_TRUE(files().fileNames().empty());
    EXPECT_EQ(files().kindOf(playfileFolder()), EntryKind::missing);
    settings_.ShowFullPath(true);
    settings_.SaveSettingsToDisk();
    EXPECT_EQ(ini(), defaultIni(host_.inLibrary("Brivox Graphics"), playfileFolder()));
}

TEST_F(SettingsInfo, LoadsWhatItSaved) {
    settings_.LastGraphicFilePath("D:\\Pictures");
    settings_.DelayMinimum(-1.25);
    settings_.DelayMaximum(1e15);
    settings_.WizardMode(true);
    settings_.DisplayID("12");
    settings_.TimeZoneAdjust(-5);
    for (std::int16_t number = 1; number <= 4; ++number) {
        settings_.ScheduleNumber(number);
        settings_.BrightnessScheduleStartTime(std::to_string(number) + ":30 PM");
        settings_.BrightnessScheduleStopTime("11:00 PM");
        settings_.BrightnessScheduleBrightnessLevel(number);
    }
    settings_.SaveSettingsToDisk("any name");
    SettingsInfoClass loaded;
    EXPECT_NE(loaded.Settings(), settings_.Settings());
    loaded.GetSettingsFromDisk();
    EXPECT_EQ(loaded.Settings(), settings_.Settings());
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(SettingsInfo, LoadsForgivingly) {
    putIni("DisplayHeight=32 pixels\r\nDelayMaximum=0\r\nDelayStep=0\r\nDelayMinimum=0\r\nWizardMode=tRUE\r\n"
           "BMPCrop=-1\r\nDisplayWidth=\r\n");
    settings_.GetSettingsFromDisk();
    EXPECT_EQ(settings_.DisplayHeight(), 32);
    EXPECT_EQ(settings_.DelayMaximum(), 10000) << "0 would leave no delay to choose";
    EXPECT_EQ(settings_.DelayStep(), 500);
    EXPECT_EQ(settings_.DelayMinimum(), 0);
    EXPECT_TRUE(settings_.WizardMode() && settings_.BMPCrop());
    EXPECT_EQ(settings_.DisplayWidth(), 0) << "an empty value is there";
    EXPECT_EQ(files().kindOf(playfileFolder()), EntryKind::folder);
    EXPECT_EQ(settings_.LastPlayfilePath(), playfileFolder());
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(SettingsInfo, StopsLoadingAtAValueThatDoesNotConvert) {
    putIni("DisplayHeight=32\r\nDisplayWidth=99999\r\nDefaultDelay=9\r\n");
    settings_.GetSettingsFromDisk();
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
    EXPECT_EQ(settings_.DisplayHeight(), 32);
    EXPECT_EQ(settings_.DisplayWidth(), 128);
    EXPECT_EQ(settings_.DefaultDelay(), 3);
}

TEST_F(SettingsInfo, TellsWhenSavingIsRefused) {
    putIni("DisplayHeight=32\r\n");
    files().setReadOnly(iniPath_);
    settings_.WriteSetting("DisplayHeight", "16");
    EXPECT_TRUE(host_.reports.all.empty()) << "a single key that cannot be kept interrupts nobody";
    settings_.SaveSettingsToDisk();
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{75});
    EXPECT_EQ(ini(), "[VistrelLite]\r\nDisplayHeight=32\r\n");
}

TEST_F(SettingsInfo, LoadsWithoutADocumentsFolder) {
    host_.machine.specialFolders.clear();
    settings_.GetSettingsFromDisk();
    EXPECT_EQ(settings_.LastPlayfilePath(), "");
    host_.machine.specialFolders[kDocumentsFolder] = host_.inLibrary("gone");
    settings_.GetSettingsFromDisk();
    EXPECT_EQ(settings_.LastPlayfilePath(), playfileFolder());
    ASSERT_EQ(host_.reports.all.size(), 1u);
    EXPECT_TRUE(host_.reports.all[0].error.isQuiet())
        << "only logged: the preferences are loaded all the same";
}

TEST_F(SettingsInfo, FollowsTheApplicationDataFolder) {
    const std::string folder = host_.inLibrary("elsewhere");
    files().makeFolders(folder);
    WriteSetting("Vistrel3", "Settings", "AppPath", folder);
    settings_.WriteSetting("Key", "there");
    EXPECT_EQ(settings_.GetPrivateSetting("Key", ""), "there");
    EXPECT_EQ(files().fileNames(), Texts{JoinPath(folder, "VistrelLite.ini")});
}

TEST_F(SettingsInfo, TrapsAScheduleNumberOutside1To4) {
    for (const int number : {0, 5}) {
        settings_.ScheduleNumber(static_cast<std::int16_t>(number));
        EXPECT_EQ(settings_.BrightnessScheduleStartTime(), "");
        settings_.BrightnessScheduleBrightnessLevel(1);
        EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 9}));
    }
}

TEST_F(SettingsInfo, DrawsAnIdentityNumberAndAppearsOnTheTrace) {
    EXPECT_EQ(SettingsInfoClass().ClassDebugID(), settings_.ClassDebugID() + 1);
    KeptTrace trace;
    const ScopedTraceRecorder scope(trace);
    EXPECT_EQ(settings_.GetPrivateSetting("Key", "D"), "D");
    EXPECT_EQ(trace.lines.front(), "> Function GetPrivateSetting (Key=Key, DefaultValue=D)");
    settings_.WriteSetting("Key", "V");
    EXPECT_EQ(trace.lines.back(), "< Sub WriteSetting (Key=Key, Value=V)");
    settings_.BrightnessScheduleStopTime("1:00 AM");
    EXPECT_EQ(trace.lines.back(), "< Property (Let) BrightnessScheduleStopTime (vData=1:00 AM)");
    settings_.GetSettingsFromDisk();
    EXPECT_EQ(trace.lines.back(), "< Sub GetSettingsFromDisk (sFileName=<Missing>)");
}

} // namespace
} // namespace qrtVistrelClasses4
