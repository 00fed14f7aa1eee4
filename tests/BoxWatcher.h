// Real message boxes, answered by a second thread in the operator's place.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <thread>

namespace qrtVistrelClasses4 {

inline std::string TextOfWindow(HWND window) {
    char text[1000] = "";
    SendMessageA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

inline BOOL CALLBACK KeepLongestText(HWND child, LPARAM kept) {
    auto& text = *reinterpret_cast<std::string*>(kept); // NOLINT(performance-no-int-to-ptr)
    if (std::string candidate = TextOfWindow(child); candidate.size() > text.size())
        text = candidate;
    return TRUE;
}

/// Runs `act`, and presses `button` in the box titled `title` as soon as it is there. The text of the box, or
/// "no box".
inline std::string PressInBox(const std::string& title, WPARAM button, const std::function<void()>& act) {
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
        EnumChildWindows(box, KeepLongestText, reinterpret_cast<LPARAM>(&text));
        PostMessageA(box, WM_COMMAND, button, 0);
    });
    act();
    operatorThread.join();
    return text;
}

} // namespace qrtVistrelClasses4
