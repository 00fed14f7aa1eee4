#include "BoxWatcher.h"
#include "platform/Platform.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(WindowsMessageBoxes, ShowTitleAndTextAndBringBackTheAnswer) {
    const Message question{"Do you want to make a copy?", "File Validation", MessageIcon::question,
                           MessageButtons::yesNo};
    const Message failure{"Error writing to file.", "Unable to save playfile", MessageIcon::critical,
                          MessageButtons::ok};
    struct Case {
        Message message;
        WPARAM pressed;
        MessageAnswer answer;
    };
    const Case cases[] = {{question, IDYES, MessageAnswer::yes},
                          {question, IDNO, MessageAnswer::no},
                          {failure, IDOK, MessageAnswer::ok}};
    for (const Case& c : cases) {
        MessageAnswer answer{};
        const SeenBox seen = PressInBox(c.message.title, c.pressed,
                                        [&] { answer = platform().messageBoxes().show(c.message); });
        EXPECT_EQ(seen.title, c.message.title);
        EXPECT_EQ(seen.text, c.message.text);
        EXPECT_EQ(answer, c.answer);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
