// A property costs as little with the call trace as it does without. Careful code reads or writes the member
// through a cursor that it checks.
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include <qrtVistrelClasses4/CallTrace.h>
#include <qrtVistrelClasses4/FrameInfoClass.h>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostWhenOn = 4;
constexpr double kUsualWhenOn = 3;
constexpr double kMostWhenOff = 1.5;
constexpr double kUsualWhenOff = 1.2;
constexpr double kMostOfCareful = 4;

/// Longer than a string can hold without an allocation.
const std::string kText = "Platform 12, departures until 22:00";

/// Switches the trace of this thread for as long as it lives.
class TraceSwitch {
public:
    explicit TraceSwitch(bool on) : before_(TraceIsOn()) { SwitchTrace(on); }
    ~TraceSwitch() { SwitchTrace(before_); }
    TraceSwitch(const TraceSwitch&) = delete;
    TraceSwitch& operator=(const TraceSwitch&) = delete;

private:
    bool before_;
};

template <class Access>
void registerAccess(const std::string& name, bool traceOn, Access access) {
    RegisterWork(name, [traceOn, access](benchmark::State& state) {
        const TraceSwitch traceSwitch(traceOn);
        FrameInfoClass frames;
        frames.CurrentFrame(1);
        frames.FrameName(kText);
        frames.AudioFile(kText);
        Require(frames.FrameName() == frames.AudioFile(), "the properties hold different texts");
        TimeWork(state, [&] { access(frames); });
    });
}

/// Frames with a cursor, and nothing else.
class PlainFrames {
public:
    template <class Value>
    Value get(Value FrameRecord::*member) const {
        return frames_.at(cursor_ - 1).*member;
    }
    template <class Value>
    void set(Value FrameRecord::*member, const Value& value) {
        frames_.at(cursor_ - 1).*member = value;
    }

private:
    std::vector<FrameRecord> frames_{FrameRecord()};
    std::size_t cursor_ = 1;
};

template <class Access>
void registerCareful(const std::string& name, Access access) {
    RegisterWork(name, [access](benchmark::State& state) {
        PlainFrames frames;
        frames.set(&FrameRecord::FrameName, kText);
        benchmark::DoNotOptimize(&frames);
        TimeWork(state, [&] {
            benchmark::ClobberMemory(); // the cursor may have moved
            access(frames);
        });
    });
}

/// One kind of access: through a traced property, through one of the same kind that is not traced, and to the
/// member itself.
template <class Traced, class Untraced, class Careful>
void compare(std::vector<Ratio>& ratios, const std::string& kind, Traced traced, Untraced untraced,
             Careful careful) {
    const std::string name = "trace/" + kind;
    registerAccess(name + "/on", true, traced);
    registerAccess(name + "/off", false, traced);
    registerAccess(name + "/untraced", true, untraced);
    registerCareful(name + "/careful", careful);
    const auto add = [&](const std::string& which, const std::string& against, Bound bound, double most) {
        ratios.push_back({kind + ", trace " + which, name + "/" + which, name + "/" + against, bound, most});
    };
    add("on", "untraced", Bound::must, kMostWhenOn);
    add("on", "untraced", Bound::aim, kUsualWhenOn);
    add("on", "careful", Bound::aim, kMostOfCareful);
    add("off", "untraced", Bound::must, kMostWhenOff);
    add("off", "untraced", Bound::aim, kUsualWhenOff);
    add("off", "careful", Bound::aim, kMostOfCareful);
}

} // namespace

std::vector<Ratio> TraceSubject() {
    std::vector<Ratio> ratios;
    compare(
        ratios, "get a number", [](FrameInfoClass& frames) { benchmark::DoNotOptimize(frames.FontHeight()); },
        [](FrameInfoClass& frames) { benchmark::DoNotOptimize(frames.AVIFrames()); },
        [](PlainFrames& frames) { benchmark::DoNotOptimize(frames.get(&FrameRecord::FontHeight)); });
    compare(
        ratios, "set a number", [](FrameInfoClass& frames) { frames.FontHeight(16); },
        [](FrameInfoClass& frames) { frames.AVIFrames(16); },
        [](PlainFrames& frames) { frames.set(&FrameRecord::FontHeight, std::int16_t{16}); });
    compare(
        ratios, "get a text", [](FrameInfoClass& frames) { benchmark::DoNotOptimize(frames.FrameName()); },
        [](FrameInfoClass& frames) { benchmark::DoNotOptimize(frames.AudioFile()); },
        [](PlainFrames& frames) { benchmark::DoNotOptimize(frames.get(&FrameRecord::FrameName)); });
    compare(
        ratios, "set a text", [](FrameInfoClass& frames) { frames.FrameName(kText); },
        [](FrameInfoClass& frames) { frames.AudioFile(kText); },
        [](PlainFrames& frames) { frames.set(&FrameRecord::FrameName, kText); });
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
