// How long a sign takes to show a playfile with scrolling lines, codes and loops, against loading the
// playfile.
#include "bench/Dice.h"
#include "bench/FmtPlayfile.h"
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include "platform/Platform.h"
#include <qrtVistrelClasses4/LoadPlayfile.h>
#include <qrtVistrelClasses4/PlayTime.h>

#include <filesystem>
#include <memory>
#include <utility>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfLoading = 0.3;
constexpr unsigned kLinesToOneCode = 8;
constexpr std::int16_t kLoop = 20003;
constexpr std::int16_t kEndOfLoop = 20001;

/// A home that also has the custom font of the lines.
std::string homeWithCustomFont(const BenchFolder& folder) {
    std::string home = folder.homeWithFonts("playtime");
    const std::filesystem::path custom = std::filesystem::path(home) / "CustomFonts";
    std::filesystem::create_directory(custom);
    std::filesystem::copy(QRT_SAMPLES_FOLDER "/CustomFonts/FNT4X8.CFF", custom / "FNT8X8.CFF");
    return home;
}

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

/// The platform of a home, as long as it lives.
class Home {
public:
    explicit Home(const std::string& folder) : machine_(makePlatform({folder})), use_(*machine_) {}

private:
    std::unique_ptr<Platform> machine_;
    ScopedPlatform use_;
};

} // namespace

std::vector<Ratio> PlayTimeSubject(const BenchFolder& folder) {
    const std::string home = homeWithCustomFont(folder);
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
