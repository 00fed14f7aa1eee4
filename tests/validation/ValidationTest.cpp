#include <qrtVistrelClasses4/Validation.h>

#include "HostTest.h"
#include "media/AnimationTesting.h"
#include "platform/Path.h"

#include <fstream>
#include <set>

namespace qrtVistrelClasses4 {
namespace {

using enum NEW_FRAME_TYPES;

TEST(Rules, AreThoseOfTheDocument) {
    std::ifstream document(QRT_SAMPLES_FOLDER "/../docs/validation.md", std::ios::binary);
    Texts rows, wanted;
    for (std::string line; std::getline(document, line);)
        if (line.starts_with("| `"))
            rows.push_back(line);
    std::set<std::string_view> names;
    for (const Rule& rule : kRules) {
        wanted.push_back("| `" + std::string(rule.name) + "` | " + std::string(SeverityName(rule.severity)) +
                         " | " + std::string(rule.summary) + " | " + std::string(rule.fix) + " |");
        EXPECT_TRUE(names.insert(rule.name).second) << rule.name;
    }
    EXPECT_EQ(rows, wanted);
}

struct Validation : HostTest {
    FrameRecord& add(NEW_FRAME_TYPES kind, std::string text = "") {
        playfile_.frames.resize(playfile_.frames.upperBound() + 1);
        FrameRecord& frame = playfile_.frames.at(playfile_.frames.upperBound());
        frame.FrameType = static_cast<std::int16_t>(kind);
        frame.DelayTime = 3;
        frame.lines.resize(1);
        frame.lines.at(1).CurrentLineText = std::move(text);
        return frame;
    }
    /// "2.1 rule: message", with the frame and the line.
    Texts found() {
        Texts texts;
        for (const Finding& finding : Validate(playfile_, known_))
            texts.push_back(std::to_string(finding.frame) + '.' + std::to_string(finding.line) + ' ' +
                            std::string(finding.rule->name) + ": " + finding.message);
        return texts;
    }

    Playfile playfile_;
    ValidationCircumstances known_{.looksAtFiles = false, .measuresTexts = false};
};

TEST_F(Validation, NamesPlacesAndValuesInTheirOrder) {
    add(FRAME_TEXT, "VBL9 to \xe9 |week|").PrefixCode = 1003;
    add(FRAME_GRAPHIC);
    add(FRAME_TEXT, "Gate").DelayTime = 12.25;
    known_.delayLimits = DelayLimits{0, 10, 0.5};
    known_.framesAllowed = 2;
    EXPECT_EQ(
        found(),
        (Texts{"0.0 too-many-frames: There are 3 frames, and 2 are allowed.",
               "1.0 unknown-prefix: The prefix code is 1003, which is the number of no effect.",
               "1.1 damaged-code: The text has \"VBL9\", and codes of that kind have a number of 3 digits "
               "up to 416.",
               "1.1 unknown-command-code: The text has \"|week|\", and no command has that key.",
               "2.0 picture-unnamed: The frame has no name of a picture.",
               "3.0 delay-outside-limits: The frame is shown for 12.25 seconds, and the settings allow 0 to "
               "10 seconds."}));
}

TEST_F(Validation, LeavesAloneWhatOnlyLooksLikeACode) {
    for (const char* const text : {"a | b", "|", "||", "|a|", "CR2032", "VBL0071", "SCR17", "{", "{Sale}",
                                   "} {", "#1", "## 5", "VBL", "CR", "C", "|h:m||hm|", "Mon|Tue|Wed",
                                   "\xa6"
                                   "CR01",
                                   "| week |"})
        add(FRAME_TEXT, text);
    EXPECT_EQ(found(), Texts());
}

TEST_F(Validation, NamesEachCodeOfALineOnce) {
    std::string many;
    for (char letter = 'a'; letter <= 'z'; ++letter)
        many += "##Q" + std::string(1, letter) + "##A";
    add(FRAME_TEXT, many);
    const Texts texts = found();
    ASSERT_EQ(texts.size(), 21U);
    EXPECT_EQ(texts.at(1), "1.1 unknown-command-code: The text has \"##A\" 26 times, and no command has that "
                           "key.");
    EXPECT_EQ(texts.back(), "1.1 unknown-command-code: The text has 7 more of what this rule finds.");
}

TEST_F(Validation, LooksForEachMissingFileOnce) {
    known_.looksAtFiles = true;
    const std::string gone = host_.inLibrary("gone.bmp");
    for (int count = 0; count < 9; ++count)
        add(FRAME_GRAPHIC).PicturefileName = gone;
    playfile_.fileName = host_.inLibrary(JoinPath("shows", "a.playfile"));
    files().makeFolders(host_.inLibrary("shows"));
    std::map<std::string, int> looks;
    files().observer = [&](const FileOperation& operation) {
        ++looks[operation.path];
        return SystemError::none;
    };
    EXPECT_EQ(found().size(), 9U);
    EXPECT_EQ(looks[gone], 1);
    EXPECT_LE(looks[host_.inLibrary(JoinPath("shows", "gone.bmp"))], 1);
}

TEST_F(Validation, NamesAFontThatIsMissingAtEachOfItsLines) {
    known_.measuresTexts = true;
    known_.signSize = DotSize{64, 8};
    add(FRAME_TEXT, "Gate").lines.resize(4);
    for (LineRecord& line : playfile_.frames.at(1).lines)
        line.LineFontSize = kCustomFont;
    playfile_.frames.at(1).lines.at(1).LineCustomFont = host_.inLibrary("gone.cff");
    playfile_.frames.at(1).lines.at(2).LineFontSize = 17;
    playfile_.frames.at(1).lines.at(4).LineCustomFont = host_.inLibrary("gone.cff");
    Texts rules;
    for (const Finding& finding : Validate(playfile_, known_))
        rules.push_back(std::to_string(finding.line) + ' ' + std::string(finding.rule->name));
    EXPECT_EQ(rules, (Texts{"0 fonts-missing", "1 font-missing", "2 font-number-unknown", "3 font-unnamed",
                            "4 font-missing"}));
}

TEST_F(Validation, ReadsOnlyTheStartOfLargeFiles) {
    known_.looksAtFiles = true;
    known_.signSize = DotSize{64, 8};
    for (const auto& [name, bytes] : {std::pair("a.avi", Avi(3, 128, 64)),
                                      std::pair("b.gif", std::string("GIF89a\10\0\10\0\0\0\0", 13))}) {
        add(FRAME_GRAPHIC).PicturefileName = host_.inLibrary(name);
        files().put(host_.inLibrary(name), bytes + std::string(std::size_t{33} << 20, 'x'));
    }
    playfile_.frames.at(1).AVIFrames = 3;
    const std::vector<Finding> findings = Validate(playfile_, known_);
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings.front().rule->name, "picture-too-large");
}

TEST_F(Validation, CountsLoopsInThousandsOfOthers) {
    constexpr std::int32_t depth = 16000;
    for (std::int32_t number = 0; number < 2 * depth; ++number)
        (number < depth ? add(FRAME_TEXT).PrefixCode : add(FRAME_TEXT).SuffixCode) =
            number < depth ? 20099 : 20001;
    for (FrameRecord& frame : playfile_.frames)
        frame.DelayTime = 1;
    std::map<std::string_view, int> counts;
    for (const Finding& finding : Validate(playfile_, known_))
        ++counts[finding.rule->name];
    EXPECT_EQ(counts["empty-loop"], depth);
    EXPECT_EQ(counts["loop-nested"], depth - 1);
    EXPECT_EQ(counts["loops-beyond-a-day"] + counts["playback-too-long"], 2);
}

TEST_F(Validation, HasALineOfTextForEachFinding) {
    const std::string folders = "C:\\" + std::string(80, 'x');
    add(FRAME_TEXT, "Gate").AudioFile = folders + "\\a\r\nb.ogg";
    playfile_.frames.at(1).lines.at(1).Merge = true;
    add(FRAME_TEXT, "Pier");
    known_.framesAllowed = 1;
    known_.looksAtFiles = true;
    Texts texts;
    for (const Finding& finding : Validate(playfile_, known_))
        texts.push_back(TextOf(finding));
    EXPECT_EQ(texts, (Texts{"error playfile: There are 2 frames, and 1 are allowed. [too-many-frames]",
                            "warning frame 1, AudioFile: The sound \"C:\\" + std::string(48, 'x') +
                                "...\\a  b.ogg\" is missing. [sound-missing]",
                            "warning frame 1, line 1, Merge: Line 1 is to be merged with the next one, and "
                            "is the last. [merge-on-last-line]"}));
}

TEST_F(Validation, LeavesAloneWhatAFixWouldOnlyGuess) {
    const auto hasFix = [&] {
        const auto findings = Validate(playfile_, known_);
        return std::ranges::any_of(findings, [](const Finding& finding) { return finding.fix.has_value(); });
    };
    add(FRAME_TEXT, "Gate");
    add(FRAME_TEXT, "Pier").SuffixCode = 20001;
    FrameRecord& first = playfile_.frames.at(1);
    EXPECT_TRUE(hasFix());
    for (const std::int16_t start : std::initializer_list<std::int16_t>{20150, 20000}) {
        first.PrefixCode = start;
        EXPECT_FALSE(hasFix()) << start;
    }
    first.PrefixCode = 20003;
    first.FrameType = 0;
    EXPECT_FALSE(hasFix()) << "the start is in a blank frame";
    playfile_.frames.at(2).SuffixCode = 0;
    EXPECT_TRUE(hasFix()) << "the start has no end";

    first.FrameType = 1;
    first.PrefixCode = 0;
    first.SuffixCode = 9999;
    first.AVIFrames = 100;
    EXPECT_TRUE(hasFix());
    playfile_.frames.at(2).TotalDisplayFramesUsedForThisFrame = 32700;
    EXPECT_FALSE(hasFix()) << "the sign lacks frames";

    first.SuffixCode = 0;
    first.DelayTime = 0.3;
    known_.delayLimits = DelayLimits{1, 10, 0.5};
    EXPECT_FALSE(hasFix()) << "the unit is assumed";
}

TEST_F(Validation, DoesNotKnowLimitsBeyondNumbers) {
    Preferences preferences;
    preferences.DelayMaximum = 1e308;
    known_.delayLimits = DelayLimitsOf(preferences, 1e6);
    add(FRAME_TEXT, "Gate").DelayTime = 0.3;
    EXPECT_EQ(found(), Texts());
}

TEST_F(Validation, MakesNoFixOutsideThePlayfile) {
    add(FRAME_TEXT, "Gate");
    const Playfile before = playfile_;
    const Rule* const rule = FindRule("merge-on-last-line");
    for (const Finding& finding :
         {Finding{rule, 2, 0, "DelayTime", 0, "", 1}, Finding{rule, 1, 2, "Merge", 0, "", 0},
          Finding{rule, 1, 0, "FrameName", 0, "", 0}, Finding{rule, 1, 0, "", 0, "", 0},
          Finding{rule, 1, 0, "AVIFrames", 0, "", 40000}, Finding{rule, 1, 1, "Merge", 0, "", {}}})
        EXPECT_FALSE(ApplyFix(playfile_, finding)) << finding.property;
    EXPECT_EQ(playfile_, before);
}

} // namespace
} // namespace qrtVistrelClasses4
