#include "playfile/FrameInfoClass.h"

#include "LegacyBytes.h"
#include "PlayfileRecords.h"
#include "PlayfileText.h"
#include "TestHost.h"
#include "frame/modClassIDGenerator.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>

namespace qrtVistrelClasses4 {
namespace {

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
    Texts textsOf(const LegacyFields& fields) {
        Texts texts;
        for (const LineRecord& line : frameOf(fields).lines)
            texts.push_back(line.CurrentLineText);
        return texts;
    }

    TestHost host_;
    FrameInfoClass playfile_;
    std::string path_ = host_.inLibrary("old.PL2");
};

std::string sample(const std::string& name) {
    std::ifstream stream(QRT_SAMPLES_FOLDER "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

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

Texts summaries(const Records& frames) {
    Texts all;
    std::transform(frames.begin(), frames.end(), std::back_inserter(all), summary);
    return all;
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
    const FrameRecord frame =
        frameOf({"TW", -7, "A\x1f  B {vbl 7} ", "LP", 2, {0, 2}, "Width=9 Q:\\Gone\\a.Bmp"});
    EXPECT_EQ(frame, expected) << summary(frame);
    EXPECT_EQ(playfile_.CurrentFrame(), 5);
    EXPECT_EQ(playfile_.CurrentLineNumber(), 3);
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(LegacyImport, TellsTheKindOfFrameByTheFileItNames) {
    struct Case {
        const char *why, *specification, *text, *frame;
    };
    const Case cases[] = {
        {"no file, no text", "", "", "2 0s 0>0 w0 ||0"},
        {"a text", "", "A", "2 0s 0>0 w0 |A|0"},
        {"a command file", "C:\\Set.cmd", "", "4 0s 0>0 w0 C:\\Set.cmd||0"},
        {"a command file with a text", "C:\\SET.CMD", "A", "4 0s 0>0 w0 C:\\SET.CMD|A|0"},
        {"a picture", "A.bmp", "", "1 0s 0>0 w0 A.bmp||0"},
        {"a picture with a text", "A.BMP", "A", "3 0s 0>0 w0 A.BMP|A|0"},
        {"an animation", "A.Avi", "", "1 0s 0>0 w0 A.Avi||0"},
        {"an animation with a text", "A.AVI", "A", "3 0s 0>0 w0 A.AVI|A|0"},
        {"the width behind the name", "A.BMP Width=4", "", "1 0s 0>0 w4 A.BMP||0"},
        {"only a width", "Width=4", "A", "2 0s 0>0 w4 |A|0"},
        {"the sign stays as it is", "LEAVE.CMD", "A", "2 0s 0>0 w0 over |A|0"},
        {"in any case, with a folder", "C:\\Old\\leave.Cmd", "A", "2 0s 0>0 w0 over |A|0"},
        {"with a width", "Width=4 LEAVE.CMD", "", "2 0s 0>0 w4 over ||0"},
        {"another file ending so", "SLEAVE.CMD", "", "4 0s 0>0 w0 SLEAVE.CMD||0"},
        {"another kind of file", "A.TXT", "A", "2 0s 0>0 w0 |A|0"},
        {"shorter than an ending", "MP", "A", "2 0s 0>0 w0 |A|0"},
    };
    for (const Case& row : cases)
        EXPECT_EQ(summary(frameOf({.text = row.text, .specification = row.specification})), row.frame)
            << row.why;
}

TEST_F(LegacyImport, PlacesPicturesByTheSettingForTheirKind) {
    const auto placing = [&](const std::string& settings, const char* picture) {
        files().put(host_.inLibrary("VistrelLite.ini"), "[VistrelLite]\r\n" + settings);
        return frameOf({.specification = picture}).PictureFileDisplay;
    };
    for (const bool bitmaps : {false, true})
        for (const bool animations : {false, true}) {
            const std::string settings = std::string("BMPCrop=") + (bitmaps ? "True" : "False") +
                                         "\r\nAVICrop=" + (animations ? "True" : "False") + "\r\n";
            EXPECT_EQ(placing(settings, "a.bmp"), bitmaps ? 1 : 0);
            EXPECT_EQ(placing(settings, "a.avi"), animations ? 1 : 0);
            EXPECT_EQ(placing(settings, "a.cmd"), 0);
        }
}

TEST_F(LegacyImport, ConvertsVariablesBeforeTheTextBecomesLines) {
    EXPECT_EQ(textsOf({.text = "{days} A\x1f{time}"}), (Texts{"A", "|h:m|"}))
        << "blanks left over are trimmed";
    EXPECT_EQ(textsOf({.text = "{vbl\x1f"
                               "7}",
                       .suffix = "SC"}),
              Texts{"{vbl 7}"})
        << "joined too late";
    EXPECT_EQ(textsOf({.text = "\x1f"}), (Texts{"", ""}));
}

TEST_F(LegacyImport, JoinsTheLinesOfATextThatScrolls) {
    for (const char* keyword : {"SC", "sc", "Sc"}) {
        const LegacyFields fields{.text = " A \x1f\x1f B", .suffix = keyword, .font = 4, .flags = {6, 6, 6}};
        EXPECT_EQ(summary(frameOf(fields)), "2 0s 0>0 w0 |A  B|10sbi");
    }
    EXPECT_EQ(summary(frameOf({.prefix = "SC"})), "2 0s 0>0 w0 ||0") << "no appear effect";
    EXPECT_EQ(summary(frameOf({.suffix = "SC"})), "2 0s 0>0 w0 ||0s");
    EXPECT_TRUE(host_.reports.all.empty());
}

TEST_F(LegacyImport, SetsTheFlagsOfTheFirst24Lines) {
    std::string flags;
    for (int line = 1; line <= 24; ++line)
        flags += static_cast<char>(0xf8 + 1 + line % 7);
    const FrameRecord frame = frameOf({.text = std::string(29, '\x1f'), .flags = flags});
    ASSERT_EQ(frame.lines.upperBound(), 30);
    for (int number = 1; number <= 30; ++number) {
        const int bits = number <= 24 ? 1 + number % 7 : 0;
        const LineRecord& line = frame.lines.at(number);
        EXPECT_EQ(line.Scrolling + 2 * line.Blinking + 4 * line.Inverse, bits) << number;
    }
}

TEST_F(LegacyImport, ConvertsKeywordsAndReportsALoopThatIsTooLong) {
    EXPECT_EQ(summary(frameOf({.prefix = "5", .suffix = "5"})), "2 0s 20005>0 w0 ||0");
    EXPECT_EQ(summary(frameOf({.prefix = "lr", .suffix = "lp"})), "2 0s 0>0 w0 ||0") << "compared exactly";
    EXPECT_EQ(summary(frameOf({.prefix = "12767"})), "2 0s 32767>0 w0 ||0");
    EXPECT_TRUE(host_.reports.all.empty());
    EXPECT_EQ(summary(frameOf({.prefix = "12768", .text = "A"})), "2 0s 0>0 w0 |A|0");
    EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6});
}

TEST_F(LegacyImport, AWidthBeyond16BitsIsReportedAndCostsNothingElse) {
    EXPECT_EQ(summary(frameOf({.specification = "Width=32767.4 A.BMP"})), "1 0s 0>0 w32767 A.BMP||0");
    EXPECT_TRUE(host_.reports.all.empty());
    for (const char* width : {"32768", "-32769", "1e400"}) {
        const std::string specification = std::string("Width=") + width + " A.BMP";
        EXPECT_EQ(summary(frameOf({.specification = specification})), "1 0s 0>0 w0 A.BMP||0");
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers{6}) << width;
    }
}

TEST_F(LegacyImport, KeepsOneRecordMoreThanAllowed) {
    const std::string file = legacyPlayfile({{}, {}, {}, {}});
    const std::pair<int, int> cases[] = {{-32768, 0}, {-1, 0}, {0, 1}, {2, 3}, {3, 4}, {32767, 4}};
    for (const auto& [allowed, kept] : cases) {
        playfile_.TotalFramesAllowed(static_cast<std::int16_t>(allowed));
        EXPECT_TRUE(loadUnasked(file));
        EXPECT_EQ(playfile_.TotalFrames(), kept) << allowed;
    }
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
    EXPECT_TRUE(loadUnasked(legacyPlayfile({{}})));
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
        int count = 0;
        files().put(path_, legacyPlayfile({{.text = "B"}, {.text = "C"}}));
        files().observer = [&](const FileOperation& operation) {
            const bool fails = operation.kind == FileOperation::read && ++count == failing;
            return fails ? SystemError::deviceFailure : SystemError::none;
        };
        EXPECT_FALSE(open(path_));
        EXPECT_EQ(host_.reports.takeNumbers(), Numbers{57}) << failing;
    }
    files().observer = nullptr;
    EXPECT_TRUE(boxes().shown.empty());
    EXPECT_EQ(summaries(recordsOf(playfile_)), Texts{"2 0s 0>0 w0 |A|0"});
}

TEST_F(LegacyImport, GoesByTheEndingOfTheNameAndEndsWithAPlayfileOfNow) {
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

TEST_F(LegacyImport, DrawsAnIdentityNumberForTheSettings) {
    for (const std::string& file : {legacyPlayfile({{}, {}}), std::string("no mark")}) {
        const std::int32_t last = LastClassDebugID();
        loadUnasked(file);
        EXPECT_EQ(LastClassDebugID(), last + 1);
    }
}

TEST_F(LegacyImport, KeepsTheWholeRecordsOfAFileCutShortAnywhere) {
    const std::string whole = legacyPlayfile({{.text = "A"}, {.text = "B"}});
    for (std::size_t size = 0; size < whole.size(); size += 97) {
        playfile_.TotalFrames(20);
        EXPECT_EQ(loadUnasked(whole.substr(0, size)), size >= 11) << size;
        EXPECT_EQ(playfile_.TotalFrames(), size < 11 ? 20 : size < 11 + 18704 ? 0 : 1) << size;
    }
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

TEST_F(LegacyImport, ReadsTheSamples) {
    const Texts lobby = {
        "2 3s 5001>5000 w0 |WELCOME|3|to the |m/dd/y| show|3b",
        "2 2s 20005>0 w0 |Row A|6",
        "2 2s 0>20001 w0 |Row B|8i|VBL007 left|8|CR09 right|8s",
        "2 0s 12005>0 w0 |A long line that scrolls by at |h:m||10s",
        "1 6s 5>5 w128 C:\\OLDSIGN\\ANCHOR.BMP||0",
        "2 1s 0>0 w0 over |over it|0",
        "4 0s 0>0 w0 C:\\OLDSIGN\\SETTIME.CMD||0",
    };
    EXPECT_TRUE(loadUnasked(sample("lobby.PL2")));
    EXPECT_EQ(summaries(recordsOf(playfile_)), lobby);
    EXPECT_TRUE(loadUnasked(sample("cut-short.PL2")));
    EXPECT_EQ(summaries(recordsOf(playfile_)), Texts(lobby.begin(), lobby.begin() + 2));
    EXPECT_FALSE(loadUnasked(sample("not-legacy.PL2")));
    EXPECT_EQ(playfile_.TotalFrames(), 2);
    EXPECT_TRUE(host_.reports.all.empty());
}

} // namespace
} // namespace qrtVistrelClasses4
