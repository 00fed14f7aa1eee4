// Names and dates in the letters of the system's code page. `tests/automation/run.sh` runs these under
// several pages.
#include "RandomInputs.h"
#include "TestHost.h"
#include "commands/PreviewText.h"
#include "platform/LetterCase.h"
#include "platform/windows/WindowsCalendar.h"
#include <qrtVistrelClasses4/RecentFiles.h>
#include <qrtVistrelClasses4/SignList.h>

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

std::string upperBySystem(std::string text) {
    ::CharUpperA(text.data());
    return text;
}

TEST(CodePage, LettersAreFoldedAsTheSystemDoes) {
    RandomInputs random;
    for (int left = RandomInputs::count(); left > 0 && !testing::Test::HasFailure(); --left) {
        std::string text(static_cast<std::size_t>(random.below(2) * 300), 'x');
        for (int bytes = random.below(8); bytes > 0; --bytes)
            text += static_cast<char>(1 + random.below(255));
        std::string other = text;
        ::CharLowerA(other.data());
        if (random.below(2) && !text.empty())
            other.back() = static_cast<char>(1 + random.below(255));
        SCOPED_TRACE(testing::PrintToString(text) + testing::PrintToString(other));
        EXPECT_EQ(AnsiUpperCase(text), upperBySystem(text));
        EXPECT_EQ(EqualIgnoringAnsiCase(text, other), upperBySystem(text) == upperBySystem(other));
    }
}

TEST(CodePage, DecidesWhichNamesAreOne) {
    const char* const page = std::getenv("QRT_CODE_PAGE");
    ASSERT_EQ(std::to_string(::GetACP()), page ? page : "1252");
    const struct {
        unsigned page;
        const char *name, *same, *other;
    } cases[] = {{1250, "pi\xB9\xFF", "PI\xA5\xFF", "pi\xB9\x9F"},
                 {1251, "\xB8\xFF", "\xA8\xDF", "\xB8\x9F"},
                 {1252, "\xFF\xF7", "\x9F\xF7", "\xFF\xD7"},
                 {1254, "\xF0\xFD", "\xD0\xFD", "\xF0\xDD"},
                 {932, "\x83\x61\x82\x81g", "\x83\x61\x82\x60G", "\x83\x41\x82\x60G"}};
    for (const auto& row : cases) {
        if (row.page != ::GetACP())
            continue;
        SignList signs;
        EXPECT_TRUE(signs.add(row.name) && !signs.add(row.same) && signs.add(row.other));
        RecentFiles files;
        files.putFirst(row.name);
        EXPECT_TRUE(!files.remove(row.other) && files.remove(row.same));
    }
}

TEST(CodePage, HasTheCapitalsOfMonthsAndWeekdays) {
    TestHost host;
    host.machine.calendar = WindowsCalendarNames(LOCALE_USER_DEFAULT);
    for (int month = 1; month <= 12; ++month) {
        host.machine.time = {2024, month, 11, 0, 0, 0, month % 7};
        EXPECT_EQ(PreviewText("|CDDDDDDD_MMMMMMMM_DD,_YYY||CM_D|", 0),
                  upperBySystem(PreviewText("|dddddddd_mmmmmmmm_dd,_yyy||mm_d|", 0)));
    }
}

} // namespace
} // namespace qrtVistrelClasses4
