#include "LegacyBytes.h"
#include "TempFolder.h"
#include "TestHost.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/LoadPlayfile.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace qrtVistrelClasses4 {
namespace {

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
        EXPECT_EQ(outcome.isComplete, outcome.legacy->losses.empty());
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
         "3 -70000s 12005>20001 w9 Q:\\Gone\\a.Bmp|A|3s|B VBL007|3b||3i -width 9 -unknown flag bits F8 of line 1"},
        {"a command file", {.text = "A", .reference = "C:\\Set.cmd"}, "4 0s 0>0 w0 C:\\Set.cmd|A|0"},
        {"an animation with a text", {.text = "A", .reference = "A.AVI"}, "3 0s 0>0 w0 A.AVI|A|0"},
        {"another kind of file", {.reference = "A.TXT"}, "2 0s 0>0 w0 ||0 -file of unknown kind \"A.TXT\""},
        {"shorter than an ending", {.reference = "MP"}, "2 0s 0>0 w0 ||0 -file of unknown kind \"MP\""},
        {"a width in the middle", {.reference = "C:\\My Width=12 A.BMP"}, "1 0s 0>0 w12 C:\\My A.BMP||0 -width 12"},
        {"without its number", {.reference = "Width= A.BMP"}, "1 0s 0>0 w0 A.BMP||0"},
        {"decimals and a unit", {.reference = "Width=15.6px   A.BMP"}, "1 0s 0>0 w16 A.BMP||0 -width 15.6px"},
        {"spelt otherwise", {.reference = " WIDTH=5 A.BMP "}, "1 0s 0>0 w0 WIDTH=5 A.BMP||0"},
        {"the sign stays as it is", {.reference = "Width=4 C:\\Old\\leave.Cmd"}, "2 0s 0>0 w4 over ||0 -width 4"},
        {"another file ending so", {.reference = "SLEAVE.CMD"}, "4 0s 0>0 w0 SLEAVE.CMD||0"},
        {"a counter", {.text = "{tdays} days without accident\x1f{time}"},
         "2 0s 0>0 w0 |days without accident|0||h:m||0 -placeholder \"{tdays}\", which has no code"},
        {"a variable joined too late", {.text = "{vbl\x1f\x37}", .suffix = "SC"},
         "2 0s 0>0 w0 |{vbl 7}|0s -placeholder \"{vbl\x1f\x37}\", which stays as text"},
        {"a text that scrolls", {.text = " A \x1f\x1f B", .suffix = "Sc", .font = 4, .flags = "\6\7\x0c"},
         "2 0s 0>0 w0 |A    B|10sbi -unknown flag bits 08 of line 3 -flags 0C of line 3, which is joined to line 1 with flags 06"},
        {"flags of lines that are not there", {.text = "A", .flags = {0, '\xff'}}, "2 0s 0>0 w0 |A|0"},
        {"unknown keywords", {.prefix = "LP", .suffix = "YY"},
         "2 0s 0>0 w0 ||0 -unknown prefix keyword \"LP\" -unknown suffix keyword \"YY\""},
        {"other ones", {.prefix = "7X", .suffix = "7"},
         "2 0s 0>0 w0 ||0 -unknown prefix keyword \"7X\" -unknown suffix keyword \"7\""},
        {"no effect", {.prefix = "OT", .suffix = "OT", .reference = "Width=0"}, "2 0s 0>0 w0 ||0"}, {"no round", {.prefix = "-3", .suffix = "0"}, "2 0s 0>0 w0 ||0"},
        {"revealing", {.prefix = "RM", .suffix = "RM"}, "2 0s 5>5 w0 ||0"},
        {"the longest loop", {.prefix = "12767"}, "2 0s 32767>0 w0 ||0"},
        {"a font with another number", {.font = 1}, "2 0s 0>0 w0 ||6"}, {"another one", {.font = 3}, "2 0s 0>0 w0 ||8"},
        {"an unknown font", {.font = 5}, "2 0s 0>0 w0 ||0 -unknown font code 5"},
        {"a loop too long", {.prefix = "12768"}, "2 0s 0>0 w0 ||0 -prefix keyword \"12768\", which is too large"},
        {"a width too large", {.reference = "Width=32768 A.BMP"}, "1 0s 0>0 w0 A.BMP||0 -width 32768, which is too large"},
        {"cut at the end of the field", {.reference = std::string(74, ' ') + "A.BMPX"}, "1 0s 0>0 w0 A.BMP||0"}};
    // clang-format on
    for (const auto& row : cases)
        EXPECT_EQ(frameOf(row.fields), row.frame) << row.why;
    const std::string manyLines = frameOf({.text = std::string(24, '\x1f'), .flags = std::string(24, '\7')});
    EXPECT_TRUE(manyLines.ends_with("||0sbi||0")) << "the first 24 lines have flags";
    EXPECT_EQ(host_.reports.takeNumbers(), (Numbers{6, 6})) << "those too large";
}

TEST_F(LegacyImport, ShowsTheOperatorOneErrorOfEachKindOfNumberThatIsTooLarge) {
    const LegacyFields bad{.prefix = "99999", .reference = "Width=99999 A.BMP"};
    for (const char* time : {"the first load", "the second load"}) {
        const LegacyDetails details = *load(legacyPlayfile(std::vector(50, bad))).legacy;
        EXPECT_EQ(details.losses.size(), 100u);
        EXPECT_EQ(details.losses.back(), (LegacyLoss{50, "width 99999, which is too large"}));
        EXPECT_EQ(host_.reports.all.back().error.description(), "Overflow in frame 50");
        const auto isLoud = [](const ErrorReport& report) { return !report.error.isQuiet(); };
        EXPECT_EQ(std::ranges::count_if(host_.reports.all, isLoud), 2) << time;
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers(100, 6)) << "all of them are logged";
    }
}

TEST_F(LegacyImport, PlacesPicturesByTheSettingForTheirKind) {
    for (const std::string crop : {"", "BMPCrop", "AVICrop"}) {
        files().put(host_.inLibrary("VistrelLite.ini"),
                    "[VistrelLite]\r\nDisplayHeight=1e9\r\n" + crop + "=True\r\n");
        for (const std::string kind : {"BMP", "AVI", "CMD"}) {
            const Playfile playfile = load(legacyPlayfile({{.reference = "a." + kind}})).playfile;
            EXPECT_EQ(playfile.frames.at(1).PictureFileDisplay, crop == kind + "Crop" ? 1 : 0)
                << crop << kind;
        }
    }
    files().put(host_.inLibrary("VistrelLite.ini"), "[VistrelLite]\r\nBMPCrop=x\r\nAVICrop=True\r\n");
    EXPECT_EQ(load(legacyPlayfile({{.reference = "a.AVI"}})).legacy->preferenceErrors.at(0).key, "BMPCrop");
    FrameInfoClass object;
    object.SetSuppressMessages(true);
    EXPECT_TRUE(object.GetPlayfileFromDisk(path_));
    EXPECT_EQ(object.Value().frames.at(1).PictureFileDisplay, 1);
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{13});
    EXPECT_EQ(files().kindOf(JoinPath(host_.machine.specialFolders.at(5), "Vistrel Sign Playfiles")),
              EntryKind::missing)
        << "opening makes no folder";
}

TEST_F(LegacyImport, AsksAfterConvertingWhetherToGoOn) {
    FrameInfoClass playfile;
    const auto open = [&](const std::string& bytes, MessageAnswer answer) {
        files().put(path_, bytes);
        boxes().answers = {answer};
        const bool isOpen = playfile.GetPlayfileFromDisk(path_);
        return std::pair<bool, int>(isOpen, playfile.TotalFrames());
    };
    EXPECT_EQ(open("plwrev 1.50", MessageAnswer::yes), std::pair(false, 20)) << "asked all the same";
    EXPECT_TRUE(playfile.IsLegacy());
    EXPECT_EQ(open(legacyPlayfile({{}}), MessageAnswer::yes), std::pair(true, 1));
    EXPECT_EQ(open(legacyPlayfile({{}, {}}), MessageAnswer::no), std::pair(false, 2)) << "the frames stay";
    EXPECT_FALSE(playfile.GetPlayfileFromDisk(host_.inLibrary("missing.pl2")));
    ASSERT_EQ(boxes().shown.size(), 3u) << "nothing to ask the last time";
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{53});
    const Message& box = boxes().shown[0];
    EXPECT_EQ(box.title, "WARNING! Legacy File");
    EXPECT_TRUE(box.text.ends_with("save as a Vistrel 3 playfile.\r\nDo you wish to proceed!"));
    EXPECT_EQ(box.buttons, MessageButtons::yesNo);
    playfile.SetSuppressMessages(true);
    EXPECT_TRUE(playfile.GetPlayfileFromDisk(path_) && playfile.IsLegacy());
    EXPECT_EQ(boxes().shown.size(), 3u);
}

TEST_F(LegacyImport, ReadsOneFrameAboveTheLimitButNoMoreThanHaveNumbers) {
    const TempFolder folder;
    const std::string path = folder.file("many.PL2");
    (std::ofstream(path, std::ios::binary) << "PLWREV 1.50")
        .seekp(11 + 18704 * 32768 - 1)
        .put('\0'); // a hole
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

} // namespace
} // namespace qrtVistrelClasses4
