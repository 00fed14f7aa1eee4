#include "settings/IniFile.h"

#include "TestHost.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(PrivateIni, ReadsAndWritesTheRegisteredSection) {
    TestHost host;
    const std::string path = host.inLibrary("signs.ini");
    PrivateIni ini;
    ini.Register("  Pier ", "  " + path + "  ");
    EXPECT_EQ(ini.Read("Name", "none"), "none");
    EXPECT_TRUE(ini.Write("Name", "East"));
    EXPECT_EQ(ini.Read("name", "none"), "East");
    EXPECT_EQ(host.machine.files().content(path), "[Pier]\r\nName=East\r\n");
}

TEST(IniFiles, ShowAMessageWhenUsedBeforeTheyAreRegistered) {
    TestHost host;
    auto& shown = host.machine.messageBoxes().shown;
    PrivateIni ini;
    EXPECT_EQ(ini.Read("Key", "default"), "default");
    ini.Register("Section without a file", " ");
    EXPECT_FALSE(ini.Write("Key", "value"));
    SystemIni system;
    EXPECT_EQ(system.Read("Key", "default"), "default");
    ASSERT_EQ(shown.size(), 3u);
    EXPECT_EQ(shown[0].title, "IniFile Logic Error");
    EXPECT_EQ(shown[0].icon, MessageIcon::critical);
    EXPECT_EQ(shown[1].text, "[Section] and FileName Not Registered in Private.Ini!");
    EXPECT_EQ(shown[2].text, "[Section] Not Registered in Win.Ini!");

    system.Register("Signs");
    EXPECT_TRUE(system.Write("Key", "value"));
    EXPECT_EQ(system.Read("Key", "default"), "value");
    EXPECT_EQ(shown.size(), 3u);
}

} // namespace
} // namespace qrtVistrelClasses4
