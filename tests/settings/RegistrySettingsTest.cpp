#include "settings/RegistrySettings.h"

#include "HostTest.h"
#include "settings/AppFolder.h"
#include "settings/RegistryRoutines.h"
#include "settings/clsSystemDirectory.h"

namespace qrtVistrelClasses4 {
namespace {

class RegistrySettings : public HostTest {};

TEST_F(RegistrySettings, AreReadAsTheyWereWritten) {
    EXPECT_EQ(ReadSetting("Vistrel3", "Settings", "AppPath", "default"), "default");
    WriteSetting("Vistrel3", "Settings", "AppPath", "C:\\Data");
    RegistryRoutines registry;
    registry.Subkey("Software\\Brivox\\Vistrel3\\Settings");
    EXPECT_EQ(registry.GetRegistryValue("AppPath", ""), "C:\\Data");
    registry.hKey(RegistryHive::currentUser);
    EXPECT_FALSE(registry.KeyExists() || registry.DeleteKey());
    EXPECT_TRUE(registry.SetRegistryValue("b", "1") && registry.SetRegistryValue("a", "2"));
    EXPECT_EQ(registry.EnumRegistryValues(), (Texts{"a", "b"}));
    EXPECT_TRUE(registry.DeleteValue("b") && !registry.DeleteValue("b"));
    registry.Subkey("Software\\Brivox\\Vistrel3");
    EXPECT_EQ(registry.EnumRegistryKeys(), Texts{"Settings"});
    EXPECT_TRUE(registry.DeleteKey() && !registry.KeyExists() && registry.CreateKey());
    EXPECT_EQ(registry.ReadRemoteRegistryValue("\\\\nowhere", "v", "default"), "default");
    EXPECT_FALSE(registry.WriteRemoteRegistryValue("\\\\nowhere", "v", "x"));
    EXPECT_EQ(RegistryRoutines::TrimNull(std::string("ab\0cd", 5)), "ab");
}

TEST_F(RegistrySettings, GiveFoldersTrimmedAndWithASeparatorAtTheEnd) {
    host_.machine.specialFolders[5] = std::string("  C:\\Users\\Ann  \0rubbish", 23);
    EXPECT_EQ(clsSystemDirectory().FindSystemFolder(5), "C:\\Users\\Ann");
    EXPECT_EQ(clsSystemDirectory().FindSystemFolder(999), "");
    EXPECT_EQ(GetAppFolder(), host_.machine.library + kPathSeparator);
    const std::string folder = std::string("D") + kPathSeparator + "Data";
    for (const std::string& setting : {std::string(), folder, folder + kPathSeparator}) {
        WriteSetting("Vistrel3", "Settings", "AppPath", setting);
        EXPECT_EQ(GetAppFolder(), (setting.empty() ? host_.machine.library : folder) + kPathSeparator);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
