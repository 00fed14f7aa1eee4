#include "BoxWatcher.h"
#include "platform/Platform.h"

#include <gtest/gtest.h>

#include <tuple>

namespace qrtVistrelClasses4 {
namespace {

TEST(WindowsMessageBoxes, ShowTitleAndTextAndBringBackTheAnswer) {
    const auto machine = makePlatform();
    const std::tuple<MessageButtons, WPARAM, MessageAnswer> cases[] = {
        {MessageButtons::yesNo, IDYES, MessageAnswer::yes},
        {MessageButtons::yesNo, IDNO, MessageAnswer::no},
        {MessageButtons::ok, IDOK, MessageAnswer::ok}};
    for (const auto& [buttons, pressed, answer] : cases) {
        const Message message{"one line\r\nand another", "Error Occurred", MessageIcon::critical, buttons};
        const auto show = [&, wanted = answer] { EXPECT_EQ(machine->messageBoxes().show(message), wanted); };
        EXPECT_EQ(PressInBox(message.title, pressed, show), message.text);
    }
}

bool hostIsEnabled = true;

/// Notes whether the window is enabled while the box is open, and closes that.
void CALLBACK lookAtHost(HWND host, UINT, UINT_PTR, DWORD) {
    if (const HWND box = FindWindowA("#32770", "Question")) {
        hostIsEnabled = IsWindowEnabled(host) != FALSE;
        PostMessageA(box, WM_COMMAND, IDYES, 0);
    }
}

TEST(WindowsMessageBoxes, DisableTheWindowsOfTheHost) {
    const auto machine = makePlatform();
    const HWND window = CreateWindowA("STATIC", "host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                                      nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(window);
    hostIsEnabled = true;
    SetTimer(window, 1, 10, lookAtHost);
    (void)machine->messageBoxes().show({"?", "Question", MessageIcon::none, MessageButtons::yesNo});
    EXPECT_FALSE(hostIsEnabled);
    EXPECT_TRUE(IsWindowEnabled(window)) << "when it is answered";
    DestroyWindow(window);
}

} // namespace
} // namespace qrtVistrelClasses4
