#include "platform/Platform.h"

#include <utility>

namespace qrtVistrelClasses4 {
namespace {

Platform* installedPlatform = nullptr;
MessageBoxes* installedBoxes = nullptr;

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

ScopedPlatform::ScopedPlatform(Platform& replacement)
    : previous_(std::exchange(installedPlatform, &replacement)) {}
ScopedPlatform::~ScopedPlatform() { installedPlatform = previous_; }

MessageBoxes& messageBoxes() { return installedBoxes ? *installedBoxes : platform().messageBoxes(); }
MessageAnswer showMessage(const Message& message) { return messageBoxes().show(message); }

ScopedMessageBoxes::ScopedMessageBoxes(MessageBoxes& replacement)
    : previous_(std::exchange(installedBoxes, &replacement)) {}
ScopedMessageBoxes::~ScopedMessageBoxes() { installedBoxes = previous_; }

} // namespace qrtVistrelClasses4
