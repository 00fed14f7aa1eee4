#include "commands/TextCodes.h"

#include "TestHost.h"
#include "commands/PreviewText.h"
#include "settings/RegistrySettings.h"

#include <gtest/gtest.h>

namespace qrtVistrelClasses4 {
namespace {

TEST(TextCodes, AreTheLongestThatATextStartsWith) {
    const TextCodes codes({"##B", "", "##BELL", "\xa6", "VBL001x", "|hm|", "\xa6\xa6"});
    const struct {
        const char *why, *text, *code;
    } cases[] = {
        {"shorter of two keys", "##BEL", "##B"},
        {"longer of two keys", "##BELLS", "##BELL"},
        {"further on only", " |hm|", ""},
        {"drawn by fonts", "\xa6 ", ""},
        {"key that begins as such a character", "\xa6\xa6", "\xa6\xa6"},
        {"key longer than a variable", "VBL001x", "VBL001x"},
        {"last variable", "VBL416", "VBL416"},
        {"variable too many", "VBL417", ""},
        {"no variable 0", "VBL000", ""},
        {"number cut short", "VBL12", ""},
        {"last counter", "CR167", "CR16"},
        {"counter too many", "CR17", ""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.why);
        const std::string_view text = row.text;
        EXPECT_EQ(text.substr(0, codes.sizeAtStart(text)), row.code);
    }
}

TEST(TextCodes, AreReplacedByTheirPreviewsFromTheStartOn) {
    TestHost host;
    host.machine.time = {2024, 3, 5, 14, 30, 0, 2};
    WriteSetting("Vistrel3", "Variables", "VBL007", "|hm|");
    const struct {
        const char *why, *text, *preview;
    } cases[] = {
        {"nothing to replace", "HARBOUR {time}", "HARBOUR {time}"},
        {"codes side by side", "|hm||hm|##C", "16301630##C"},
        {"the first of two that share a character", "|hm|hm|", "1630hm|"},
        {"preview that looks like a code stays", "VBL007|hm|", "|hm|1630"},
        {"counter between letters", "XCR12X", "XCR12X"},
        {"left to the font", "20\xa6", "20\xa6"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(PreviewText(row.text, 2), row.preview) << row.why;
}

TEST(TextCodes, AreLookedUpOnceForAText) {
    TestHost host;
    (void)PreviewText("", 0); // makes the table
    int reads = 0;
    host.machine.files().observer = [&](const FileOperation& operation) {
        reads += operation.kind == FileOperation::read ? 1 : 0;
        return SystemError::none;
    };
    (void)PreviewText("|hm| |hm| |hm|", 0);
    EXPECT_EQ(reads, 2) << "for the keys and for the one code";
}

} // namespace
} // namespace qrtVistrelClasses4
