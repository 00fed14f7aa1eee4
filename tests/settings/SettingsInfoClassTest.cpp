#include "settings/SettingsInfoClass.h"

#include "TestHost.h"
#include "settings/RegistrySettings.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

class SettingsInfo : public testing::Test {
protected:
    std::string ini() {
        return host_.machine.files().content(host_.inLibrary("VistrelLite.ini")).value_or("");
    }
    void putIni(const std::string& lines) {
        host_.machine.files().put(host_.inLibrary("VistrelLite.ini"), "[VistrelLite]\r\n" + lines);
    }
    std::string playfileFolder() {
        return JoinPath(host_.machine.specialFolders.at(kDocumentsFolder), "Vistrel Sign Playfiles");
    }

    TestHost host_;
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

TEST_F(SettingsInfo, StartsWithDefaultsWithoutTouchingTheDisk) {
    putIni("DisplayHeight=32\r\n");
    const auto before = host_.machine.files().fileNames();
    SettingsInfoClass settings;
    EXPECT_EQ(settings.DisplayHeight(), 64);
    EXPECT_EQ(settings.ScheduleNumber(), 1);
    EXPECT_FALSE(settings.ShowFullPath());
    EXPECT_EQ(host_.machine.files().fileNames(), before);
    EXPECT_EQ(host_.machine.files().kindOf(playfileFolder()), EntryKind::missing);
}

TEST_F(SettingsInfo, SavesEveryPreferenceInOrder) {
    SettingsInfoClass settings;
    settings.ShowFullPath(true);
    settings.SaveSettingsToDisk();
    EXPECT_EQ(ini(), defaultIni(host_.inLibrary("Brivox Graphics"), playfileFolder()));
}

TEST_F(SettingsInfo, LoadsWhatItSaved) {
    SettingsInfoClass saved;
    saved.LastGraphicFilePath("D:\\Pictures");
    saved.DelayMinimum(-1.25);
    saved.DelayMaximum(1e15);
    saved.WizardMode(true);
    saved.DisplayID("12");
    saved.TimeZoneAdjust(-5);
    saved.DoesDisplaySupportColor(true);
    for (std::int16_t number = 1; number <= 4; ++number) {
        saved.ScheduleNumber(number);
        saved.BrightnessScheduleStartTime(std::to_string(number) + ":30 PM");
        saved.BrightnessScheduleStopTime("11:00 PM");
        saved.BrightnessScheduleBrightnessLevel(number);
    }
    saved.SaveSettingsToDisk("any name");
    SettingsInfoClass loaded;
    EXPECT_NE(loaded.Settings(), saved.Settings());
    loaded.GetSettingsFromDisk();
    EXPECT_EQ(loaded.Settings(), saved.Settings());
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(SettingsInfo, LoadsForgivingly) {
    putIni("DisplayHeight=32 pixels\r\nDelayMaximum=0\r\nDelayStep=0\r\nDelayMinimum=0\r\nWizardMode=tRUE\r\n"
           "BMPCrop=-1\r\nDisplayWidth=\r\n");
    SettingsInfoClass settings;
    settings.GetSettingsFromDisk();
    EXPECT_EQ(settings.DisplayHeight(), 32);
    EXPECT_EQ(settings.DelayMaximum(), 10000) << "0 would leave no delay to choose";
    EXPECT_EQ(settings.DelayStep(), 500);
    EXPECT_EQ(settings.DelayMinimum(), 0);
    EXPECT_TRUE(settings.WizardMode());
    EXPECT_TRUE(settings.BMPCrop());
    EXPECT_EQ(settings.DisplayWidth(), 0) << "an empty value is there";
    EXPECT_EQ(host_.machine.files().kindOf(playfileFolder()), EntryKind::folder);
    EXPECT_EQ(settings.LastPlayfilePath(), playfileFolder());
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(SettingsInfo, StopsLoadingAtAValueThatDoesNotConvert) {
    putIni("DisplayHeight=32\r\nDisplayWidth=99999\r\nDefaultDelay=9\r\n");
    SettingsInfoClass settings;
    settings.GetSettingsFromDisk();
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
    EXPECT_EQ(settings.DisplayHeight(), 32);
    EXPECT_EQ(settings.DisplayWidth(), 128);
    EXPECT_EQ(settings.DefaultDelay(), 3);
}

TEST_F(SettingsInfo, KeepsWhatOthersWroteIntoTheFile) {
    host_.machine.files().put(host_.inLibrary("VistrelLite.ini"),
                              "; mine\r\n[Other]\r\nx=1\r\n[VistrelLite]\r\nNote=kept\r\n");
    SettingsInfoClass settings;
    settings.WriteSetting("DisplayHeight", "16");
    settings.SaveSettingsToDisk();
    const std::string text = ini();
    EXPECT_EQ(text.rfind("; mine\r\n[Other]\r\nx=1\r\n[VistrelLite]\r\nNote=kept\r\n", 0), 0u) << text;
    EXPECT_EQ(settings.GetPrivateSetting("displayheight", ""), "64");
    EXPECT_EQ(settings.GetPrivateSetting("Note", ""), "kept");
    EXPECT_EQ(settings.GetPrivateSetting("Nothing", "default"), "default");
}

TEST_F(SettingsInfo, TellsWhenSavingIsRefused) {
    putIni("DisplayHeight=32\r\n");
    const std::string before = ini();
    host_.machine.files().setReadOnly(host_.inLibrary("VistrelLite.ini"));
    SettingsInfoClass settings;
    settings.WriteSetting("DisplayHeight", "16");
    EXPECT_TRUE(host_.reports.all.empty()) << "a single key that cannot be kept interrupts nobody";
    settings.SaveSettingsToDisk();
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{75});
    EXPECT_EQ(ini(), before);
}

TEST_F(SettingsInfo, LoadsWithoutADocumentsFolder) {
    host_.machine.specialFolders.clear();
    SettingsInfoClass settings;
    settings.GetSettingsFromDisk();
    EXPECT_EQ(settings.LastPlayfilePath(), "");
    host_.machine.specialFolders[kDocumentsFolder] = host_.inLibrary("gone");
    settings.GetSettingsFromDisk();
    EXPECT_EQ(settings.LastPlayfilePath(), host_.inLibrary(JoinPath("gone", "Vistrel Sign Playfiles")));
    ASSERT_EQ(host_.reports.all.size(), 1u);
    EXPECT_TRUE(host_.reports.all[0].error.isQuiet())
        << "only logged: the preferences are loaded all the same";
}

TEST_F(SettingsInfo, FollowsTheApplicationDataFolder) {
    const std::string folder = host_.inLibrary("elsewhere");
    host_.machine.files().makeFolders(folder);
    SettingsInfoClass settings;
    for (const std::string& path : {folder, folder + kPathSeparator}) {
        WriteSetting("Vistrel3", "Settings", "AppPath", path);
        settings.WriteSetting("From", path);
        EXPECT_EQ(settings.GetPrivateSetting("From", ""), path);
    }
    EXPECT_TRUE(host_.machine.files().content(JoinPath(folder, "VistrelLite.ini")));
}

TEST_F(SettingsInfo, TrapsAScheduleNumberOutside1To4) {
    SettingsInfoClass settings;
    for (const std::int16_t number : {std::int16_t{0}, std::int16_t{5}}) {
        settings.ScheduleNumber(number);
        EXPECT_EQ(settings.BrightnessScheduleStartTime(), "");
        settings.BrightnessScheduleBrightnessLevel(1);
        EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{9, 9}));
    }
}

TEST_F(SettingsInfo, DrawsAnIdentityNumberAndAppearsOnTheTrace) {
    KeptTrace trace;
    {
        const ScopedTraceRecorder scope(trace);
        SettingsInfoClass settings;
        EXPECT_GT(settings.ClassDebugID(), 0);
        SettingsInfoClass next;
        EXPECT_EQ(next.ClassDebugID(), settings.ClassDebugID() + 1);
        trace.lines.clear();
        settings.GetPrivateSetting("Key", "D");
        EXPECT_EQ(trace.lines.front(), "> Function GetPrivateSetting (Key=Key, DefaultValue=D)");
        settings.WriteSetting("Key", "V");
        EXPECT_EQ(trace.lines.back(), "< Sub WriteSetting (Key=Key, Value=V)");
        settings.ScheduleNumber(2);
        settings.BrightnessScheduleStopTime("1:00 AM");
        EXPECT_EQ(trace.lines.back(), "< Property (Let) BrightnessScheduleStopTime (vData=1:00 AM)");
        settings.GetSettingsFromDisk();
        EXPECT_EQ(trace.lines.back(), "< Sub GetSettingsFromDisk (sFileName=<Missing>)");
    }
}

} // namespace
} // namespace qrtVistrelClasses4
