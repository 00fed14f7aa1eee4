#include "playfile/FrameInfoClass.h"

#include "LegacyBytes.h"
#include "PlayfileRecords.h"
#include "PlayfileText.h"
#include "TestHost.h"
#include "frame/modClassIDGenerator.h"
#include "playfile/LegacyFormat.h"

#include <gtest/gtest.h>

#include <random>

namespace qrtVistrelClasses4 {
namespace {

TEST(LegacyFormat, CutsTextsAtTheEndOfTheirField) {
    const struct {
        std::string LegacyRecord::*member;
        std::size_t place, room;
    } cases[] = {
        {&LegacyRecord::prefixKeyword, 2, 20},
        {&LegacyRecord::text, 292, 255},
        {&LegacyRecord::suffixKeyword, 804, 20},
        {&LegacyRecord::reference, 1044, 79},
    };
    for (const auto& row : cases)
        for (std::size_t length = 0; length <= 255; ++length) {
            std::string bytes = legacyRecord({});
            bytes[row.place] = static_cast<char>(length);
            const std::string held = std::string(row.room - 1, 'a') + 'z';
            bytes.replace(row.place + 1, row.room, held);
            EXPECT_EQ(ReadLegacyRecord(bytes).*row.member, held.substr(0, length)) << row.place;
        }
}

TEST(LegacyFormat, HasFiveFontsAndTakesAnyOtherForTheFirst) {
    const std::vector<std::int16_t> fonts{0, 6, 3, 8, 10};
    for (std::size_t code = 0; code <= 255; ++code)
        EXPECT_EQ(FontOfLegacyCode(static_cast<std::uint8_t>(code)), code < fonts.size() ? fonts[code] : 0)
            << code;
}

TEST(LegacyFormat, StopsWhereAFileEndsThatHasShrunkSinceItWasOpened) {
    struct ShrunkFile final : InputFile {
        std::string content = legacyPlayfile({{.text = "A"}, {.text = "B"}}).substr(0, 11 + 18704 + 1123);
        std::uint64_t size() const override { return 11 + 2 * 18704; }
        Result<std::size_t> readAt(std::uint64_t offset, std::span<char> bytes) override {
            return content.copy(bytes.data(), bytes.size(), static_cast<std::size_t>(offset));
        }
    } file;
    const auto records = ReadLegacyRecords(file, 100);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].text, "A");
}

class LegacyImport : public testing::Test {
protected:
    LegacyImport() { playfile_.TotalFramesAllowed(100); }
    MemoryFileSystem& files() { return host_.machine.files(); }
    MemoryMessageBoxes& boxes() { return host_.machine.messageBoxes(); }
    bool open(const std::string& path) {
        const bool result = playfile_.GetPlayfileFromDisk(path);
        EXPECT_TRUE(playfile_.IsLegacy());
        EXPECT_EQ(playfile_.CurrentFileName(), path);
        return result;
    }
    bool load(const std::string& bytes) {
        files().put(path_, bytes);
        return open(path_);
    }
    bool loadUnasked(const std::string& bytes) {
        playfile_.SetSuppressMessages(true);
        return load(bytes);
    }
    /// The frame that a record becomes.
    FrameRecord frameOf(const LegacyFields& fields) {
        EXPECT_TRUE(loadUnasked(legacyPlayfile({fields})));
        return recordsOf(playfile_).at(0);
    }

    TestHost host_;
    FrameInfoClass playfile_;
    std::string path_ = host_.inLibrary("old.PL2");
};

/// Kind, delay, effects, width, overlay, files; then each line with its font and the letters of its flags.
std::string summary(const FrameRecord& frame) {
    std::string text = std::to_string(frame.FrameType) + " " + std::to_string(int(frame.DelayTime)) + "s " +
                       std::to_string(frame.PrefixCode) + ">" + std::to_string(frame.SuffixCode) + " w" +
                       std::to_string(frame.FontWidth) + (frame.OverlayFrame == 1 ? " over " : " ") +
                       frame.PicturefileName + frame.commandfile;
    for (const LineRecord& line : frame.lines)
        text += "|" + line.CurrentLineText + "|" + std::to_string(line.LineFontSize) +
                (line.Scrolling ? "s" : "") + (line.Blinking ? "b" : "") + (line.Inverse ? "i" : "");
    return text;
}

TEST_F(LegacyImport, ConvertsEveryFieldAndLeavesTheRestAsInANewFrame) {
    playfile_.CurrentFrame(5);
    playfile_.CurrentLineNumber(3);
    FrameRecord expected = emptyFrame();
    expected.FrameType = 3;
    expected.PrefixCode = 12005;
    expected.SuffixCode = 20001;
    expected.DelayTime = -7;
    expected.PicturefileName = "Q:\\Gone\\a.Bmp";
    expected.FontWidth = 9;
    expected.lines.resize(2);
    expected.lines.at(1).CurrentLineText = "A";
    expected.lines.at(2).CurrentLineText = "B VBL007";
    expected.lines.at(1).LineFontSize = expected.lines.at(2).LineFontSize = 3;
    expected.lines.at(2).Blinking = true;
    const std::int32_t lastId = LastClassDebugID();
    const FrameRecord frame =
        frameOf({"TW", -7, "A\x1f  B {vbl 7} ", "LP", 2, {0, 2}, "Width=9 Q:\\Gone\\a.Bmp"});
    EXPECT_EQ(frame, expected) << summary(frame);
    EXPECT_EQ(LastClassDebugID(), lastId + 1) << "of the settings that are asked how to place pictures";
    EXPECT_EQ(playfile_.CurrentFrame(), 5);
    EXPECT_EQ(playfile_.CurrentLineNumber(), 3);
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(LegacyImport, MakesFramesOfRecords) {
    const struct {
        const char* why;
        LegacyFields fields;
        const char* frame;
    } cases[] = {
        {"no file, no text", {}, "2 0s 0>0 w0 ||0"},
        {"a command file", {.reference = "C:\\Set.cmd"}, "4 0s 0>0 w0 C:\\Set.cmd||0"},
        {"with a text", {.text = "A", .reference = "C:\\SET.CMD"}, "4 0s 0>0 w0 C:\\SET.CMD|A|0"},
        {"a picture", {.reference = "A.bmp"}, "1 0s 0>0 w0 A.bmp||0"},
        {"a picture with a text", {.text = "A", .reference = "A.BMP"}, "3 0s 0>0 w0 A.BMP|A|0"},
        {"an animation with a text", {.text = "A", .reference = "A.AVI"}, "3 0s 0>0 w0 A.AVI|A|0"},
        {"only a width", {.text = "A", .reference = "Width=4"}, "2 0s 0>0 w4 |A|0"},
        {"a width in the middle", {.reference = "C:\\My Width=12 A.BMP"}, "1 0s 0>0 w12 C:\\My A.BMP||0"},
        {"at the end", {.reference = "A.BMP Width=7"}, "1 0s 0>0 w7 A.BMP||0"},
        {"without its number", {.reference = "Width= A.BMP"}, "1 0s 0>0 w0 A.BMP||0"},
        {"last, without its number", {.reference = "A.BMP Width="}, "1 0s 0>0 w0 A.BMP||0"},
        {"letters for a number", {.reference = "Width=x9 A.BMP"}, "1 0s 0>0 w0 A.BMP||0"},
        {"a unit behind the number", {.reference = "Width=9px A.BMP"}, "1 0s 0>0 w9 A.BMP||0"},
        {"decimals", {.reference = "Width=15.6   A.BMP"}, "1 0s 0>0 w16 A.BMP||0"},
        {"the smallest", {.reference = "Width=-32768 A.BMP"}, "1 0s 0>0 w-32768 A.BMP||0"},
        {"spelt otherwise", {.reference = " WIDTH=5 A.BMP "}, "1 0s 0>0 w0 WIDTH=5 A.BMP||0"},
        {"the sign stays as it is", {.reference = "Width=4 C:\\Old\\leave.Cmd"}, "2 0s 0>0 w4 over ||0"},
        {"another file ending so", {.reference = "SLEAVE.CMD"}, "4 0s 0>0 w0 SLEAVE.CMD||0"},
        {"another kind of file", {.text = "A", .reference = "A.TXT"}, "2 0s 0>0 w0 |A|0"},
        {"shorter than an ending", {.text = "A", .reference = "MP"}, "2 0s 0>0 w0 |A|0"},
        {"blanks that a variable leaves", {.text = "{days} A\x1f{time}"}, "2 0s 0>0 w0 |A|0||h:m||0"},
        {"a variable joined too late", {.text = "{vbl\x1f\x37}", .suffix = "SC"}, "2 0s 0>0 w0 |{vbl 7}|0s"},
        {"empty lines", {.text = "\x1f"}, "2 0s 0>0 w0 ||0||0"},
        {"lines of a text that scrolls",
         {.text = " A \x1f\x1f B", .suffix = "Sc", .font = 4, .flags = {6}},
         "2 0s 0>0 w0 |A  B|10sbi"},
        {"as appear effect it is none", {.prefix = "SC"}, "2 0s 0>0 w0 ||0"},
        {"a loop, only in front", {.prefix = "5", .suffix = "5"}, "2 0s 20005>0 w0 ||0"},
        {"keywords are compared exactly", {.prefix = "lr", .suffix = "lp"}, "2 0s 0>0 w0 ||0"},
        {"the longest loop", {.prefix = "12767"}, "2 0s 32767>0 w0 ||0"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(summary(frameOf(row.fields)), row.frame) << row.why;
    EXPECT_TRUE(host_.reports.all.empty());
    EXPECT_EQ(summary(frameOf({.prefix = "12768", .text = "A"})), "2 0s 0>0 w0 |A|0") << "too long";
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
    for (const char* tooWide : {"Width=32768 A.BMP", "Width=-32769 A.BMP", "A.BMP Width=1e400"}) {
        EXPECT_EQ(summary(frameOf({.reference = tooWide})), "1 0s 0>0 w0 A.BMP||0") << tooWide;
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6}) << "costs nothing but the width";
    }
}

TEST_F(LegacyImport, PlacesPicturesByTheSettingForTheirKind) {
    const auto expectPlaces = [&](const std::string& settings, int bitmap, int animation) {
        files().put(host_.inLibrary("VistrelLite.ini"), "[VistrelLite]\r\n" + settings);
        EXPECT_EQ(frameOf({.reference = "a.bmp"}).PictureFileDisplay, bitmap) << settings;
        EXPECT_EQ(frameOf({.reference = "a.avi"}).PictureFileDisplay, animation) << settings;
        EXPECT_EQ(frameOf({.reference = "a.cmd"}).PictureFileDisplay, 0) << settings;
    };
    expectPlaces("", 0, 0);
    expectPlaces("BMPCrop=True\r\n", 1, 0);
    expectPlaces("AVICrop=True\r\n", 0, 1);
}

TEST_F(LegacyImport, SetsTheFlagsOfTheFirst24Lines) {
    std::string flags;
    for (int line = 1; line <= 24; ++line)
        flags += static_cast<char>(0xf8 + 1 + line % 7);
    int number = 0;
    for (const LineRecord& line : frameOf({.text = std::string(29, '\x1f'), .flags = flags}).lines) {
        const int bits = ++number <= 24 ? 1 + number % 7 : 0;
        EXPECT_EQ(line.Scrolling + 2 * line.Blinking + 4 * line.Inverse, bits) << number;
    }
    EXPECT_EQ(number, 30);
}

TEST_F(LegacyImport, AsksAfterConvertingWhetherToGoOn) {
    boxes().answers = {MessageAnswer::yes, MessageAnswer::no, MessageAnswer::yes};
    EXPECT_TRUE(load(legacyPlayfile({{.text = "A"}})));
    ASSERT_EQ(boxes().shown.size(), 1u);
    const Message& box = boxes().shown[0];
    EXPECT_EQ(box.title, "WARNING! Legacy File");
    EXPECT_EQ(box.text,
              "The file that was chosen is a legacy file from Vistrel 2000! I can open this file but "
              "you must be warned that you will not be able to save any changes in this format. You "
              "WILL be required to save as a Vistrel 3 playfile.\r\nDo you wish to proceed!");
    EXPECT_EQ(box.icon, MessageIcon::question);
    EXPECT_EQ(box.buttons, MessageButtons::yesNo);
    EXPECT_FALSE(load(legacyPlayfile({{.text = "B"}, {.text = "C"}})));
    EXPECT_EQ(playfile_.TotalFrames(), 2) << "the frames stay all the same";
    EXPECT_TRUE(load(legacyPlayfile({}))) << "only the mark";
    EXPECT_EQ(playfile_.TotalFrames(), 0);
    EXPECT_EQ(boxes().shown.size(), 3u);
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(LegacyImport, ReadsNothingFromAFileWithoutTheMark) {
    const std::string record = legacyRecord({});
    for (const std::string start : {"", "PLWREV 1.5", "PLWREV 1.40", "plwrev 1.50", " PLWREV 1.50"}) {
        SCOPED_TRACE(start);
        boxes().shown.clear();
        boxes().answers = {MessageAnswer::yes};
        EXPECT_FALSE(load(start + (start.size() < 11 ? "" : record)));
        EXPECT_EQ(boxes().shown.size(), 1u) << "asked all the same";
        EXPECT_FALSE(loadUnasked(start));
        playfile_.SetSuppressMessages(false);
    }
    EXPECT_EQ(playfile_.TotalFrames(), 20) << "the frames stay";
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(LegacyImport, AFileThatCannotBeReadLeavesTheFramesAndAsksNothing) {
    ASSERT_EQ(frameOf({.text = "A"}).lines.upperBound(), 1);
    playfile_.SetSuppressMessages(false);
    EXPECT_FALSE(open(host_.inLibrary("missing.pl2")));
    EXPECT_FALSE(open(JoinPath(host_.inLibrary("nowhere"), "a.PL2")));
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{53, 76}));
    for (int failing = 1; failing <= 4; ++failing) { // opening, the mark, two records
        files().put(path_, legacyPlayfile({{.text = "B"}, {.text = "C"}}));
        host_.failReads(failing, failing, SystemError::deviceFailure);
        EXPECT_FALSE(open(path_));
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers{57}) << failing;
    }
    files().observer = nullptr;
    EXPECT_TRUE(boxes().shown.empty());
    EXPECT_EQ(playfile_.TotalFrames(), 1);
    EXPECT_EQ(summary(recordsOf(playfile_).at(0)), "2 0s 0>0 w0 |A|0");
}

TEST_F(LegacyImport, KeepsTheWholeRecordsOfAFileCutShortAnywhereAndOneMoreThanAllowed) {
    const std::string whole = legacyPlayfile({{.text = "A"}, {.text = "B"}});
    for (std::size_t size = 0; size < whole.size(); size += 97) {
        playfile_.TotalFrames(20);
        EXPECT_EQ(loadUnasked(whole.substr(0, size)), size >= 11) << size;
        EXPECT_EQ(playfile_.TotalFrames(), size < 11 ? 20 : size < 11 + 18704 ? 0 : 1) << size;
    }
    for (const auto& [allowed, kept] : {std::pair(-32768, 0), {-1, 0}, {0, 1}, {1, 2}, {32767, 2}}) {
        playfile_.TotalFramesAllowed(static_cast<std::int16_t>(allowed));
        EXPECT_TRUE(load(whole));
        EXPECT_EQ(playfile_.TotalFrames(), kept) << allowed;
    }
}

TEST_F(LegacyImport, GoesByTheEndingOfTheName) {
    playfile_.SetSuppressMessages(true);
    for (const char* name : {"a.PL2", "a.pl2", "pL2"}) {
        files().put(host_.inLibrary(name), legacyPlayfile({{}}));
        EXPECT_TRUE(open(host_.inLibrary(name)));
    }
    const std::string now = host_.inLibrary("a.pl2.playfile");
    files().put(now, playfileText(onePlayfileFrame()));
    EXPECT_TRUE(playfile_.GetPlayfileFromDisk(now));
    EXPECT_FALSE(playfile_.IsLegacy());
    EXPECT_FALSE(playfile_.GetPlayfileFromDisk("")) << "a name shorter than the ending";
}

TEST_F(LegacyImport, SurvivesDamage) {
    const LegacyFields fields{"12767", 9, "{vbl 7}\x1f{time}", "SC", 4, {1}, "Width=32767 C:\\LEAVE.CMD"};
    const std::string whole = legacyPlayfile({fields, fields});
    std::mt19937 random(150);
    const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
    for (int round = 0; round < 10'000; ++round) {
        std::string bytes = whole;
        for (std::size_t count = below(60); count-- > 0;) // mostly where the fields are
            bytes[below(8) == 0 ? below(whole.size()) : 11 + 18704 * below(2) + below(1124)] =
                static_cast<char>(below(256));
        if (below(4) == 0)
            bytes.resize(below(whole.size()));
        const bool isLoaded = loadUnasked(bytes);
        ASSERT_EQ(isLoaded, bytes.starts_with("PLWREV 1.50")) << round;
        for (const int number : host_.reports.takeNumbers())
            ASSERT_EQ(number, 6) << "a loop or a width too large";
        for (std::int16_t frame = isLoaded ? playfile_.TotalFrames() : std::int16_t{0}; frame > 0; --frame) {
            playfile_.CurrentFrame(frame);
            playfile_.CurrentLineNumber(playfile_.TotalLinesAllowed());
            ASSERT_GE(playfile_.CurrentLineNumber(), 1) << round;
            ASSERT_LE(playfile_.LineFontSize(), 10) << round;
        }
    }
}

} // namespace
} // namespace qrtVistrelClasses4
