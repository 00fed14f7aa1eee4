// Tries the history of a playfile: random edits that are recorded, undone and redone, compared with a list of
// copies. Memory sometimes runs out, or is bounded. Argument: the number of histories, each of 1000 turns.
#include "Allocations.h"
#include "fuzz/PlayfileBytes.h"
#include "fuzz/history/Edits.h"
#include <qrtVistrelClasses4/PlayfileHistory.h>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kTurns = 1000;
constexpr int kTurnsToOneSave = 20;
constexpr std::size_t kPlentyOfBytes = 1U << 30U;

void require(bool holds, const char* what) {
    if (!holds)
        throw std::logic_error(std::string("does not hold: ") + what);
}

/// With copies of the frames, whose texts take no more memory than they need.
Playfile playfileOf(const Frames& frames, const std::string& fileName = {}) {
    return {frames, fileName, false};
}

/// The numbers of the frames that differ. Empty if a frame moved between them.
std::vector<std::int32_t> placesOfChanges(const Frames& one, const Frames& other) {
    std::vector<std::int32_t> places;
    for (std::int32_t number = 1; number <= one.upperBound(); ++number)
        if (one.at(number) != other.at(number))
            places.push_back(number);
    for (const std::int32_t from : places)
        for (const std::int32_t to : places)
            if (one.at(from) == other.at(to))
                return {};
    return places;
}

/// A state, and the step that led to it.
struct State {
    Frames frames;
    std::string name;
    std::vector<std::int32_t> places; ///< That changed, if letters were typed.
    PlayfileHistory alone;            ///< Has only this step.
};

class HistoryAndModel {
public:
    explicit HistoryAndModel(Dice& dice)
        : dice_(dice), history_(playfileOf(RandomFrames(dice), "first"), kPlentyOfBytes) {
        states_.push_back({history_.present().frames, "", {}, history_});
    }

    void turn(int number) {
        const unsigned kind = dice_.below(16);
        if (kind < 6)
            record();
        else if (kind < 9)
            typeSome();
        else if (kind < 11)
            goBack();
        else if (kind < 13)
            goOn();
        else if (kind < 14)
            save();
        else if (kind < 15)
            replaceByCopy();
        else
            bound();
        compare();
        if (number % kTurnsToOneSave == 0)
            require(BytesOf(history_.present().frames) == BytesOf(states_[present_].frames),
                    "the saved bytes are equal");
    }

    std::size_t edits = 0, moves = 0, failures = 0, forgotten = 0, extensions = 0;

private:
    /// Calls `work`, at times with less memory than it needs, which must change nothing.
    template <class Work>
    bool attempt(Work work) {
        for (;;) {
            FailAllocation(dice_.once(3) ? static_cast<int>(dice_.below(30)) + 1 : 0);
            try {
                const bool result = work();
                FailAllocation(0);
                return result;
            } catch (const RuntimeError& error) {
                FailAllocation(0);
                require(error.number() == static_cast<int>(ErrorNumber::outOfMemory),
                        "only memory is lacking");
                ++failures;
                compare();
            }
        }
    }

    void record() {
        Playfile next = history_.present();
        EditAtRandom(next.frames, dice_);
        next.fileName = std::to_string(dice_.below(3));
        const std::string name = "edit " + std::to_string(++edits);
        const bool isChanged = attempt([&] { return history_.record(next, name); });
        require(isChanged == (next.frames != states_[present_].frames), "a change is noticed");
        fileName_ = next.fileName;
        if (isChanged)
            append(next.frames, name);
    }

    void typeSome() {
        for (auto count = 1 + dice_.below(3); count > 0; --count) {
            type();
            compare();
        }
    }
    void type() {
        Playfile next = history_.present();
        TypeAtRandom(next.frames, dice_);
        const bool isChanged = attempt([&] { return history_.extend(next, "type"); });
        require(isChanged == (next.frames != states_[present_].frames), "a change is noticed");
        ++edits;
        if (!isChanged)
            return;
        const Frames& last = states_[present_].frames;
        const std::vector<std::int32_t> places = placesOfChanges(last, next.frames);
        if (!mayExtend(places))
            return append(next.frames, "type", places);
        ++extensions;
        states_[present_].alone.extend(next, "type");
        states_[present_].frames = next.frames;
        if (next.frames == states_[present_ - 1].frames) {
            states_.pop_back();
            --present_;
        }
        trim();
    }
    bool mayExtend(const std::vector<std::int32_t>& places) const {
        return present_ > oldest_ && present_ + 1 == states_.size() && saved_ != present_ &&
               states_[present_].name == "type" && !places.empty() && states_[present_].places == places;
    }

    void append(const Frames& frames, const std::string& name, std::vector<std::int32_t> places = {}) {
        states_.resize(present_ + 1, states_.front());
        if (saved_ && *saved_ > present_)
            saved_.reset();
        PlayfileHistory alone(playfileOf(states_[present_].frames));
        alone.record(playfileOf(frames), name);
        states_.push_back({frames, name, std::move(places), std::move(alone)});
        ++present_;
        trim();
    }
    /// Bytes of the steps that are left.
    std::size_t bytesOfSteps() const {
        std::size_t bytes = 0;
        for (std::size_t index = oldest_ + 1; index < states_.size(); ++index)
            bytes += states_[index].alone.bytes();
        return bytes;
    }
    void trim() {
        for (; bytesOfSteps() > history_.mostBytes() && oldest_ < present_; ++forgotten)
            ++oldest_;
        for (; bytesOfSteps() > history_.mostBytes(); ++forgotten)
            states_.pop_back();
    }

    void goBack() {
        for (auto count = dice_.below(6); count > 0; --count, ++moves) {
            const bool isPossible = present_ > oldest_;
            require(attempt([&] { return history_.undo(); }) == isPossible, "undo returns whether it could");
            present_ -= isPossible ? 1 : 0;
            compare();
        }
    }
    void goOn() {
        for (auto count = dice_.below(6); count > 0; --count, ++moves) {
            const bool isPossible = present_ + 1 < states_.size();
            require(attempt([&] { return history_.redo(); }) == isPossible, "redo returns whether it could");
            present_ += isPossible ? 1 : 0;
            compare();
        }
    }
    void save() {
        if (dice_.once(4)) {
            history_.markUnsaved();
            saved_.reset();
            return;
        }
        fileName_ = "saved";
        history_.markSaved(fileName_);
        saved_ = present_;
    }
    void replaceByCopy() {
        PlayfileHistory copy = history_;
        history_.undo();
        history_.record({}, "lost");
        history_ = std::move(copy);
    }
    void bound() {
        const std::size_t bytes = dice_.once(3) ? dice_.below(100'000) : kPlentyOfBytes;
        history_.mostBytes(bytes);
        trim();
    }

    void compare() const {
        const State& state = states_[present_];
        require(history_.present().frames == state.frames, "the present state is that of the list");
        require(history_.present().fileName == fileName_, "the name is the last one");
        require(history_.isSaved() == (saved_ == present_), "the saved state is known");
        require(history_.bytes() <= history_.mostBytes(), "the bound holds");
        require(history_.bytes() == bytesOfSteps(), "the bytes are those of all steps");
        std::vector<std::string> before, after;
        for (std::size_t index = present_; index > oldest_; --index)
            before.push_back(states_[index].name);
        for (std::size_t index = present_ + 1; index < states_.size(); ++index)
            after.push_back(states_[index].name);
        require(history_.undoNames() == before, "the steps before are those of the list");
        require(history_.redoNames() == after, "the steps after are those of the list");
        require(history_.undoName() == (before.empty() ? std::nullopt : std::optional(before.front())),
                "the last step has its name");
        require(history_.redoName() == (after.empty() ? std::nullopt : std::optional(after.front())),
                "the next step has its name");
    }

    Dice& dice_;
    PlayfileHistory history_;
    std::vector<State> states_;
    std::size_t present_ = 0;
    std::size_t oldest_ = 0; ///< That undo leads to.
    std::optional<std::size_t> saved_ = 0;
    std::string fileName_ = "first";
};

void run(int histories) {
    Dice dice;
    std::size_t edits = 0, moves = 0, failures = 0, forgotten = 0, extensions = 0;
    for (int number = 0; number < histories; ++number) {
        HistoryAndModel pair(dice);
        for (int turn = 0; turn < kTurns; ++turn)
            pair.turn(turn);
        edits += pair.edits;
        moves += pair.moves;
        failures += pair.failures;
        forgotten += pair.forgotten;
        extensions += pair.extensions;
    }
    std::cout << edits << " edits, " << extensions << " joined, " << moves << " undone or redone, "
              << forgotten << " forgotten, " << failures << " times without memory\n";
}

} // namespace
} // namespace qrtVistrelClasses4

int main(int count, char** arguments) try {
    if (count != 2) {
        std::cerr << "usage: try_history HISTORIES\n";
        return 2;
    }
    qrtVistrelClasses4::run(std::stoi(arguments[1]));
    return 0;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
