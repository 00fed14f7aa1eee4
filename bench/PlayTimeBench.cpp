// How long a sign takes to show a playfile with scrolling lines, codes and loops, against loading the
// playfile.
#include "bench/BenchHome.h"
#include "bench/Dice.h"
#include "bench/FmtPlayfile.h"
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include <qrtVistrelClasses4/LoadPlayfile.h>
#include <qrtVistrelClasses4/PlayTime.h>

#include <memory>
#include <utility>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfLoading = 0.3;
constexpr unsigned kLinesToOneCode = 8;
constexpr std::int16_t kLoop = 20003;
constexpr std::int16_t kEndOfLoop = 20001;

/// Half of the lines scroll, and some have a code at any place of their texts.
Frames movingFrames(const BenchFolder& folder) {
    Dice dice;
    Frames frames = MakeFrames(kUsual, folder);
    const CommandTable commands = BuiltInCommands();
    for (FrameRecord& frame : frames)
        for (LineRecord& line : frame.lines) {
            line.Scrolling = dice.once(2);
            if (dice.once(kLinesToOneCode)) {
                const unsigned command = dice.below(static_cast<std::size_t>(commands.count()));
                line.CurrentLineText.insert(dice.below(line.CurrentLineText.size()),
                                            commands.key(static_cast<std::int32_t>(command) + 1));
            }
        }
    for (std::int32_t number = 1; number + 2 <= frames.upperBound(); number += 4) {
        frames.at(number).PrefixCode = kLoop;
        frames.at(number + 2).SuffixCode = kEndOfLoop;
    }
    return frames;
}

/// From finding the fonts on.
PlayTime timeOf(const Playfile& playfile) {
    PlayTimeCircumstances circumstances;
    circumstances.sign = {128, 32};
    return PlayTimeOf(playfile, circumstances);
}

} // namespace

std::vector<Ratio> PlayTimeSubject(const BenchFolder& folder) {
    const std::string home = folder.homeWithCustomFont("playtime");
    const std::string path = folder.file("moving.playfile");
    SaveWithFmt(movingFrames(folder), path);
    const auto playfile = std::make_shared<const Playfile>(LoadPlayfile(path, {}).playfile);
    const PlayTime time = [&] {
        const Home here(home);
        return timeOf(*playfile);
    }();
    Require(time.faults.empty(), "fonts are missing");
    Require(time.playback.steps.size() > std::size_t{kUsual.frames} * 2, "loops are not run through");
    RegisterWork("playtime", [playfile, home](benchmark::State& state) {
        const Home here(home);
        TimeWork(state, [&] { benchmark::DoNotOptimize(timeOf(*playfile)); });
    });
    RegisterWork("playtime/load", [path](benchmark::State& state) {
        TimeMaking(state, [&] { return std::make_unique<LoadOutcome>(LoadPlayfile(path, {})); });
    });
    return {{"play time of 1048x8", "playtime", "playtime/load", Bound::aim, kMostOfLoading}};
}

} // namespace qrtVistrelClasses4::bench
