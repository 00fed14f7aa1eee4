#include "platform/windows/WindowsMessageBoxes.h"

#include <windows.h>

namespace qrtVistrelClasses4 {
namespace {

/// Without an owner, only a task-modal box disables the windows of the host.
UINT flagsOf(const Message& message) {
    const UINT flags = MB_TASKMODAL | (message.buttons == MessageButtons::yesNo ? MB_YESNO : MB_OK);
    switch (message.icon) {
    case MessageIcon::critical:
        return flags | MB_ICONERROR;
    case MessageIcon::question:
        return flags | MB_ICONQUESTION;
    case MessageIcon::none:
        break;
    }
    return flags;
}

} // namespace

MessageAnswer WindowsMessageBoxes::show(const Message& message) {
    const int pressed =
        attended() ? ::MessageBoxA(nullptr, message.text.c_str(), message.title.c_str(), flagsOf(message))
                   : 0;
    if (message.buttons == MessageButtons::ok)
        return MessageAnswer::ok;
    return pressed == IDYES ? MessageAnswer::yes : MessageAnswer::no;
}

bool WindowsMessageBoxes::attended() {
    USEROBJECTFLAGS flags{};
    const HWINSTA station = ::GetProcessWindowStation();
    return station && ::GetUserObjectInformationA(station, UOI_FLAGS, &flags, sizeof flags, nullptr) &&
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

} // namespace qrtVistrelClasses4
