// The play time of any frames, compared with a sign that goes from frame to frame: its circumstances, and
// then each frame.
#include "Fuzz.h"
#include "fonts/FontFile.h"
#include <qrtVistrelClasses4/PlayTime.h>

#include <algorithm>
#include <cmath>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int32_t kMostFrames = 24;
constexpr int kLetterWidth = 5;

constexpr std::int16_t kPrefixes[] = {0,     5,     15,  1000,  5000,  5003, 9999,
                                      11006, 12005, 121, 20000, 20100, 4711};
constexpr std::int16_t kSuffixes[] = {0,     10,    1000,  5001,  5002,  9999, 11006,
                                      12005, 20001, 20001, 20001, 20001, 2001};
/// 2 of 5 are whole quarters of a second, the others what no frame should have.
constexpr double kDelays[] = {-1, 0.25, 3, 1e300, 86400};

/// A font of the letter "A" only, which is as wide as it says.
std::string fontBytes() {
    Font font{8, 1, "A"};
    font.store[0] = kLetterWidth;
    return HeaderFontBytes(font);
}

LineRecord lineOf(FuzzedInput& input) {
    LineRecord line;
    const unsigned byte = input.byte();
    line.Scrolling = byte % 2 == 1;
    line.CurrentLineText.assign(byte / 2, 'A');
    line.LineFontSize = kCustomFont;
    line.LineCustomFont = "five";
    return line;
}

FrameRecord frameOf(FuzzedInput& input) {
    FrameRecord frame;
    const unsigned byte = input.byte();
    frame.FrameType = static_cast<std::int16_t>(byte % 7 - 1 + (byte == 7 ? 300 : 0));
    const unsigned prefix = input.byte();
    frame.PrefixCode = prefix < 128 ? kPrefixes[prefix % std::size(kPrefixes)]
                                    : static_cast<std::int16_t>(20000 + (prefix < 254 ? prefix % 4 : 99));
    frame.SuffixCode = kSuffixes[input.byte() % std::size(kSuffixes)];
    const unsigned delay = input.byte();
    frame.DelayTime = delay < 128 ? delay / 4.0 : kDelays[delay % std::size(kDelays)];
    const unsigned flags = input.byte();
    frame.FastScroll = static_cast<std::int16_t>(flags % 3);
    frame.AVIFrames = static_cast<std::int16_t>(static_cast<int>(flags / 3 % 8) - 1);
    frame.lines.resize(static_cast<std::int32_t>(flags / 24 % 4));
    for (LineRecord& line : frame.lines)
        line = lineOf(input);
    return frame;
}

PlayTimeCircumstances circumstancesOf(FuzzedInput& input) {
    PlayTimeCircumstances circumstances;
    circumstances.sign = {static_cast<std::int32_t>(input.byte()) - 8,
                          static_cast<std::int32_t>(input.byte())};
    circumstances.scrollingTextSpeed = static_cast<std::int16_t>(static_cast<int>(input.byte() % 16) - 3);
    circumstances.scrollPauseDelay = static_cast<std::int32_t>(input.byte()) - 8;
    circumstances.aviDelay = static_cast<std::int16_t>(static_cast<int>(input.byte()) - 8);
    circumstances.aviFixedDelay = input.byte() % 2 == 1;
    return circumstances;
}

/// Works out with its own rules what the sign does. It looks for the end of a loop when it comes to the
/// start.
class SlowSign {
public:
    SlowSign(const Playfile& playfile, const PlayTimeCircumstances& circumstances)
        : frames_(playfile.frames), circumstances_(circumstances) {}

    void play() {
        for (number_ = 1; number_ <= frames_.upperBound() && !isCut;) {
            if (frames_.at(number_).FrameType == 0)
                ++number_;
            else
                playFrame();
        }
    }

    std::vector<PlaybackStep> steps;
    std::vector<double> starts;
    bool isCut = false;
    TimeRange time;

private:
    struct Open {
        std::int32_t first, last, round, rounds;
    };

    bool startsLoop(std::int32_t number) const {
        const FrameRecord& frame = frames_.at(number);
        return frame.FrameType != 0 && frame.PrefixCode >= 20001 && frame.PrefixCode <= 20099;
    }
    bool endsLoop(std::int32_t number) const {
        return frames_.at(number).FrameType != 0 && frames_.at(number).SuffixCode == 20001;
    }

    /// The frame that ends the loop that a frame starts; 0 if none does.
    std::int32_t endOf(std::int32_t first) const {
        int open = 0;
        for (std::int32_t number = first; number <= frames_.upperBound(); ++number) {
            open += startsLoop(number) ? 1 : 0;
            open -= endsLoop(number) ? 1 : 0;
            if (open == 0)
                return number;
        }
        return 0;
    }

    void playFrame() {
        const bool isBack = !open_.empty() && open_.back().first == number_;
        if (const std::int32_t last = startsLoop(number_) && !isBack ? endOf(number_) : 0; last > 0)
            open_.push_back({number_, last, 1, frames_.at(number_).PrefixCode - 20000});
        isCut = steps.size() == 1'000'000;
        if (isCut)
            return;
        steps.push_back({number_, open_.empty() ? 1 : open_.back().round});
        starts.push_back(time.likely);
        addTimeOf(frames_.at(number_));
        if (open_.empty() || open_.back().last != number_) {
            ++number_;
        } else if (open_.back().round++ < open_.back().rounds) {
            number_ = open_.back().first;
        } else {
            open_.pop_back();
            ++number_;
        }
    }

    void addTimeOf(const FrameRecord& frame) {
        const double hold = holdOf(frame);
        const Estimate appearing = effect(frame.PrefixCode, 5), disappearing = effect(frame.SuffixCode, 10);
        const SignTiming assumed;
        const Estimate& pause = assumed.of(Timing::ScrollPauseUnit);
        const Estimate& speed = assumed.scrollSpeed(circumstances_.scrollingTextSpeed);
        time.shortest += appearing.low + stay(frame, hold, speed.high, pause.low) + disappearing.low;
        time.likely += appearing.likely + stay(frame, hold, speed.likely, pause.likely) + disappearing.likely;
        time.longest += appearing.high + stay(frame, hold, speed.low, pause.high) + disappearing.high;
    }

    double holdOf(const FrameRecord& frame) const {
        const bool isPicture = frame.FrameType == 1 || frame.FrameType == 3;
        if (circumstances_.aviFixedDelay && isPicture && frame.AVIFrames > 1)
            return 0.001 * frame.AVIFrames * std::max<int>(circumstances_.aviDelay, 0);
        return frame.DelayTime > 0 && frame.DelayTime < 1e10 ? frame.DelayTime : 0;
    }

    /// How long a frame stays until its lines have passed.
    double stay(const FrameRecord& frame, double hold, double speed, double pause) const {
        double until = hold, after = 0;
        if (frame.FrameType == 2 || frame.FrameType == 3)
            for (const LineRecord& line : frame.lines)
                if (line.Scrolling && !line.CurrentLineText.empty()) {
                    const double dots = static_cast<double>(line.CurrentLineText.size() * kLetterWidth) +
                                        std::max(circumstances_.sign.width, 0);
                    until = std::max(until, dots / speed / (frame.FastScroll == 1 ? 2 : 1));
                    after = pause * std::max(circumstances_.scrollPauseDelay, 0);
                }
        return until + after;
    }

    Estimate effect(std::int16_t code, std::int16_t reveal) const {
        const SignTiming assumed;
        const Estimate& speed = assumed.of(Timing::EffectSpeed);
        double dots = 0;
        if (code == 5000 || code == 5001 || code == reveal)
            dots = std::max(circumstances_.sign.width, 0);
        else if (code == 5002 || code == 5003 || code == 121)
            dots = circumstances_.sign.height;
        else if (code == 11006)
            return assumed.of(Timing::FadeTime);
        else if (code == 12005)
            return assumed.of(Timing::TwinkleTime);
        return {dots / speed.high, dots / speed.likely, dots / speed.low};
    }

    const OneBasedArray<FrameRecord>& frames_;
    const PlayTimeCircumstances& circumstances_;
    std::int32_t number_ = 1;
    std::vector<Open> open_;
};

bool isNear(double one, double other) { return std::abs(one - other) <= 1e-9 * std::max(1.0, std::abs(one)); }
bool isNear(const TimeRange& one, const TimeRange& other) {
    return isNear(one.shortest, other.shortest) && isNear(one.likely, other.likely) &&
           isNear(one.longest, other.longest);
}

void requireSame(const PlayTime& play, const SlowSign& sign) {
    Require(play.playback.steps == sign.steps, "the steps are those of the sign");
    Require(play.playback.isCut == sign.isCut, "both are cut");
    Require(isNear(play.total, sign.time), "the total is that of the sign");
    Require(std::ranges::equal(play.starts, sign.starts,
                               [](double one, double other) { return isNear(one, other); }),
            "each step starts when it does on the sign");
    Require(play.faults.empty(), "all fonts are there");
}

/// Whether nothing but delays takes time, and each frame is shown once.
bool isStill(const Playfile& playfile) {
    return std::ranges::all_of(playfile.frames, [](const FrameRecord& frame) {
        const bool scrolls = std::ranges::any_of(frame.lines, &LineRecord::Scrolling);
        return frame.FrameType == 0 || (frame.PrefixCode == 0 && frame.SuffixCode == 0 && !scrolls);
    });
}

/// More rounds of a loop make it longer by its rounds alone, as often as the loops around it run.
void requireEvenRounds(Playfile playfile, const Loop& loop, const PlayTimeCircumstances& circumstances) {
    const auto withRounds = [&](std::int32_t rounds) {
        playfile.frames.at(loop.firstFrame).PrefixCode = static_cast<std::int16_t>(20000 + rounds);
        return PlayTimeOf(playfile, circumstances);
    };
    const PlayTime one = withRounds(1), two = withRounds(2), four = withRounds(4);
    if (four.playback.isCut)
        return;
    const auto grows = [](double first, double second, double fourth) {
        return isNear(fourth + 2 * first, 3 * second);
    };
    const auto steps = [](const PlayTime& play) { return static_cast<double>(play.playback.steps.size()); };
    Require(grows(steps(one), steps(two), steps(four)), "each round has the same steps");
    Require(grows(one.total.likely, two.total.likely, four.total.likely), "each round takes the same time");
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    host.machine.files().put(host.inLibrary("CustomFonts/five"), fontBytes());
    const PlayTimeCircumstances circumstances = circumstancesOf(input);
    Playfile playfile;
    while (!input.atEnd() && playfile.frames.upperBound() < kMostFrames) {
        playfile.frames.resize(playfile.frames.upperBound() + 1);
        playfile.frames.at(playfile.frames.upperBound()) = frameOf(input);
    }
    SlowSign sign(playfile, circumstances);
    sign.play();
    const PlayTime play = PlayTimeOf(playfile, circumstances);
    requireSame(play, sign);
    const TimeRange& total = play.total;
    Require(total.shortest <= total.likely && total.likely <= total.longest, "times are in order");
    Require(!isStill(playfile) || (total.shortest == total.likely && total.likely == total.longest),
            "what does not move takes a known time");
    const LoopsOfPlayfile found = LoopsOf(playfile);
    for (const Loop& loop : found.loops)
        if (loop.isClosed() && !play.playback.isCut)
            return requireEvenRounds(playfile, loop, circumstances);
}

} // namespace qrtVistrelClasses4
