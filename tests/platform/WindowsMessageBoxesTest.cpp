// Real message boxes, answered by a second thread in the operator's place.
#include "platform/Platform.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <string>
#include <thread>

namespace qrtVistrelClasses4 {
namespace {

struct SeenBox {
    std::string title, text;
    MessageAnswer answer{};
};

std::string textOf(HWND window) {
    char text[300] = "";
    SendMessageA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

BOOL CALLBACK keepLongestText(HWND child, LPARAM kept) {
    auto& text = *reinterpret_cast<std::string*>(kept);
    if (std::string candidate = textOf(child); candidate.size() > text.size())
        text = candidate;
    return TRUE;
}

/// Shows `message`, and presses `button` as soon as the box is there.
SeenBox showAndPress(const Message& message, WPARAM button) {
    SeenBox seen;
    std::thread operatorThread([&] {
        HWND box = nullptr;
        for (int attempt = 0; attempt < 500 && !box; ++attempt) {
            Sleep(20);
            box = FindWindowA("#32770", message.title.c_str());
        }
        if (!box)
            return;
        seen.title = textOf(box);
        EnumChildWindows(box, keepLongestText, reinterpret_cast<LPARAM>(&seen.text));
        PostMessageA(box, WM_COMMAND, button, 0);
    });
    seen.answer = platform().messageBoxes().show(message);
    operatorThread.join();
    return seen;
}

TEST(WindowsMessageBoxes, ShowTitleAndTextAndBringBackTheAnswer) {
    const Message question{"Do you want to make a copy?", "File Validation", MessageIcon::question,
                           MessageButtons::yesNo};
    const SeenBox yes = showAndPress(question, IDYES);
    EXPECT_EQ(yes.title, question.title);
    EXPECT_EQ(yes.text, question.text);
    EXPECT_EQ(yes.answer, MessageAnswer::yes);
    EXPECT_EQ(showAndPress(question, IDNO).answer, MessageAnswer::no);
    const Message failure{"Error writing to file.", "Unable to save playfile", MessageIcon::critical,
                          MessageButtons::ok};
    EXPECT_EQ(showAndPress(failure, IDOK).answer, MessageAnswer::ok);
}

} // namespace
} // namespace qrtVistrelClasses4
