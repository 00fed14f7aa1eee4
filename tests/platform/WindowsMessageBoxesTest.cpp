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
        const Message message{"61Disk full while writing\r\nDisplay data to disk", "Error Occurred",
                              MessageIcon::critical, buttons};
        MessageAnswer given{};
        const auto show = [&] { given = machine->messageBoxes().show(message); };
        EXPECT_EQ(PressInBox(message.title, pressed, show), message.text);
        EXPECT_EQ(given, answer);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
