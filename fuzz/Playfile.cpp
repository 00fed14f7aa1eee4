// Any bytes as a playfile.
#include "Fuzz.h"
#include "playfile/Effects.h"
#include "playfile/LegacyFormat.h"
#include "playfile/PlayfileFormat.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>
#include <qrtVistrelClasses4/LoadPlayfile.h>
#include <qrtVistrelClasses4/RuntimeError.h>
#include <qrtVistrelClasses4/SavePlayfile.h>

#include <algorithm>
#include <optional>
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
    Records frames;                    ///< Those that are complete.
    std::optional<FrameRecord> half{}; ///< The one after them, as far as it goes.
    int lines = 0;
    bool reachesTheEnd = false;
};

Reading readDirectly(std::string_view text) {
    constexpr std::size_t emptyFrames = 20; // of a new playfile; each has a line
    const auto ignore = [](const MemberColumns&) {};
    Reading result;
    QuotedLineReader in(text);
    try {
        int left = ReadFrameCount(in);
        for (result.reachesTheEnd = left >= 0; left > 0; --left) {
            result.reachesTheEnd = false;
            FrameRecord& frame = result.half.emplace();
            frame.lines.resize(result.frames.size() < emptyFrames ? 1 : 0);
            ReadValues(in, frame, ignore);
            ReadLineCount(in, frame);
            for (LineRecord& line : frame.lines)
                ReadValues(in, line, ignore);
            correct(frame);
            result.lines += frame.lines.upperBound();
            result.frames.push_back(std::move(frame));
            result.half.reset();
            result.reachesTheEnd = left == 1;
        }
    } catch (const RuntimeError&) { // what was read until then counts
        if (result.half)
            correct(*result.half);
    }
    return result;
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    const std::string path = host.inLibrary("\x01.playfile");
    const auto load = [&](const std::string& text) {
        host.machine.files().put(path, text);
        return LoadPlayfile(path);
    };
    const auto saved = [&](const Playfile& playfile) {
        Require(SavePlayfile(playfile, path).isWritten(), "what was loaded can be saved");
        return host.machine.files().content(path).value_or("");
    };
    const std::string text = input.rest();
    const Reading direct = readDirectly(text);
    const LoadOutcome outcome = load(text);
    Require(outcome.isComplete == direct.reachesTheEnd, "a load says whether it reached the end");
    Require(outcome.error.has_value() != outcome.isComplete, "and else what is wrong");
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    Require(!outcome.error || outcome.error->line.value() <= lines + 1, "in a line of the file");
    Require(std::ranges::equal(outcome.playfile.frames, direct.frames), "complete frames are kept alone");

    const LoadOutcome fromBytes = LoadPlayfileBytes(text, path);
    Require(text.starts_with(kLegacyMark) || fromBytes.playfile == outcome.playfile, "bytes are read alike");

    FrameInfoClass playfile;
    Require(playfile.GetPlayfileFromDisk(path) == outcome.isComplete, "the class loads the same");
    Require(playfile.Value().frames.upperBound() >= outcome.framesRead, "over the frames that there are");
    Require(!direct.half || playfile.Value().frames.at(outcome.framesRead + 1) == *direct.half,
            "and corrects what it reads of half a frame");
    if (playfile.TotalFrames() > kMostLines || direct.lines > kMostLines)
        return;
    const std::string first = saved(playfile.Value());
    const LoadOutcome again = load(first);
    Require(again.isComplete, "what was saved can be loaded");
    const std::string second = saved(again.playfile);
    Require(second == first, "what was saved comes back");
    for (const XmlForm form : {XmlForm::elements, XmlForm::document})
        Require(!ExportXml(again.playfile, path, form), "and can be exported");
}

} // namespace qrtVistrelClasses4
