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
    const auto expectMessage = [&](const char* text) {
        ASSERT_EQ(shown.size(), 1u);
        EXPECT_EQ(shown[0].title, "IniFile Logic Error");
        EXPECT_EQ(shown[0].text, text);
        EXPECT_EQ(shown[0].icon, MessageIcon::critical);
        shown.clear();
    };
    PrivateIni ini;
    EXPECT_EQ(ini.Read("Key", "default"), "default");
    expectMessage("[Section] and FileName Not Registered in Private.Ini!");
    ini.Register("Section without a file", " ");
    EXPECT_FALSE(ini.Write("Key", "value"));
    expectMessage("[Section] and FileName Not Registered in Private.Ini!");

    SystemIni system;
    EXPECT_EQ(system.Read("Key", "default"), "default");
    expectMessage("[Section] Not Registered in Win.Ini!");
    system.Register("Signs");
    EXPECT_TRUE(system.Write("Key", "value"));
    EXPECT_EQ(system.Read("Key", "default"), "value");
    EXPECT_TRUE(shown.empty());
}

} // namespace
} // namespace qrtVistrelClasses4
