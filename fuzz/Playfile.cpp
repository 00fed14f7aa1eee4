// Any bytes as a playfile.
#include "Fuzz.h"
#include "frame/RuntimeError.h"
#include "playfile/Effects.h"
#include "playfile/FrameInfoClass.h"
#include "playfile/PlayfileFormat.h"

#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using Records = std::vector<FrameRecord>;
constexpr std::int32_t kMostLines = 2000; ///< More take time and show nothing new.

/// What loading corrects, but for files: the only one has a name that no playfile can hold.
void correct(FrameRecord& frame) {
    for (std::int16_t* code : {&frame.PrefixCode, &frame.SuffixCode})
        if (*code == kOldWipe)
            *code = kWipe;
    for (LineRecord& line : frame.lines)
        if (line.LineFontSize == 2) {
            line.LineFontSize = 12;
            line.LineCustomFont = JoinPath(JoinPath(platform().libraryFolder(), "CustomFonts"), "FNT4X8.CFF");
        }
}

struct Reading {
    Records frames; ///< Those that are complete.
    int lines = 0;
    bool reachesTheEnd = false;
};

Reading readDirectly(std::string_view text) {
    Reading result;
    QuotedLineReader in(text);
    try {
        int left = ReadFrameCount(in);
        for (result.reachesTheEnd = left >= 0; left > 0; --left) {
            result.reachesTheEnd = false;
            FrameRecord frame;
            ReadFrameValues(in, frame);
            for (LineRecord& line : frame.lines)
                ReadLineValues(in, line);
            correct(frame);
            result.lines += frame.lines.upperBound();
            result.frames.push_back(std::move(frame));
            result.reachesTheEnd = left == 1;
        }
    } catch (const RuntimeError&) { // the frames until then are what counts
    }
    return result;
}

std::string textOf(const Records& frames) {
    KeptBytes sink;
    QuotedLineWriter out(sink);
    for (const FrameRecord& frame : frames)
        WriteFrame(out, frame);
    out.finish();
    return sink.text;
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    const std::string path = host.inLibrary("\x01.playfile");
    const auto load = [&](FrameInfoClass& playfile, const std::string& text) {
        host.machine.files().put(path, text);
        playfile.SetSuppressMessages(true);
        return playfile.GetPlayfileFromDisk(path);
    };
    const auto saved = [&](FrameInfoClass& playfile) {
        Require(playfile.WritePlayfileToDisk(path), "what was loaded can be saved");
        return host.machine.files().content(path).value_or("");
    };
    const std::string text = input.rest();
    const Reading direct = readDirectly(text);
    FrameInfoClass playfile;
    Require(load(playfile, text) == direct.reachesTheEnd, "a load tells whether it reached the end");
    if (playfile.TotalFrames() > kMostLines || direct.lines > kMostLines)
        return;
    const auto keepsComplete = [complete = textOf(direct.frames)](std::string_view file) {
        return file.substr(file.find('\n') + 1).starts_with(complete);
    };
    const std::string first = saved(playfile);
    Require(keepsComplete(first), "complete frames are kept");
    FrameInfoClass again;
    Require(load(again, first), "what was saved can be loaded");
    const std::string second = saved(again);
    Require(keepsComplete(second), "and holds them");
    // Half a frame is not corrected yet.
    Require(second == first || !direct.reachesTheEnd, "what was saved comes back");
    FrameInfoClass third;
    Require(load(third, second) && saved(third) == second, "as often as it is saved");
    Require(third.WriteXMLToDisk(path), "and can be exported");
}

} // namespace qrtVistrelClasses4
