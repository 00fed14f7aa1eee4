// Real message boxes, answered by a second thread in the operator's place.
#include "TestHost.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <thread>

namespace qrtVistrelClasses4 {
namespace {

std::string textOfWindow(HWND window) {
    char text[1000] = "";
    SendMessageA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

BOOL CALLBACK keepLongestText(HWND child, LPARAM kept) {
    auto& text = *reinterpret_cast<std::string*>(kept);
    if (std::string candidate = textOfWindow(child); candidate.size() > text.size())
        text = candidate;
    return TRUE;
}

/// Runs `act`, and presses `button` in the box titled `title` as soon as it is there. The text of the box, or
/// "no box".
std::string pressInBox(const std::string& title, WPARAM button, const std::function<void()>& act) {
    std::string text = "no box";
    std::thread operatorThread([&] {
        HWND box = nullptr;
        for (int attempt = 0; attempt < 500 && !box; ++attempt) {
            Sleep(20);
            box = FindWindowA("#32770", title.c_str());
        }
        if (!box)
            return;
        text.clear();
        EnumChildWindows(box, keepLongestText, reinterpret_cast<LPARAM>(&text));
        PostMessageA(box, WM_COMMAND, button, 0);
    });
    act();
    operatorThread.join();
    return text;
}

TEST(WindowsMessageBoxes, ShowTitleAndTextAndBringBackTheAnswer) {
    const auto machine = makePlatform();
    const Message question{"Do you want to make a copy?", "File Validation", MessageIcon::question,
                           MessageButtons::yesNo};
    const Message failure{"61Disk full while writing\r\nDisplay data to disk", "Error Occurred",
                          MessageIcon::critical, MessageButtons::ok};
    const struct {
        Message message;
        WPARAM pressed;
        MessageAnswer answer;
    } cases[] = {{question, IDYES, MessageAnswer::yes},
                 {question, IDNO, MessageAnswer::no},
                 {failure, IDOK, MessageAnswer::ok}};
    TestHost host;
    const ScopedMessageBoxes realBoxes(machine->messageBoxes()); // in place of those of the host
    for (const auto& c : cases) {
        MessageAnswer answer{};
        EXPECT_EQ(pressInBox(c.message.title, c.pressed, [&] { answer = showMessage(c.message); }),
                  c.message.text);
        EXPECT_EQ(answer, c.answer);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
