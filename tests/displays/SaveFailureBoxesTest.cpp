// What the operator sees on Windows when the list of signs cannot be written.
#include "BoxWatcher.h"
#include "TestHost.h"
#include "displays/DisplayDatabaseClass.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(SaveFailureBoxes, TellAFullDiskAndAReadOnlyFolder) {
    TestHost host;
    const auto machine = makePlatform();
    const ScopedMessageBoxes realBoxes(machine->messageBoxes());
    DisplayDatabaseClass displays;
    displays.AddNewDisplay("Harbour");
    const auto boxOfASave = [&] {
        std::string fileName = "Displays.dat";
        return PressInBox("Error Occurred", IDOK, [&] { displays.WriteAllDisplaysToDisk(fileName); }).text;
    };
    host.machine.files().bytesLeft = 5;
    EXPECT_EQ(boxOfASave(), "61Disk full while writing Display data to disk");
    host.machine.files().bytesLeft.reset();
    host.machine.files().setReadOnly(host.inLibrary("Displays.dat"));
    EXPECT_EQ(boxOfASave(),
              "Path/File access error\r\nCheck if you have read/write rights to Vistrel Folder " +
                  host.machine.library);
    EXPECT_TRUE(host.reports.all.empty());
}

} // namespace
} // namespace qrtVistrelClasses4
