// A test on a machine in memory. It fails for every error and every message box that the test does not take.
#pragma once

#include "TestHost.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {

class HostTest : public testing::Test {
protected:
    ~HostTest() override {
        EXPECT_EQ(takeErrors(), Numbers());
        EXPECT_EQ(takeBoxes(), Texts());
    }

    MemoryFileSystem& files() { return host_.machine.files(); }
    Numbers takeErrors() { return host_.reports.takeNumbers(); }
    /// Title and text of each box since the last call, "!" in front of those that are critical.
    Texts takeBoxes() {
        Texts boxes;
        for (const Message& box : std::exchange(host_.machine.messageBoxes().shown, {}))
            boxes.push_back((box.icon == MessageIcon::critical ? "! " : "") + box.title + ": " + box.text);
        return boxes;
    }

    TestHost host_;
};

} // namespace qrtVistrelClasses4
