// Frames inserted, deleted and moved: records change places, whatever their content.
#include "bench/SamplePlayfile.h"
#include "bench/Subjects.h"
#include "bench/Timing.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr double kMostOfVector = 1.3;
constexpr double kMostOfLimit = 4;

/// The frames as one would keep them without this library.
using Records = std::vector<FrameRecord>;

void insertFirst(FrameInfoClass& frames) {
    frames.CurrentFrame(1);
    frames.InsertFrame();
}
void insertFirst(Records& frames) {
    FrameRecord empty;
    empty.lines.resize(1);
    frames.insert(frames.begin(), std::move(empty));
}

void deleteFirst(FrameInfoClass& frames) {
    frames.CurrentFrame(1);
    frames.DeleteCurrentFrame();
}
void deleteFirst(Records& frames) { frames.erase(frames.begin()); }

void moveFirstToEnd(FrameInfoClass& frames) { frames.MoveFrame(1, frames.TotalFrames()); }
void moveFirstToEnd(Records& frames) { std::rotate(frames.begin(), frames.begin() + 1, frames.end()); }

void moveLastToFront(FrameInfoClass& frames) { frames.MoveFrame(frames.TotalFrames(), 1); }
void moveLastToFront(Records& frames) { std::rotate(frames.begin(), frames.end() - 1, frames.end()); }

/// An edit, and the one that takes it back.
template <class Frames>
struct Edit {
    void (*work)(Frames&);
    void (*undo)(Frames&);
};

/// Names of the frames and how many lines they have.
using Outline = std::vector<std::pair<std::string, std::int32_t>>;

Outline outlineOf(FrameInfoClass& frames) {
    Outline outline;
    for (std::int16_t number = 1; number <= frames.TotalFrames(); ++number) {
        frames.CurrentFrame(number);
        outline.emplace_back(frames.FrameName(), frames.TotalLinesAllowed());
    }
    return outline;
}
Outline outlineOf(const Records& frames) {
    Outline outline;
    for (const FrameRecord& frame : frames)
        outline.emplace_back(frame.FrameName, frame.lines.upperBound());
    return outline;
}

/// Frames of the usual size, for either contestant.
template <class Frames>
std::unique_ptr<Frames> makeFrames(const BenchFolder& folder);
template <>
std::unique_ptr<FrameInfoClass> makeFrames(const BenchFolder& folder) {
    return MakePlayfile(kUsual, folder);
}
template <>
std::unique_ptr<Records> makeFrames(const BenchFolder& folder) {
    const Frames frames = MakeFrames(kUsual, folder);
    return std::make_unique<Records>(frames.begin(), frames.end());
}

template <class Frames>
Outline outlineAfter(Edit<Frames> edit, const BenchFolder& folder) {
    const auto frames = makeFrames<Frames>(folder);
    edit.work(*frames);
    return outlineOf(*frames);
}

template <class Frames>
void registerEdit(const std::string& name, Edit<Frames> edit, const BenchFolder& folder) {
    RegisterWork(name, [edit, &folder](benchmark::State& state) {
        const auto frames = makeFrames<Frames>(folder);
        TimeWork(
            state, [&] { edit.work(*frames); }, [&] { edit.undo(*frames); });
    });
}

/// Moves every record to the place of its neighbour, as bytes.
void registerLimit(const std::string& name) {
    RegisterWork(name, [](benchmark::State& state) {
        constexpr std::size_t size = kUsual.frames * sizeof(FrameRecord);
        std::vector<char> bytes(size + sizeof(FrameRecord));
        char* const first = bytes.data();
        char* const second = first + sizeof(FrameRecord);
        const auto move = [](char* to, const char* from) {
            std::memmove(to, from, size);
            benchmark::ClobberMemory();
        };
        TimeWork(
            state, [&] { move(second, first); }, [&] { move(first, second); });
    });
}

} // namespace

std::vector<Ratio> EditSubject(const BenchFolder& folder) {
    const std::string limit = "edit/limit";
    registerLimit(limit);
    std::vector<Ratio> ratios;
    const auto compare = [&](const std::string& kind, Edit<FrameInfoClass> own, Edit<Records> peer) {
        Require(outlineAfter(own, folder) == outlineAfter(peer, folder), kind + " leaves other frames");
        const std::string name = "edit/" + kind;
        registerEdit(name, own, folder);
        registerEdit(name + "/vector", peer, folder);
        ratios.push_back({kind, name, name + "/vector", Bound::aim, kMostOfVector});
        ratios.push_back({kind, name, limit, Bound::aim, kMostOfLimit});
    };
    compare("insert at front", {insertFirst, deleteFirst}, {insertFirst, deleteFirst});
    compare("delete at front", {deleteFirst, insertFirst}, {deleteFirst, insertFirst});
    compare("move to end", {moveFirstToEnd, moveLastToFront}, {moveFirstToEnd, moveLastToFront});
    compare("move to front", {moveLastToFront, moveFirstToEnd}, {moveLastToFront, moveFirstToEnd});
    return ratios;
}

} // namespace qrtVistrelClasses4::bench
