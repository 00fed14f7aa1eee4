#include "tools/preview/ReadFrames.h"

#include "playfile/FrameRules.h"
#include "playfile/ReferenceFinder.h"

namespace qrtVistrelClasses4 {
namespace {

LineRecord readLine(FrameInfoClass& playfile) {
    LineRecord line;
    line.CurrentLineText = playfile.CurrentLineText();
    line.LineFontSize = playfile.LineFontSize();
    line.LineCustomFont = playfile.LineCustomFont();
    line.Scrolling = playfile.Scrolling();
    line.Inverse = playfile.Inverse();
    return line;
}

FrameRecord readFrame(FrameInfoClass& playfile) {
    FrameRecord frame;
    frame.FrameName = playfile.FrameName();
    SetFrameType(frame, playfile.FrameType());
    frame.PicturefileName = playfile.PicturefileName();
    frame.commandfile = playfile.commandfile();
    SetOverlay(frame, playfile.OverlayFrame());
    frame.WinBackColor = playfile.WinBackColor();
    frame.lines.resize(playfile.TotalLinesAllowed());
    std::int16_t number = 0;
    for (LineRecord& line : frame.lines) {
        playfile.CurrentLineNumber(++number);
        line = readLine(playfile);
    }
    return frame;
}

} // namespace

OneBasedArray<FrameRecord> ReadFrames(FrameInfoClass& playfile) {
    OneBasedArray<FrameRecord> frames(playfile.TotalFrames());
    ReferenceFinder finder(playfile.CurrentFileName());
    std::int16_t number = 0;
    for (FrameRecord& frame : frames) {
        playfile.CurrentFrame(++number);
        frame = readFrame(playfile);
        finder.find(frame.PicturefileName); // opening an older playfile has not looked for its pictures
    }
    return frames;
}

} // namespace qrtVistrelClasses4
