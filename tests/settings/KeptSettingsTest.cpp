#include "settings/RegistrySettings.h"

#include "HostTest.h"
#include "settings/AppFolder.h"
#include "settings/IniFile.h"
#include "settings/RegistryRoutines.h"
#include "settings/clsSystemDirectory.h"

namespace qrtVistrelClasses4 {
namespace {

class KeptSettings : public HostTest {};

TEST_F(KeptSettings, OfTheRegistryAreReadAsTheyWereWritten) {
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

TEST_F(KeptSettings, GiveFoldersTrimmedAndWithASeparatorAtTheEnd) {
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

TEST_F(KeptSettings, OfAnIniFileAreReadAndWrittenInTheSectionThatIsRegistered) {
    const std::string path = host_.inLibrary("signs.ini");
    PrivateIni ini;
    EXPECT_EQ(ini.Read("Key", "default"), "default");
    ini.Register("Section without a file", " ");
    EXPECT_FALSE(ini.Write("Key", "value"));
    ini.Register(" ", path);
    EXPECT_EQ(ini.Read("Key", "default"), "default");
    SystemIni system;
    EXPECT_EQ(system.Read("Key", "default"), "default");
    const std::string title = "! IniFile Logic Error: [Section] ";
    const std::string unregistered = title + "and FileName Not Registered in Private.Ini!";
    EXPECT_EQ(takeBoxes(),
              (Texts{unregistered, unregistered, unregistered, title + "Not Registered in Win.Ini!"}));
    ini.Register("  Pier ", "  " + path + "  ");
    EXPECT_EQ(ini.Read("Name", "none"), "none");
    EXPECT_TRUE(ini.Write("Name", "East"));
    EXPECT_EQ(ini.Read("name", "none"), "East");
    EXPECT_EQ(files().content(path), "[Pier]\r\nName=East\r\n");
    files().setReadOnly(path);
    EXPECT_FALSE(ini.Write("Name", "West"));
    system.Register(" Signs ");
    EXPECT_TRUE(system.Write("Key", "value"));
    EXPECT_EQ(system.Read("Key", "default"), "value");
}

} // namespace
} // namespace qrtVistrelClasses4
