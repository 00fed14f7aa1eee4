#include "BoxWatcher.h"
#include "TestHost.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

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
        EXPECT_EQ(PressInBox(c.message.title, c.pressed, [&] { answer = showMessage(c.message); }),
                  c.message.text);
        EXPECT_EQ(answer, c.answer);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
