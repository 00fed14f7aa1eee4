#include "bench/SamplePlayfile.h"

#include "bench/Dice.h"
#include "bench/FmtPlayfile.h"
#include "bench/Ratio.h"
#include "bench/SampleReferences.h"

#include <array>
#include <string_view>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr std::array<std::string_view, 16> kWords{
    "ARRIVALS", "Gate",     "12",   "open",    "until", "22:00", "Ferry", "\"Sea Swift\"",
    "delayed",  "PLATFORM", "next", "shuttle", "to",    "town",  "at",    "quay"};
constexpr std::array kDelaySeconds{3.0, 1.25, 5.0, 0.5, 10.0, 2.75, 3.0, 4.0};
constexpr std::array<std::int16_t, 5> kEffects{5000, 5001, 2000, 1003, 9998};
constexpr std::array<std::int16_t, 6> kFonts{1, 3, 6, 8, 10, 12};
constexpr unsigned kShortestText = 5;
constexpr unsigned kTextLengths = 36;
constexpr unsigned kFramesToOneReference = 3;

std::string makeText(Dice& dice) {
    const std::size_t length = kShortestText + dice.below(kTextLengths);
    std::string text(dice.oneOf(kWords));
    while (text.size() < length)
        text.append(" ").append(dice.oneOf(kWords));
    text.resize(length);
    return text;
}

LineRecord makeLine(Dice& dice) {
    LineRecord line;
    line.CurrentLineText = makeText(dice);
    line.LineFontSize = dice.oneOf(kFonts);
    line.Scrolling = dice.once(4);
    line.Inverse = dice.once(8);
    line.Blinking = dice.once(8);
    if (line.LineFontSize == kCustomFont)
        line.LineCustomFont = "FNT8X8.CFF";
    line.Merge = dice.once(8);
    return line;
}

/// To a picture, or now and then to a command file.
void refer(FrameRecord& frame, const SampleReferences& references, Dice& dice) {
    if (dice.once(4))
        frame.commandfile = references.commandFile(dice);
    else
        frame.PicturefileName = references.picture(dice);
}

} // namespace

Frames MakeFrames(PlayfileSize size, const BenchFolder& folder) {
    const SampleReferences references(folder);
    Dice dice;
    Frames frames(size.frames);
    std::int32_t number = 0;
    for (FrameRecord& frame : frames) {
        frame.FrameName = "Frame " + std::to_string(++number) + ' ' + std::string(dice.oneOf(kWords));
        frame.DelayTime = dice.oneOf(kDelaySeconds);
        frame.FontHeight = 16;
        frame.FrameType = 2;
        if (dice.once(kFramesToOneReference) && size.frames > kSmall.frames)
            refer(frame, references, dice);
        frame.PrefixCode = dice.oneOf(kEffects);
        frame.SuffixCode = dice.oneOf(kEffects);
        frame.TotalDisplayFramesUsedForThisFrame = 1;
        frame.RowHeightForGrid = 40;
        frame.WinBackColor = static_cast<std::int32_t>(dice.below(0x1000000));
        frame.lines.resize(size.lines);
        for (LineRecord& line : frame.lines)
            line = makeLine(dice);
    }
    return frames;
}

std::unique_ptr<FrameInfoClass> MakePlayfile(PlayfileSize size, const BenchFolder& folder) {
    const std::string path = folder.file("sample.playfile");
    SaveWithFmt(MakeFrames(size, folder), path);
    auto frames = std::make_unique<FrameInfoClass>();
    Require(frames->GetPlayfileFromDisk(path), "cannot load " + path);
    return frames;
}

} // namespace qrtVistrelClasses4::bench
