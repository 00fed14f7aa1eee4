#include "tools/Encoding.h"

#include <gtest/gtest.h>

#include <set>

namespace qrtVistrelClasses4 {
namespace {

TEST(Encoding, EveryByteIsACharacterOfItsOwnAndComesBack) {
    std::set<std::string> seen;
    for (int code = 0; code < 256; ++code) {
        SCOPED_TRACE(code);
        const std::string ansi(1, static_cast<char>(code));
        const std::string utf8 = Utf8FromAnsi(ansi);
        EXPECT_EQ(AnsiFromUtf8(utf8), ansi);
        EXPECT_TRUE(seen.insert(utf8).second);
    }
}

TEST(Encoding, CharactersAreThoseOfTheCodePage) {
    struct Case {
        const char* why;
        std::string ansi, utf8;
    };
    const Case cases[] = {
        {"ASCII", "Pier 1", "Pier 1"},
        {"Latin 1 range", "Caf\xe9", "Caf\u00e9"},
        {"first of the own range", "\x80", "\u20ac"},
        {"last of the own range", "\x9f", "\u0178"},
        {"first undefined code", "\x81", "\u0081"},
        {"last undefined code", "\x9d", "\u009d"},
        {"no-break blank, first behind the own range", "\xa0", "\u00a0"},
        {"NUL is a character like others", std::string(1, '\0'), std::string(1, '\0')},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Utf8FromAnsi(c.ansi), c.utf8);
        EXPECT_EQ(AnsiFromUtf8(c.utf8), c.ansi);
    }
}

TEST(Encoding, WhatTheCodePageLacksHasNoWayBack) {
    struct Case {
        const char* why;
        std::string utf8;
    };
    const Case cases[] = {
        {"another alphabet", "\u042b"},
        {"control whose number means another character here", "\u0080"},
        {"character beyond 16 bits", "\U0001f600"},
        {"text cut in a character", "\xc3"},
        {"tail without a start", "\xa9"},
        {"start without a tail", "\xc3x"},
        {"overlong ASCII, two bytes", "\xc1\x81"},
        {"overlong ASCII, three bytes", "\xe0\x81\x81"},
        {"no byte of UTF-8", "\xff"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(AnsiFromUtf8(c.utf8), std::nullopt);
    }
}

TEST(Encoding, ControlCharactersAreShownBySigns) {
    struct Case {
        const char* why;
        std::string utf8, shown;
    };
    const Case cases[] = {
        {"line end", "a\r\nb", "a\u240d\u240ab"},
        {"NUL", std::string("a\0b", 3), "a\u2400b"},
        {"delete", "\x7f", "\u2421"},
        {"undefined code, no sign of its own", "\u0081", "\\x81"},
        {"escape cannot reach the terminal", "\x1b[2J", "\u241b[2J"},
        {"letters stay", "Caf\u00e9 \u20ac", "Caf\u00e9 \u20ac"},
        {"no UTF-8 stays", "\xff", "\xff"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Visible(c.utf8), c.shown);
    }
}

} // namespace
} // namespace qrtVistrelClasses4
