#include "playfile/LegacyFormat.h"

#include "LegacyBytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

/// A file that has shrunk since it was opened.
class ShrunkFile final : public InputFile {
public:
    ShrunkFile(std::string content, std::size_t sizeWhenOpened)
        : content_(std::move(content)), size_(sizeWhenOpened) {}
    std::uint64_t size() const override { return size_; }
    Result<std::size_t> readAt(std::uint64_t offset, std::span<char> bytes) override {
        largestRead = std::max(largestRead, bytes.size());
        return offset < content_.size() ? content_.copy(bytes.data(), bytes.size(), offset) : std::size_t{0};
    }

    std::size_t largestRead = 0;

private:
    std::string content_;
    std::size_t size_;
};

TEST(LegacyFormat, FindsEveryFieldOfARecord) {
    const LegacyRecord record = ReadLegacyRecord(
        legacyRecord({"LR", 3, "HELLO\x1f", "RL", 4, std::string(23, '\x01') + '\xff', "Width=9 A.BMP"}));
    EXPECT_EQ(record.prefixKeyword, "LR");
    EXPECT_EQ(record.delay, 3);
    EXPECT_EQ(record.text, "HELLO\x1f");
    EXPECT_EQ(record.suffixKeyword, "RL");
    EXPECT_EQ(record.fontCode, 4);
    EXPECT_EQ(record.lineFlags.front(), 1);
    EXPECT_EQ(record.lineFlags.back(), 255);
    EXPECT_EQ(record.specification, "Width=9 A.BMP");
}

TEST(LegacyFormat, CutsTextsAtTheEndOfTheirField) {
    struct Case {
        std::string LegacyRecord::*member;
        std::size_t place, room;
    };
    const Case cases[] = {
        {&LegacyRecord::prefixKeyword, 2, 20},
        {&LegacyRecord::text, 292, 255},
        {&LegacyRecord::suffixKeyword, 804, 20},
        {&LegacyRecord::specification, 1044, 79},
    };
    for (const Case& row : cases)
        for (std::size_t length = 0; length <= 255; ++length) {
            std::string bytes = legacyRecord({});
            bytes[row.place] = static_cast<char>(length);
            const std::string held = std::string(row.room - 1, 'a') + 'z';
            bytes.replace(row.place + 1, row.room, held);
            EXPECT_EQ(ReadLegacyRecord(bytes).*row.member, held.substr(0, length)) << row.place;
        }
}

TEST(LegacyFormat, ReadsDelaysOfBothSigns) {
    using Limits = std::numeric_limits<std::int32_t>;
    for (const std::int32_t delay : {0, 1, -1, 0x01020304, -40000, Limits::max(), Limits::min()})
        EXPECT_EQ(ReadLegacyRecord(legacyRecord({.delay = delay})).delay, delay);
}

TEST(LegacyFormat, HasFiveFontsAndTakesAnyOtherForTheFirst) {
    const std::vector<std::int16_t> fonts{0, 6, 3, 8, 10};
    for (std::size_t code = 0; code <= 255; ++code)
        EXPECT_EQ(FontOfLegacyCode(static_cast<std::uint8_t>(code)), code < fonts.size() ? fonts[code] : 0)
            << code;
}

TEST(LegacyFormat, TellsTheWidthFromTheFileName) {
    struct Case {
        const char *why, *specification, *fileName;
        std::optional<std::string_view> width;
    };
    const Case cases[] = {
        {"no width", "C:\\My Signs\\A.BMP", "C:\\My Signs\\A.BMP", std::nullopt},
        {"nothing at all", "", "", std::nullopt},
        {"blanks around", "  A.BMP ", "A.BMP", std::nullopt},
        {"in front", "Width=128 C:\\A.BMP", "C:\\A.BMP", "128"},
        {"in the middle", "C:\\My Width=12 Signs\\A.BMP", "C:\\My Signs\\A.BMP", "12"},
        {"at the end", "A.BMP Width=7", "A.BMP", "7"},
        {"alone", "Width=5", "", "5"},
        {"without its number", "Width= A.BMP", "A.BMP", ""},
        {"last, without its number", "A.BMP Width=", "A.BMP", ""},
        {"letters for a number", "Width=x9 A.BMP", "A.BMP", "x9"},
        {"a unit behind the number", "Width=9px A.BMP", "A.BMP", "9px"},
        {"decimals", "Width=15.6 A.BMP", "A.BMP", "15.6"},
        {"more than one blank", "Width=5   A.BMP", "A.BMP", "5"},
        {"beyond what a frame holds", "Width=-32769 A.BMP", "A.BMP", "-32769"},
        {"spelt otherwise it belongs to the name", "WIDTH=5 A.BMP", "WIDTH=5 A.BMP", std::nullopt},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.why);
        const LegacySpecification split = SplitLegacySpecification(row.specification);
        EXPECT_EQ(split.fileName, row.fileName);
        EXPECT_EQ(split.width, row.width);
    }
}

TEST(LegacyFormat, ReadsNoMoreThanItUsesAndStopsWhereAShrunkFileEnds) {
    const std::string whole = legacyPlayfile({{.text = "A"}, {.text = "B"}});
    ShrunkFile file(whole.substr(0, 11 + 18704 + 1123), whole.size());
    const auto records = ReadLegacyRecords(file, 100);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].text, "A");
    EXPECT_LE(file.largestRead, kLegacyUsedSize);
}

} // namespace
} // namespace qrtVistrelClasses4
