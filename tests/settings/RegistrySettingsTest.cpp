#include "settings/RegistrySettings.h"

#include "TestHost.h"
#include "settings/AppFolder.h"
#include "settings/RegistryRoutines.h"
#include "settings/clsSystemDirectory.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(RegistrySettings, AreReadAsTheyWereWritten) {
    TestHost host;
    EXPECT_EQ(ReadSetting("Vistrel3", "Settings", "AppPath", "default"), "default");
    WriteSetting("Vistrel3", "Settings", "AppPath", "C:\\Data");
    EXPECT_EQ(ReadSetting("VISTREL3", "settings", "apppath", ""), "C:\\Data");
    EXPECT_EQ(ReadSetting("VistrelLite", "Settings", "AppPath", "other application"), "other application");
    RegistryRoutines registry;
    registry.Subkey("Software\\Brivox\\Vistrel3\\Settings");
    EXPECT_EQ(registry.GetRegistryValue("AppPath", ""), "C:\\Data");
}

TEST(RegistryRoutines, MakeListAndDeleteKeysAndValues) {
    TestHost host;
    RegistryRoutines registry;
    registry.hKey(RegistryHive::currentUser);
    registry.Subkey("Software\\Signs");
    EXPECT_FALSE(registry.KeyExists());
    EXPECT_FALSE(registry.DeleteKey());
    EXPECT_TRUE(registry.CreateKey());
    EXPECT_TRUE(registry.SetRegistryValue("b", "1"));
    EXPECT_TRUE(registry.SetRegistryValue("a", "2"));
    EXPECT_EQ(registry.EnumRegistryValues(), (Texts{"a", "b"}));
    EXPECT_TRUE(registry.DeleteValue("b"));
    EXPECT_FALSE(registry.DeleteValue("b"));
    registry.Subkey("Software\\Signs\\Pier");
    EXPECT_TRUE(registry.SetRegistryValue("v", "made with its key"));
    registry.Subkey("Software\\Signs");
    EXPECT_EQ(registry.EnumRegistryKeys(), Texts{"Pier"});
    EXPECT_TRUE(registry.DeleteKey());
    EXPECT_FALSE(registry.KeyExists());
    EXPECT_EQ(registry.ReadRemoteRegistryValue("\\\\nowhere", "v", "default"), "default");
    EXPECT_FALSE(registry.WriteRemoteRegistryValue("\\\\nowhere", "v", "x"));
    EXPECT_EQ(RegistryRoutines::TrimNull(std::string("ab\0cd", 5)), "ab");
    EXPECT_TRUE(host.reports.all.empty()) << "a refusal is an answer, not an error";
}

TEST(RegistrySettings, AppearOnTheTraceWithTheirSteps) {
    TestHost host;
    KeptTrace trace;
    const ScopedTraceRecorder scope(trace);
    WriteSetting("App", "S", "n", "v");
    EXPECT_EQ(trace.lines.size(), 6u);
    EXPECT_EQ(trace.lines.front(), "> Sub WriteSetting (Application=App, Section=S, ValueName=n, Value=v)");
    EXPECT_EQ(trace.lines.at(3), "> Function SetRegistryValue (ValueName=n, Value=v)");
}

TEST(SystemFolders, ComeTrimmed) {
    TestHost host;
    host.machine.specialFolders[5] = std::string("  C:\\Users\\Ann  \0rubbish", 23);
    EXPECT_EQ(clsSystemDirectory().FindSystemFolder(5), "C:\\Users\\Ann");
    EXPECT_EQ(clsSystemDirectory().FindSystemFolder(999), "");
}

TEST(AppFolder, EndsInASeparatorWhereverItComesFrom) {
    TestHost host;
    EXPECT_EQ(GetAppFolder(), host.machine.library + kPathSeparator);
    WriteSetting("Vistrel3", "Settings", "AppPath", "");
    EXPECT_EQ(GetAppFolder(), host.machine.library + kPathSeparator) << "an empty setting names no folder";
    const std::string folder = std::string("D") + kPathSeparator + "Data";
    for (const std::string& setting : {folder, folder + kPathSeparator}) {
        WriteSetting("Vistrel3", "Settings", "AppPath", setting);
        EXPECT_EQ(GetAppFolder(), folder + kPathSeparator);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
