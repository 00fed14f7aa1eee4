#include <qrtVistrelClasses4/PlayfileHistory.h>

#include "frame/Traced.h"
#include "playfile/FrameChange.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

template <class Iterator>
std::vector<std::string> namesOfSteps(Iterator step, Iterator end) {
    std::vector<std::string> names;
    for (; step != end; ++step)
        names.push_back(step->name);
    return names;
}

} // namespace

struct PlayfileHistory::Step {
    std::string name;
    FrameChange change;    ///< From the state that is nearer to the present one.
    std::size_t bytes = 0; ///< Of the step, done or undone, whichever takes more.

    /// Sets `bytes`. The frames that `change` does not keep now take `other`.
    void measure(std::size_t other) {
        constexpr std::size_t links = 2 * sizeof(void*); // of the list that has the step
        bytes = BytesOfBlock(sizeof(Step) + links) + BytesOfText(name) + BytesOfShared(change) +
                std::max(BytesOfAdded(change), other);
    }

    /// Whether `next`, which is still to be made, has the same name, changes the same frames, and neither
    /// moves any.
    bool isExtendedBy(const Step& next) const {
        return next.name == name && next.change.first == change.first &&
               next.change.before == change.before && next.change.shared == change.shared &&
               change.isInPlace();
    }
};

PlayfileHistory::PlayfileHistory(Playfile first, std::size_t mostBytes)
    : present_(std::move(first)), mostBytes_(mostBytes) {}
PlayfileHistory::PlayfileHistory(const PlayfileHistory& other) = default;
PlayfileHistory::PlayfileHistory(PlayfileHistory&& other) noexcept = default;
PlayfileHistory::~PlayfileHistory() = default;

PlayfileHistory& PlayfileHistory::operator=(PlayfileHistory other) noexcept {
    std::swap(present_, other.present_);
    done_.swap(other.done_);
    undone_.swap(other.undone_);
    mostBytes_ = other.mostBytes_;
    bytes_ = other.bytes_;
    position_ = other.position_;
    saved_ = other.saved_;
    return *this;
}

bool PlayfileHistory::record(const Playfile& next, std::string name) {
    return untraced([&] { return makePresent(next, std::move(name), false); });
}

bool PlayfileHistory::extend(const Playfile& next, std::string name) {
    return untraced([&] { return makePresent(next, std::move(name), true); });
}

bool PlayfileHistory::makePresent(const Playfile& next, std::string name, bool mayExtend) {
    std::string fileName = next.fileName;
    const bool isLegacy = next.isLegacy;
    std::optional<FrameChange> change = ChangeBetween(present_.frames, next.frames);
    if (change) {
        std::list<Step> made;
        Step& step = made.emplace_back(Step{std::move(name), std::move(*change)});
        if (mayExtend && !done_.empty() && undone_.empty() && !isSaved() && done_.back().isExtendedBy(step))
            extendLast(step);
        else
            append(made);
        trim();
    }
    present_.fileName = std::move(fileName);
    present_.isLegacy = isLegacy;
    return change.has_value();
}

void PlayfileHistory::extendLast(Step& made) {
    Step& last = done_.back();
    const bool isBack = last.change.added == made.change.added;
    const std::size_t after = made.change.after, bytesAfter = BytesOfAdded(made.change);
    MakeChange(present_.frames, made.change);
    if (isBack && last.change.after == after) {
        forget(done_, std::prev(done_.end()));
        --position_;
        return;
    }
    last.change.before = after;
    bytes_ -= last.bytes;
    last.measure(bytesAfter);
    bytes_ += last.bytes;
}

void PlayfileHistory::append(std::list<Step>& made) {
    Step& step = made.front();
    const std::size_t bytesAfter = BytesOfAdded(step.change);
    MakeChange(present_.frames, step.change);
    step.measure(bytesAfter);
    while (!undone_.empty())
        forget(undone_, undone_.begin());
    if (saved_ > position_)
        saved_.reset();
    ++position_;
    bytes_ += step.bytes;
    done_.splice(done_.end(), made);
}

void PlayfileHistory::forget(std::list<Step>& steps, std::list<Step>::const_iterator step) {
    bytes_ -= step->bytes;
    steps.erase(step);
}

void PlayfileHistory::trim() {
    while (bytes_ > mostBytes_ && !done_.empty())
        forget(done_, done_.begin());
    while (bytes_ > mostBytes_ && !undone_.empty())
        forget(undone_, std::prev(undone_.end()));
}

bool PlayfileHistory::undo() {
    return untraced([&] {
        if (done_.empty())
            return false;
        MakeChange(present_.frames, done_.back().change);
        undone_.splice(undone_.begin(), done_, std::prev(done_.end()));
        --position_;
        return true;
    });
}

bool PlayfileHistory::redo() {
    return untraced([&] {
        if (undone_.empty())
            return false;
        MakeChange(present_.frames, undone_.front().change);
        done_.splice(done_.end(), undone_, undone_.begin());
        ++position_;
        return true;
    });
}

std::optional<std::string> PlayfileHistory::undoName() const {
    return untraced([&] { return done_.empty() ? std::nullopt : std::optional(done_.back().name); });
}

std::optional<std::string> PlayfileHistory::redoName() const {
    return untraced([&] { return undone_.empty() ? std::nullopt : std::optional(undone_.front().name); });
}

std::vector<std::string> PlayfileHistory::undoNames() const {
    return untraced([&] { return namesOfSteps(done_.rbegin(), done_.rend()); });
}

std::vector<std::string> PlayfileHistory::redoNames() const {
    return untraced([&] { return namesOfSteps(undone_.begin(), undone_.end()); });
}

void PlayfileHistory::markSaved(std::string fileName) {
    present_.fileName = std::move(fileName);
    saved_ = position_;
}

void PlayfileHistory::mostBytes(std::size_t bytes) {
    mostBytes_ = bytes;
    trim();
}

} // namespace qrtVistrelClasses4
