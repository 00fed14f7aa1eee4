// Answers the message boxes of another program, as an operator: AnswerBoxes COUNT
// Prints title and text of each. Presses No, or OK if there is no No. Fails if a box does not come within 20
// seconds.
#include <windows.h>

#include <cstdlib>
#include <iostream>

namespace {

constexpr int kTextIdentifier = 0xffff;
constexpr int kPauseMilliseconds = 20, kPauses = 1000;

/// The next box, once it has its text and its title, which Wine gives it after the text; none if it does not
/// come.
HWND awaitBox(HWND previous) {
    for (int pause = 0; pause < kPauses; ++pause) {
        const HWND box = FindWindowA("#32770", nullptr);
        if (box && box != previous && GetDlgItem(box, kTextIdentifier) && GetWindowTextLengthA(box) > 0)
            return box;
        Sleep(kPauseMilliseconds);
    }
    return nullptr;
}

} // namespace

int main(int, char** arguments) {
    HWND box = nullptr;
    for (int left = std::atoi(arguments[1]); left > 0; --left) {
        box = awaitBox(box);
        if (!box)
            return 1;
        char title[100] = "", text[1000] = "";
        GetWindowTextA(box, title, sizeof title);
        GetDlgItemTextA(box, kTextIdentifier, text, sizeof text);
        std::cout << title << ": " << text << std::endl;
        PostMessageA(box, WM_COMMAND, GetDlgItem(box, IDNO) ? IDNO : IDOK, 0);
    }
    return 0;
}
