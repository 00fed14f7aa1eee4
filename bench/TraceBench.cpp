// A property costs as little with the call trace as it does without.
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include <qrtVistrelClasses4/CallTrace.h>
#include <qrtVistrelClasses4/FrameInfoClass.h>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostWhenOn = 4.0;
constexpr double kMostWhenOff = 1.3;

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
std::string registerAccess(const std::string& name, bool traceOn, Access access) {
    RegisterWork(name, [traceOn, access](benchmark::State& state) {
        const TraceSwitch traceSwitch(traceOn);
        FrameInfoClass frames;
        frames.CurrentFrame(1);
        frames.FrameName(kText);
        frames.AudioFile(kText);
        Require(frames.FrameName() == frames.AudioFile(), "the properties hold different texts");
        TimeWork(state, [&] { access(frames); });
    });
    return name;
}

/// One kind of access: through a traced property, and through one of the same kind that is not traced.
template <class Traced, class Untraced>
void compare(std::vector<Ratio>& ratios, const std::string& kind, Traced traced, Untraced untraced) {
    const std::string name = "trace/" + kind;
    const std::string plain = registerAccess(name + "/untraced", true, untraced);
    ratios.push_back(
        {kind + ", trace on", registerAccess(name + "/on", true, traced), plain, Bound::aim, kMostWhenOn});
    ratios.push_back({kind + ", trace off", registerAccess(name + "/off", false, traced), plain, Bound::aim,
                      kMostWhenOff});
}

} // namespace

std::vector<Ratio> TraceSubject() {
    std::vector<Ratio> ratios;
    compare(
        ratios, "get a number", [](FrameInfoClass& frames) { benchmark::DoNotOptimize(frames.FontHeight()); },
        [](FrameInfoClass& frames) { benchmark::DoNotOptimize(frames.AVIFrames()); });
    compare(
        ratios, "set a number", [](FrameInfoClass& frames) { frames.FontHeight(16); },
        [](FrameInfoClass& frames) { frames.AVIFrames(16); });
    compare(
        ratios, "get a text", [](FrameInfoClass& frames) { benchmark::DoNotOptimize(frames.FrameName()); },
        [](FrameInfoClass& frames) { benchmark::DoNotOptimize(frames.AudioFile()); });
    compare(
        ratios, "set a text", [](FrameInfoClass& frames) { frames.FrameName(kText); },
        [](FrameInfoClass& frames) { frames.AudioFile(kText); });
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
