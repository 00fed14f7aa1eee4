// Keeping the states of a playfile for undo, compared with keeping whole copies.
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include <qrtVistrelClasses4/PlayfileHistory.h>

#include <memory>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfCopy = 1;
constexpr double kMostOfComparison = 1.3;
constexpr double kMostBytesOfCopy = 0.01;

/// Two states of a playfile between which one edit lies.
struct States {
    Playfile before, after;
};

States withFrameChanged(PlayfileSize size, const BenchFolder& folder) {
    States states{{MakeFrames(size, folder), {}}, {}};
    states.after = states.before;
    states.after.frames.at(size.frames / 2).lines.at(1).CurrentLineText += "S";
    return states;
}
States withFrameMoved(PlayfileSize size, const BenchFolder& folder) {
    States states{{MakeFrames(size, folder), {}}, {}};
    states.after = states.before;
    states.after.frames.move(1, size.frames);
    return states;
}

/// The bytes of one step. The step from no frames to all of them has a copy of all of them.
std::size_t bytesOfStep(const Playfile& before, const Playfile& after) {
    PlayfileHistory history(before, static_cast<std::size_t>(-1));
    history.record(after, "Step");
    Require(history.undo() && history.present() == before && history.redo() && history.present() == after,
            "a step leads to other states");
    return history.bytes();
}

void registerBytes(const std::string& name, const std::shared_ptr<const States>& states) {
    if (AreInstructionsCounted())
        return;
    benchmark::RegisterBenchmark(name.c_str(),
                                 [name, states](benchmark::State& state) {
                                     for (auto _ : state) {
                                         Measured()[name] =
                                             static_cast<double>(bytesOfStep(states->before, states->after));
                                         Measured()[name + "/copy"] =
                                             static_cast<double>(bytesOfStep({}, states->after));
                                     }
                                 })
        ->Iterations(1)
        ->Repetitions(1);
}

void registerRecording(const std::string& name, const std::shared_ptr<const States>& states) {
    RegisterWork(name, [states](benchmark::State& state) {
        PlayfileHistory history(states->before);
        bool isAfter = false;
        TimeWork(state, [&] {
            isAfter = !isAfter;
            Require(history.record(isAfter ? states->after : states->before, "Step"), "no change is found");
        });
    });
    RegisterWork(name + "/undo", [states](benchmark::State& state) {
        PlayfileHistory history(states->before);
        history.record(states->after, "Step");
        TimeWork(state, [&] { Require(history.undo() && history.redo(), "nothing can be undone"); });
    });
    RegisterWork(name + "/copy", [states](benchmark::State& state) {
        TimeMaking(state, [&] { return std::make_unique<Frames>(states->after.frames); });
    });
    RegisterWork(name + "/comparison", [states](benchmark::State& state) {
        const Frames other = states->before.frames;
        TimeWork(state, [&] { Require(other == states->before.frames, "a copy differs"); });
    });
}

} // namespace

std::vector<Ratio> HistorySubject(const BenchFolder& folder) {
    std::vector<Ratio> ratios;
    for (const PlayfileSize size : {kUsual, kLarge}) {
        const std::string change = "history/change/" + size.name(), move = "history/move/" + size.name();
        const auto changed = std::make_shared<const States>(withFrameChanged(size, folder));
        const auto moved = std::make_shared<const States>(withFrameMoved(size, folder));
        registerRecording(change, changed);
        registerRecording(move, moved);
        registerBytes(change + "/bytes", changed);
        registerBytes(move + "/bytes", moved);
        const auto add = [&](const std::string& subject, const std::string& job, const std::string& against,
                             Bound bound, double most) {
            ratios.push_back({subject + " " + size.name(), job, against, bound, most});
        };
        add("record a change in", change, change + "/copy", Bound::must, kMostOfCopy);
        add("record a change in", change, change + "/comparison", Bound::aim, kMostOfComparison);
        add("undo, redo a change in", change + "/undo", change + "/copy", Bound::must, kMostOfCopy);
        add("record a move in", move, move + "/copy", Bound::aim, kMostOfCopy);
        add("undo, redo a move in", move + "/undo", move + "/copy", Bound::aim, kMostOfCopy);
        for (const std::string& job : {change, move})
            add("bytes of a step in", job + "/bytes", job + "/bytes/copy", Bound::must, kMostBytesOfCopy);
    }
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
