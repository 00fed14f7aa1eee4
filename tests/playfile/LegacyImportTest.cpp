#include "LegacyBytes.h"
#include "TestHost.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/LegacyFormat.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

TEST(LegacyFormat, CutsTextsAtTheEndOfTheirField) {
    using R = LegacyRecord;
    for (const auto& [member, place, room] : {std::tuple(&R::prefixKeyword, 2, 20),
                                              {&R::text, 292, 255},
                                              {&R::suffixKeyword, 804, 20},
                                              {&R::reference, 1044, 79}})
        for (const int length : {0, room - 1, room, 255}) {
            const std::string held = std::string(std::size_t(room - 1), 'a') + 'z';
            std::string bytes = legacyRecord({});
            bytes.replace(std::size_t(place), held.size() + 1, static_cast<char>(length) + held);
            EXPECT_EQ(ReadLegacyRecord(bytes).*member, held.substr(0, std::size_t(length))) << place;
        }
}

struct LegacyImport : testing::Test {
    LegacyImport() { playfile_.SetSuppressMessages(true); }
    MemoryFileSystem& files() { return host_.machine.files(); }
    MemoryMessageBoxes& boxes() { return host_.machine.messageBoxes(); }
    bool load(const std::string& bytes) {
        files().put(path_, bytes);
        return playfile_.GetPlayfileFromDisk(path_);
    }
    /// What a record becomes: kind, delay, effects, width, overlay, files; then each line with its font and
    /// the letters of its flags.
    std::string frameOf(const LegacyFields& fields) {
        EXPECT_TRUE(load(legacyPlayfile({fields})));
        FrameInfoClass& p = playfile_;
        p.CurrentFrame(1);
        std::string text = std::to_string(int(p.FrameType())) + " " + std::to_string(int(p.DelayTime())) +
                           "s " + std::to_string(p.PrefixCode()) + ">" + std::to_string(p.SuffixCode()) +
                           " w" + std::to_string(p.FontWidth()) + (p.OverlayFrame() ? " over " : " ") +
                           p.PicturefileName() + p.commandfile();
        for (std::int16_t line = 1; line <= p.TotalLinesAllowed(); ++line) {
            p.CurrentLineNumber(line);
            text += "|" + p.CurrentLineText() + "|" + std::to_string(p.LineFontSize()) +
                    (p.Scrolling() ? "s" : "") + (p.Blinking() ? "b" : "") + (p.Inverse() ? "i" : "");
        }
        return text;
    }

    TestHost host_;
    FrameInfoClass playfile_;
    std::string path_ = host_.inLibrary("old.PL2");
};

TEST_F(LegacyImport, MakesFramesOfRecords) {
    const struct {
        const char* why;
        LegacyFields fields;
        const char* frame;
    } cases[] = {
        {"every field",
         {"TW", -70000, "A\x1f  B {vbl 7} \x1f", "LP", 2, "\xf9\2\4", "Width=9 Q:\\Gone\\a.Bmp"},
         "3 -70000s 12005>20001 w9 Q:\\Gone\\a.Bmp|A|3s|B VBL007|3b||3i"},
        {"a command file", {.text = "A", .reference = "C:\\Set.cmd"}, "4 0s 0>0 w0 C:\\Set.cmd|A|0"},
        {"an animation with a text", {.text = "A", .reference = "A.AVI"}, "3 0s 0>0 w0 A.AVI|A|0"},
        {"another kind of file", {.text = "A", .reference = "A.TXT"}, "2 0s 0>0 w0 |A|0"},
        {"shorter than an ending", {.text = "A", .reference = "MP"}, "2 0s 0>0 w0 |A|0"},
        {"a width in the middle", {.reference = "C:\\My Width=12 A.BMP"}, "1 0s 0>0 w12 C:\\My A.BMP||0"},
        {"at the end", {.reference = "A.BMP Width=7"}, "1 0s 0>0 w7 A.BMP||0"},
        {"without its number", {.reference = "Width= A.BMP"}, "1 0s 0>0 w0 A.BMP||0"},
        {"decimals and a unit", {.reference = "Width=15.6px   A.BMP"}, "1 0s 0>0 w16 A.BMP||0"},
        {"spelt otherwise", {.reference = " WIDTH=5 A.BMP "}, "1 0s 0>0 w0 WIDTH=5 A.BMP||0"},
        {"the sign stays as it is", {.reference = "Width=4 C:\\Old\\leave.Cmd"}, "2 0s 0>0 w4 over ||0"},
        {"another file ending so", {.reference = "SLEAVE.CMD"}, "4 0s 0>0 w0 SLEAVE.CMD||0"},
        {"blanks that a variable leaves", {.text = "{days} A\x1f{time}"}, "2 0s 0>0 w0 |A|0||h:m||0"},
        {"a variable joined too late", {.text = "{vbl\x1f\x37}", .suffix = "SC"}, "2 0s 0>0 w0 |{vbl 7}|0s"},
        {"lines of a text that scrolls",
         {.text = " A \x1f\x1f B", .suffix = "Sc", .font = 4, .flags = {6}},
         "2 0s 0>0 w0 |A  B|10sbi"},
        {"a font that has changed its number", {.font = 1}, "2 0s 0>0 w0 ||6"},
        {"another one", {.font = 3}, "2 0s 0>0 w0 ||8"},
        {"an unknown font", {.font = 5}, "2 0s 0>0 w0 ||0"},
        {"the last that a byte can name", {.font = 255}, "2 0s 0>0 w0 ||0"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(frameOf(row.fields), row.frame) << row.why;
    const std::string manyLines = frameOf({.text = std::string(24, '\x1f'), .flags = std::string(24, '\7')});
    EXPECT_TRUE(manyLines.ends_with("||0sbi||0")) << "the first 24 lines have flags";
    EXPECT_TRUE(host_.reports.all.empty());
    EXPECT_EQ(frameOf({.prefix = "12768", .text = "A"}), "2 0s 0>0 w0 |A|0") << "a loop too long";
    for (const char* tooWide : {"Width=32768 A.BMP", "A.BMP Width=1e400"})
        EXPECT_EQ(frameOf({.reference = tooWide}), "1 0s 0>0 w0 A.BMP||0") << "costs nothing but the width";
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{6, 6, 6}));
}

TEST_F(LegacyImport, TellsTheOperatorOnceOfEachKindOfNumberThatIsTooLarge) {
    const LegacyFields bad{.prefix = "99999", .reference = "Width=99999 A.BMP"};
    for (const char* time : {"the first load", "the second load"}) {
        EXPECT_TRUE(load(legacyPlayfile(std::vector(50, bad))));
        const auto isLoud = [](const ErrorReport& report) { return !report.error.isQuiet(); };
        EXPECT_EQ(std::ranges::count_if(host_.reports.all, isLoud), 2) << time;
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers(100, 6)) << "all of them are logged";
    }
}

TEST_F(LegacyImport, PlacesPicturesByTheSettingForTheirKind) {
    for (const std::string crop : {"", "BMPCrop", "AVICrop"}) {
        files().put(host_.inLibrary("VistrelLite.ini"), "[VistrelLite]\r\n" + crop + "=True\r\n");
        for (const std::string kind : {"BMP", "AVI", "CMD"}) {
            frameOf({.reference = "a." + kind});
            EXPECT_EQ(playfile_.PictureFileDisplay(), crop == kind + "Crop" ? 1 : 0) << crop << kind;
        }
    }
}

TEST_F(LegacyImport, AsksAfterConvertingWhetherToGoOn) {
    playfile_.SetSuppressMessages(false);
    boxes().answers = {MessageAnswer::yes, MessageAnswer::no, MessageAnswer::yes};
    EXPECT_TRUE(load(legacyPlayfile({}))) << "only the mark";
    EXPECT_EQ(playfile_.TotalFrames(), 0);
    EXPECT_FALSE(load(legacyPlayfile({{.text = "B"}, {.text = "C"}})));
    EXPECT_EQ(playfile_.TotalFrames(), 2) << "the frames stay all the same";
    EXPECT_FALSE(load("PLWREV 1.40")) << "asked all the same";
    ASSERT_EQ(boxes().shown.size(), 3u);
    const Message& box = boxes().shown[0];
    EXPECT_EQ(box.title, "WARNING! Legacy File");
    EXPECT_EQ(box.text,
              "The file that was chosen is a legacy file from Vistrel 2000! I can open this file but "
              "you must be warned that you will not be able to save any changes in this format. You "
              "WILL be required to save as a Vistrel 3 playfile.\r\nDo you wish to proceed!");
    EXPECT_EQ(box.buttons, MessageButtons::yesNo);
    EXPECT_FALSE(playfile_.GetPlayfileFromDisk(host_.inLibrary("missing.pl2")));
    EXPECT_EQ(boxes().shown.size(), 3u) << "nothing to ask";
    EXPECT_EQ(playfile_.TotalFrames(), 2);
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{53});
}

TEST_F(LegacyImport, ReadsNothingFromAFileWithoutTheMarkAndOneFrameMoreThanAllowed) {
    for (const std::string start : {"", "PLWREV 1.5", "plwrev 1.50", " PLWREV 1.50"})
        EXPECT_FALSE(load(start + (start.size() < 11 ? "" : legacyRecord({})))) << start;
    EXPECT_EQ(playfile_.TotalFrames(), 20) << "the frames stay";
    for (const auto& [allowed, kept] : {std::pair(-32768, 0), {-1, 0}, {0, 1}, {1, 2}, {32767, 2}}) {
        playfile_.TotalFramesAllowed(static_cast<std::int16_t>(allowed));
        EXPECT_TRUE(load(legacyPlayfile({{.text = "A"}, {.text = "B"}})));
        EXPECT_EQ(playfile_.TotalFrames(), kept) << allowed;
    }
}

TEST_F(LegacyImport, KeepsTheWholeRecordsOfAFileThatIsCutShort) {
    constexpr std::size_t mark = 11, record = 18704, used = 1124; // nothing behind those bytes is looked at
    const std::string whole = legacyPlayfile({{.reference = "A.BMP"}, {.text = "B"}});
    for (const std::size_t before : {std::size_t{0}, record, 2 * record})
        for (std::size_t size = before; size <= std::min(before + mark + used, whole.size()); ++size) {
            playfile_.TotalFrames(0);
            EXPECT_EQ(load(whole.substr(0, size)), size >= mark) << size;
            EXPECT_EQ(playfile_.TotalFrames(), size < mark ? 0 : (size - mark) / record) << size;
            playfile_.CurrentFrame(1);
            EXPECT_TRUE(playfile_.TotalFrames() == 0 || playfile_.PicturefileName() == "A.BMP") << size;
        }
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(LegacyImport, GoesByTheEndingOfTheName) {
    for (const auto& [name, isLegacy] : {std::pair("a.PL2", true),
                                         {"a.pl2", true},
                                         {"pL2", true},
                                         {"a.pl2.playfile", false},
                                         {"x", false}}) {
        files().put(host_.inLibrary(name), isLegacy ? legacyPlayfile({{}}) : " 1 \r\n");
        EXPECT_EQ(playfile_.GetPlayfileFromDisk(host_.inLibrary(name)), isLegacy);
        EXPECT_EQ(playfile_.IsLegacy(), isLegacy) << name;
    }
}

} // namespace
} // namespace qrtVistrelClasses4
