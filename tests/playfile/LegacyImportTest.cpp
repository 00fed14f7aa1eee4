#include "LegacyBytes.h"
#include "TempFolder.h"
#include "TestHost.h"
#include "playfile/LegacyFormat.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/LoadPlayfile.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace qrtVistrelClasses4 {
namespace {

TEST(LegacyFormat, CutsTextsAtTheEndOfTheirField) {
    const std::string held = std::string(78, 'a') + 'z';
    for (const std::size_t length : {0, 78, 79, 255}) {
        std::string bytes = legacyRecord({});
        bytes.replace(1044, held.size() + 1, static_cast<char>(length) + held);
        EXPECT_EQ(ReadLegacyRecord(bytes).reference, held.substr(0, length));
    }
}

struct LegacyImport : testing::Test {
    MemoryFileSystem& files() { return host_.machine.files(); }
    MemoryMessageBoxes& boxes() { return host_.machine.messageBoxes(); }
    LoadOutcome load(const std::string& bytes, const LoadCircumstances& circumstances = {}) {
        files().put(path_, bytes);
        return LoadPlayfile(path_, circumstances);
    }
    /// What a record becomes: kind, delay, effects, width, overlay, files; then each line with its font and
    /// the letters of its flags; then what is lost.
    std::string frameOf(const LegacyFields& fields) {
        const LoadOutcome outcome = load(legacyPlayfile({fields}));
        const FrameRecord& frame = outcome.playfile.frames.at(1);
        std::string text = std::to_string(frame.FrameType) + " " + std::to_string(int(frame.DelayTime)) +
                           "s " + std::to_string(frame.PrefixCode) + ">" + std::to_string(frame.SuffixCode) +
                           " w" + std::to_string(frame.FontWidth) + (IsOverlay(frame) ? " over " : " ") +
                           frame.PicturefileName + frame.commandfile;
        for (const LineRecord& line : frame.lines)
            text += "|" + line.CurrentLineText + "|" + std::to_string(line.LineFontSize) +
                    (line.Scrolling ? "s" : "") + (line.Blinking ? "b" : "") + (line.Inverse ? "i" : "");
        for (const LegacyLoss& loss : outcome.legacy->losses)
            text += " -" + loss.text;
        EXPECT_EQ(outcome.isComplete, outcome.legacy->refusedNumbers.empty());
        return text;
    }

    TestHost host_;
    std::string path_ = host_.inLibrary("old.PL2");
};

TEST_F(LegacyImport, MakesFramesOfRecords) {
    const struct {
        const char* why;
        LegacyFields fields;
        const char* frame;
    } cases[] = {
        // clang-format off
        {"every field", {"TW", -70000, "A\x1f  B {vbl 7} \x1f", "LP", 2, "\xf9\2\4", "Width=9 Q:\\Gone\\a.Bmp"},
         "3 -70000s 12005>20001 w9 Q:\\Gone\\a.Bmp|A|3s|B VBL007|3b||3i -width 9"},
        {"a command file", {.text = "A", .reference = "C:\\Set.cmd"}, "4 0s 0>0 w0 C:\\Set.cmd|A|0"},
        {"an animation with a text", {.text = "A", .reference = "A.AVI"}, "3 0s 0>0 w0 A.AVI|A|0"},
        {"another kind of file", {.reference = "A.TXT"}, "2 0s 0>0 w0 ||0 -file of unknown kind \"A.TXT\""},
        {"shorter than an ending", {.reference = "MP"}, "2 0s 0>0 w0 ||0 -file of unknown kind \"MP\""},
        {"a width in the middle", {.reference = "C:\\My Width=12 A.BMP"}, "1 0s 0>0 w12 C:\\My A.BMP||0 -width 12"},
        {"at the end", {.reference = "A.BMP Width=7"}, "1 0s 0>0 w7 A.BMP||0 -width 7"},
        {"without its number", {.reference = "Width= A.BMP"}, "1 0s 0>0 w0 A.BMP||0 -width "},
        {"decimals and a unit", {.reference = "Width=15.6px   A.BMP"}, "1 0s 0>0 w16 A.BMP||0 -width 15.6px"},
        {"spelt otherwise", {.reference = " WIDTH=5 A.BMP "}, "1 0s 0>0 w0 WIDTH=5 A.BMP||0"},
        {"the sign stays as it is", {.reference = "Width=4 C:\\Old\\leave.Cmd"}, "2 0s 0>0 w4 over ||0 -width 4"},
        {"another file ending so", {.reference = "SLEAVE.CMD"}, "4 0s 0>0 w0 SLEAVE.CMD||0"},
        {"blanks that a variable leaves", {.text = "{days} A\x1f{time}"}, "2 0s 0>0 w0 |A|0||h:m||0"},
        {"a variable joined too late", {.text = "{vbl\x1f\x37}", .suffix = "SC"}, "2 0s 0>0 w0 |{vbl 7}|0s"},
        {"a text that scrolls", {.text = " A \x1f\x1f B", .suffix = "Sc", .font = 4, .flags = {6}}, "2 0s 0>0 w0 |A    B|10sbi"},
        {"unknown keywords", {.prefix = "OT", .suffix = "lp"},
         "2 0s 0>0 w0 ||0 -unknown prefix keyword \"OT\" -unknown suffix keyword \"lp\""},
        {"a font that has changed its number", {.font = 1}, "2 0s 0>0 w0 ||6"},
        {"another one", {.font = 3}, "2 0s 0>0 w0 ||8"},
        {"an unknown font", {.font = 5}, "2 0s 0>0 w0 ||0"}, {"the last one", {.font = 255}, "2 0s 0>0 w0 ||0"},
        {"a loop too long", {.prefix = "12768", .text = "A"}, "2 0s 0>0 w0 |A|0"},
        {"a width too large", {.reference = "Width=32768 A.BMP"}, "1 0s 0>0 w0 A.BMP||0 -width 32768"},
        {"beyond any number", {.reference = "A.BMP Width=1e400"}, "1 0s 0>0 w0 A.BMP||0 -width 1e400"}};
    // clang-format on
    for (const auto& row : cases)
        EXPECT_EQ(frameOf(row.fields), row.frame) << row.why;
    const std::string manyLines = frameOf({.text = std::string(24, '\x1f'), .flags = std::string(24, '\7')});
    EXPECT_TRUE(manyLines.ends_with("||0sbi||0")) << "the first 24 lines have flags";
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{6, 6, 6})) << "the last three";
}

TEST_F(LegacyImport, ShowsTheOperatorOneErrorOfEachKindOfNumberThatIsTooLarge) {
    const LegacyFields bad{.prefix = "99999", .reference = "Width=99999 A.BMP"};
    for (const char* time : {"the first load", "the second load"}) {
        const LegacyDetails details = *load(legacyPlayfile(std::vector(50, bad))).legacy;
        EXPECT_EQ(details.refusedNumbers.size(), 100u);
        EXPECT_EQ(details.refusedNumbers.back(), (LegacyLoss{50, "width 99999"}));
        const auto isLoud = [](const ErrorReport& report) { return !report.error.isQuiet(); };
        EXPECT_EQ(std::ranges::count_if(host_.reports.all, isLoud), 2) << time;
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers(100, 6)) << "all of them are logged";
    }
}

TEST_F(LegacyImport, PlacesPicturesByTheSettingForTheirKind) {
    for (const std::string crop : {"", "BMPCrop", "AVICrop"}) {
        files().put(host_.inLibrary("VistrelLite.ini"), "[VistrelLite]\r\n" + crop + "=True\r\n");
        for (const std::string kind : {"BMP", "AVI", "CMD"}) {
            const Playfile playfile = load(legacyPlayfile({{.reference = "a." + kind}})).playfile;
            EXPECT_EQ(playfile.frames.at(1).PictureFileDisplay, crop == kind + "Crop" ? 1 : 0)
                << crop << kind;
            FrameInfoClass object;
            object.SetSuppressMessages(true);
            object.GetPlayfileFromDisk(path_);
            EXPECT_EQ(object.Value(), playfile);
        }
    }
    files().put(host_.inLibrary("VistrelLite.ini"), "[VistrelLite]\r\nDisplayHeight=1e9\r\n");
    EXPECT_EQ(load(legacyPlayfile({})).legacy->preferencesError.value().key, "DisplayHeight");
}

TEST_F(LegacyImport, AsksAfterConvertingWhetherToGoOn) {
    FrameInfoClass playfile;
    const auto open = [&](const std::string& bytes, MessageAnswer answer) {
        files().put(path_, bytes);
        boxes().answers = {answer};
        const bool isOpen = playfile.GetPlayfileFromDisk(path_);
        return std::pair<bool, int>(isOpen, playfile.TotalFrames());
    };
    EXPECT_EQ(open("PLWREV 1.40", MessageAnswer::yes), std::pair(false, 20)) << "asked all the same";
    EXPECT_EQ(open(legacyPlayfile({{}}), MessageAnswer::yes), std::pair(true, 1));
    EXPECT_EQ(open(legacyPlayfile({{}, {}}), MessageAnswer::no), std::pair(false, 2)) << "the frames stay";
    EXPECT_FALSE(playfile.GetPlayfileFromDisk(host_.inLibrary("missing.pl2")));
    ASSERT_EQ(boxes().shown.size(), 3u) << "nothing to ask the last time";
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{53});
    const Message& box = boxes().shown[0];
    EXPECT_EQ(box.title, "WARNING! Legacy File");
    EXPECT_EQ(box.text,
              "The file that was chosen is a legacy file from Vistrel 2000! I can open this file but "
              "you must be warned that you will not be able to save any changes in this format. You "
              "WILL be required to save as a Vistrel 3 playfile.\r\nDo you wish to proceed!");
    EXPECT_EQ(box.buttons, MessageButtons::yesNo);
    playfile.SetSuppressMessages(true);
    EXPECT_TRUE(playfile.GetPlayfileFromDisk(path_) && playfile.IsLegacy());
    EXPECT_EQ(boxes().shown.size(), 3u);
}

TEST_F(LegacyImport, ReadsOneFrameAboveTheLimitButNoMoreThanHaveNumbers) {
    const TempFolder folder;
    const std::string path = folder.file("many.PL2");
    std::ofstream(path) << "PLWREV 1.50";
    std::filesystem::resize_file(path, 11 + 18704 * std::uintmax_t{32768}); // most of it takes no room
    const auto machine = makePlatform();
    const ScopedPlatform machineScope(*machine);
    for (const auto& [allowed, kept] : {std::pair(-32768, 0), {-1, 0}, {1, 2}, {32767, 32767}}) {
        const LoadOutcome outcome = LoadPlayfile(
            path, {.cropping = [] { return Cropping(); }, .framesAllowed = std::int16_t(allowed)});
        EXPECT_EQ(std::tuple(outcome.framesRead, outcome.framesAnnounced, outcome.isComplete),
                  std::tuple(kept, 32768, false));
    }
    ASSERT_EQ(host_.reports.all.size(), 1u) << "the last time";
    EXPECT_EQ(host_.reports.all[0].error.description(),
              "Overflow: only the first 32767 of 32768 frames are kept");
}

TEST_F(LegacyImport, KeepsTheWholeRecordsOfAFileThatIsCutShort) {
    constexpr std::size_t mark = 11, record = 18704;
    const std::string whole = legacyPlayfile({{.reference = "A.BMP"}, {.text = "B"}});
    for (const std::size_t size :
         {std::size_t{0}, mark - 1, mark, mark + record - 1, mark + record, whole.size() - 1})
        EXPECT_EQ(load(whole.substr(0, size)).framesRead, size < mark ? 0 : (size - mark) / record) << size;
    const LegacyDetails details = *load(whole.substr(0, mark + record + 500)).legacy;
    EXPECT_EQ(std::tuple(details.records, details.bytesAfterRecords), std::tuple(1u, 500u));
    for (const std::string start : {"PLWREV 1.5", "plwrev 1.50", " PLWREV 1.50"}) {
        const LoadOutcome outcome = load(start + legacyRecord({}));
        EXPECT_TRUE(!outcome.legacy->hasMark && !outcome.isComplete && outcome.playfile.isLegacy) << start;
    }
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST(LegacyFormat, GoesByTheEndingOfTheName) {
    for (const char* name : {"a.PL2", "a.pl2", "pL2"})
        EXPECT_TRUE(HasLegacyEnding(name)) << name;
    for (const char* name : {"a.pl2.playfile", "x"})
        EXPECT_FALSE(HasLegacyEnding(name)) << name;
}

} // namespace
} // namespace qrtVistrelClasses4
