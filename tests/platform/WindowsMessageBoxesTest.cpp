#include "platform/Platform.h"

#include <gtest/gtest.h>

#include <tuple>

#include <windows.h>

namespace qrtVistrelClasses4 {
namespace {

constexpr const char* kTitle = "Error Occurred";

/// What the operator presses, and what was seen before.
struct {
    WPARAM pressed = 0;
    std::string text;
    bool hostIsEnabled = true;
} box;

/// Answers the box as soon as it is there.
void CALLBACK answer(HWND host, UINT, UINT_PTR, DWORD) {
    if (const HWND window = FindWindowA("#32770", kTitle)) {
        constexpr int textIdentifier = 0xffff;
        char text[100] = "";
        GetDlgItemTextA(window, textIdentifier, text, sizeof text);
        box.text = text;
        box.hostIsEnabled = IsWindowEnabled(host) != FALSE;
        PostMessageA(window, WM_COMMAND, box.pressed, 0);
    }
}

TEST(WindowsMessageBoxes, ShowTitleAndTextDisableTheWindowsOfTheHostAndBringBackTheAnswer) {
    const auto machine = makePlatform();
    const HWND host = CreateWindowA("STATIC", "host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                                    nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(host);
    SetTimer(host, 1, 10, answer);
    const std::tuple<MessageButtons, WPARAM, MessageAnswer> cases[] = {
        {MessageButtons::yesNo, IDYES, MessageAnswer::yes},
        {MessageButtons::yesNo, IDNO, MessageAnswer::no},
        {MessageButtons::ok, IDOK, MessageAnswer::ok}};
    for (const auto& [buttons, pressed, wanted] : cases) {
        const Message message{"one line\r\nand another", kTitle, MessageIcon::critical, buttons};
        box = {pressed, "", true};
        EXPECT_EQ(machine->messageBoxes().show(message), wanted);
        EXPECT_EQ(box.text, message.text);
        EXPECT_FALSE(box.hostIsEnabled);
        EXPECT_TRUE(IsWindowEnabled(host)) << "when it is answered";
    }
    DestroyWindow(host);
}

} // namespace
} // namespace qrtVistrelClasses4
