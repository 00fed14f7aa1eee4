#include "platform/Platform.h"

namespace qrtVistrelClasses4 {
namespace {

constinit Platform* installedPlatform = nullptr;
constinit MessageBoxes* installedBoxes = nullptr;

} // namespace

CalendarNames EnglishCalendarNames() {
    return {{"January", "February", "March", "April", "May", "June", "July", "August", "September", "October",
             "November", "December"},
            {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
            {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
            "AM",
            "PM",
            "/",
            ":"};
}

Platform& platform() {
    if (installedPlatform)
        return *installedPlatform;
    static const std::unique_ptr<Platform> machine = makePlatform();
    return *machine;
}

template <>
Platform*& ScopedPlatform::installed() {
    return installedPlatform;
}

MessageBoxes* InstalledMessageBoxes() { return installedBoxes; }

template <>
MessageBoxes*& ScopedMessageBoxes::installed() {
    return installedBoxes;
}

} // namespace qrtVistrelClasses4
