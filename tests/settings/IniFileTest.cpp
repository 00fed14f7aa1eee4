#include "settings/IniFile.h"

#include "HostTest.h"

namespace qrtVistrelClasses4 {
namespace {

class IniFiles : public HostTest {};

TEST_F(IniFiles, AreReadAndWrittenInTheSectionThatIsRegistered) {
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
