// Edits of a playfile, compared with a plain list whose rules are written as removals and insertions.
#include "Fuzz.h"
#include <qrtVistrelClasses4/FrameInfoClass.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

using Records = std::vector<FrameRecord>;

/// Counts up as values are drawn from it; flags follow its bits.
class ValueSource {
public:
    explicit ValueSource(int first) : next_(first) {}
    template <class Value>
    void draw(Value& value) {
        if constexpr (std::is_same_v<Value, std::string>)
            value = "text " + std::to_string(next_);
        else if constexpr (std::is_same_v<Value, bool>)
            value = ((next_ ^ (next_ >> 2)) & 1) != 0;
        else
            value = static_cast<Value>(next_ * (sizeof(Value) > 2 ? 65537.25 : 1));
        ++next_;
    }
    template <class Value, std::size_t count>
    void draw(std::array<Value, count>& values) {
        for (Value& value : values)
            draw(value);
    }
    template <class Record>
    void drawAll(Record& record) {
        ForEachRow(kMembersOf<Record>, [&](const auto& row) { draw(record.*row.member); });
    }

private:
    int next_;
};

/// A frame named by a letter, with a value of its own in every other field too.
FrameRecord filledFrame(char name, int lineCount) {
    ValueSource values(200 * (name - 'A' + 1));
    FrameRecord frame;
    values.drawAll(frame);
    frame.FrameName = name;
    frame.lines.resize(lineCount);
    for (LineRecord& line : frame.lines)
        values.drawAll(line);
    return frame;
}

FrameRecord emptyFrame() {
    FrameRecord frame;
    frame.lines.resize(1);
    return frame;
}

/// What `InitFrame` leaves of a frame.
FrameRecord emptied(FrameRecord frame) {
    frame.commandfile = frame.PicturefileName = frame.AudioFile = frame.FrameName = "";
    frame.FrameType = frame.PrefixCode = frame.SuffixCode = 0;
    frame.DelayTime = 0;
    frame.lines = emptyFrame().lines;
    return frame;
}

/// What `frame` becomes when its properties are set on a frame that was `below`. Values that no property sets
/// stay those of `below`.
FrameRecord pastedOver(const FrameRecord& below, FrameRecord frame) {
    frame.SendCommandFileAsIs = frame.SendCommandFileAsIs != 0 ? 1 : 0;
    frame.OverlayFrame = frame.OverlayFrame != 0 ? 1 : 0;
    frame.FastScroll = frame.FastScroll == 1 ? 1 : 0;
    if (frame.SuffixCode == 9999)
        frame.PrefixCode = 9999;
    else if (frame.PrefixCode == 9999)
        frame.PrefixCode = 0;
    frame.FixedNumberOfLines = below.FixedNumberOfLines;
    frame.spareTexts = below.spareTexts;
    frame.spareLongs = below.spareLongs;
    OneBasedArray<LineRecord> linesBelow = below.lines;
    linesBelow.resize(frame.lines.upperBound());
    for (int number = 1; number <= linesBelow.upperBound(); ++number) {
        LineRecord& line = frame.lines.at(number);
        LineRecord& old = linesBelow.at(number);
        line.spareShorts = old.spareShorts;
        line.spareTexts = old.spareTexts;
        line.spareLongs = old.spareLongs;
        line.spareFlags = old.spareFlags;
    }
    return frame;
}

/// The same for a new clipboard, into which `Merge` is never copied.
FrameRecord copied(const FrameRecord& frame) {
    FrameRecord copy = pastedOver(emptyFrame(), frame);
    for (LineRecord& line : copy.lines)
        line.Merge = false;
    return copy;
}

/// Replaces the frames. The cursors stay.
void putRecords(FrameInfoClass& playfile, const Records& frames) {
    Playfile value = playfile.Value();
    value.frames.resize(static_cast<std::int32_t>(frames.size()));
    std::copy(frames.begin(), frames.end(), value.frames.begin());
    playfile.Adopt(std::move(value));
}

Records recordsOf(const FrameInfoClass& playfile) {
    return {playfile.Value().frames.begin(), playfile.Value().frames.end()};
}

/// The first letters of the frames' names in order, "_" for a frame without a name.
std::string orderOf(const Records& frames) {
    std::string order;
    for (const FrameRecord& frame : frames)
        order += frame.FrameName.empty() ? '_' : frame.FrameName.front();
    return order;
}

/// Keeps which procedures put a frame into a playfile ("I") and take one out ("D").
struct KeptSteps final : TraceRecorder {
    void entered(const TraceLine& line) override {
        if (line.procedure == "Sub InsertFrame" || line.procedure == "Sub DeleteCurrentFrame")
            steps += line.procedure[4];
    }
    void left(const TraceLine&) override {}

    std::string steps;
};

/// A playfile as a list, its clipboard, the errors that its operations report, and their steps.
struct ListModel {
    Records frames, clipboard;
    int cursor = 0, cursorOfClipboard = 0, allowed = 0;
    Numbers errors;
    std::string steps;

    int size() const { return static_cast<int>(frames.size()); }
    bool holds(int number) const { return number >= 1 && number <= size(); }
    FrameRecord& frame(int number) { return frames.at(static_cast<std::size_t>(number - 1)); }
    Records::iterator place(int number) { return frames.begin() + (number - 1); }
    void fail() { errors.push_back(9); }

    void makeLinesValid() {
        for (FrameRecord& each : frames)
            if (each.lines.empty())
                each.lines = emptyFrame().lines;
    }
    void resize(int count) {
        frames.resize(static_cast<std::size_t>(count));
        makeLinesValid();
    }
    void insert(bool& last) {
        steps += 'I';
        if (!last && cursor < 1) {
            frames.insert(frames.begin(), frames.empty() ? FrameRecord() : frames.front());
            return fail();
        }
        if (!last && holds(cursor))
            frames.insert(place(cursor), FrameRecord(frame(cursor)));
        else
            frames.emplace_back();
        cursor += last ? 1 : 0;
        last = last || cursor == size() - 1;
        makeLinesValid();
        if (!holds(cursor))
            return fail();
        frame(cursor) = emptied(frame(cursor));
    }
    void erase() {
        steps += 'D';
        if (!holds(cursor))
            return fail();
        frames.erase(place(cursor));
        if (frames.empty())
            frames.push_back(emptyFrame());
        cursor = std::max(cursor - 1, 1);
    }
    void move(int from, int whereTo) {
        if (from == whereTo)
            return;
        if (!holds(from) || !holds(whereTo))
            return fail();
        const FrameRecord taken = frame(from);
        frames.erase(place(from));
        frames.insert(place(whereTo), taken);
    }
    /// Whether the range was one of frames.
    bool copy(int& from, int& to) {
        clipboard.assign(20, emptyFrame());
        cursorOfClipboard = 0;
        std::tie(from, to) = std::minmax({from, to});
        if (!holds(from) || !holds(to))
            return false;
        clipboard.clear();
        std::transform(place(from), place(to + 1), std::back_inserter(clipboard), copied);
        cursorOfClipboard = to - from + 1;
        return true;
    }
    void cut(int& from, int& to) {
        if (!copy(from, to))
            return;
        frames.erase(place(from), place(to + 1));
        if (frames.empty())
            frames.push_back(emptyFrame());
        cursor = std::max(from - 1, 1);
        steps.append(clipboard.size(), 'D');
    }
    void paste(int at) {
        cursor = at;
        const int count = static_cast<int>(clipboard.size());
        for (int room = std::min(count, allowed - size()); room > 0; --room) {
            bool last = false;
            insert(last);
        }
        const int fitting = std::min(count, allowed - at + 1);
        for (int index = 0; index < fitting; ++index) {
            cursorOfClipboard = index + 1;
            if (holds(at + index))
                frame(at + index) =
                    pastedOver(frame(at + index), clipboard.at(static_cast<std::size_t>(index)));
            else
                fail();
        }
    }
};

/// A playfile and its model. Both get the same operations.
class PlayfileAndModel {
public:
    explicit PlayfileAndModel(FuzzedInput& input) : input_(input) {
        for (int count = below(7); count > 0; --count)
            model_.frames.push_back(randomFrame());
        putRecords(playfile_, model_.frames);
        setAllowed();
    }

    /// Does one thing to both.
    void step() {
        const int kind = below(13);
        const int a = anyNumber();
        const int b = anyNumber();
        if (model_.size() > 9)
            resize(below(6));
        else if (kind < 2)
            setCursor(a);
        else if (kind < 4)
            insert(b % 2 == 0);
        else if (kind < 6)
            erase();
        else if (kind < 8)
            move(a, b);
        else if (kind < 10)
            take(a, b, kind == 8);
        else if (kind < 11)
            paste(a);
        else if (kind < 12)
            refill(a);
        else
            setAllowed();
    }

    /// What differs since the last step; nothing when they agree.
    std::string difference(KeptReports& reports, KeptSteps* recorder) {
        std::string parts = std::exchange(difference_, {});
        if (recordsOf(playfile_) != model_.frames)
            parts += " frames, now " + orderOf(recordsOf(playfile_));
        if (playfile_.CurrentFrame() != model_.cursor)
            parts += " cursor, now " + std::to_string(playfile_.CurrentFrame());
        if (clipboard_ && (recordsOf(*clipboard_) != model_.clipboard ||
                           clipboard_->CurrentFrame() != model_.cursorOfClipboard))
            parts += " clipboard, now " + orderOf(recordsOf(*clipboard_));
        if (reports.takeNumbers() != std::exchange(model_.errors, {}))
            parts += " errors";
        if (recorder && recorder->steps != model_.steps)
            parts += " steps " + recorder->steps;
        return parts;
    }

private:
    int below(unsigned bound) { return static_cast<int>(input_.byte() % bound); }
    /// Mostly of a frame, or just beyond either end.
    int anyNumber() {
        return below(50) == 0 ? below(256) * 256 + below(256) - 32768
                              : below(static_cast<unsigned>(model_.size()) + 5) - 2;
    }
    FrameRecord randomFrame() {
        const auto name = static_cast<char>('A' + below(26));
        FrameRecord frame = filledFrame(name, below(4));
        const std::int16_t flags[] = {0, 1, -1, 7};
        frame.FastScroll = flags[below(4)];
        frame.OverlayFrame = flags[below(4)];
        frame.SendCommandFileAsIs = flags[below(4)];
        for (std::int16_t* code : {&frame.PrefixCode, &frame.SuffixCode})
            if (below(3) == 0)
                *code = 9999;
        return frame;
    }

    static std::int16_t toShort(int number) { return static_cast<std::int16_t>(number); }
    void setCursor(int number) {
        model_.cursor = number;
        playfile_.CurrentFrame(toShort(number));
    }
    void setAllowed() {
        model_.allowed = below(10);
        playfile_.TotalFramesAllowed(toShort(model_.allowed));
    }
    void resize(int count) {
        model_.resize(count);
        playfile_.TotalFrames(toShort(count));
    }
    void insert(bool last) {
        if (model_.cursor == 32767)
            return; // no number follows
        bool lastOfModel = last;
        model_.insert(lastOfModel);
        playfile_.InsertFrame(last);
        if (last != lastOfModel)
            difference_ += " whether it was the last";
    }
    void erase() {
        model_.erase();
        playfile_.DeleteCurrentFrame();
    }
    void move(int from, int whereTo) {
        model_.move(from, whereTo);
        playfile_.MoveFrame(toShort(from), toShort(whereTo));
    }
    void take(int from, int to, bool cut) {
        auto first = toShort(from);
        auto last = toShort(to);
        if (cut) {
            model_.cut(from, to);
            playfile_.CutInfo(first, last, clipboard_);
        } else {
            model_.copy(from, to);
            playfile_.CopyInfo(first, last, clipboard_);
        }
        if (first != from || last != to)
            difference_ += " range";
    }
    void paste(int at) {
        if (clipboard_)
            model_.paste(at);
        playfile_.PasteInfo(toShort(at), clipboard_.get());
    }
    /// Puts other content into a frame, of the playfile or of the clipboard.
    void refill(int number) {
        const bool ofClipboard = clipboard_ && below(2) == 0;
        Records& frames = ofClipboard ? model_.clipboard : model_.frames;
        if (number < 1 || static_cast<std::size_t>(number) > frames.size())
            return;
        frames[static_cast<std::size_t>(number - 1)] = randomFrame();
        putRecords(ofClipboard ? *clipboard_ : playfile_, frames);
    }

    FuzzedInput& input_;
    FrameInfoClass playfile_;
    std::shared_ptr<FrameInfoClass> clipboard_;
    ListModel model_;
    std::string difference_;
};

/// Without a recorder many frames may be put in and taken out in one step, with the same result.
void edit(FuzzedInput input, bool isRecorded) {
    TestHost host;
    KeptSteps steps;
    std::optional<ScopedTraceRecorder> scope;
    PlayfileAndModel pair(input);
    if (isRecorded)
        scope.emplace(steps);
    for (int step = 0; step < 100 && !input.atEnd(); ++step) {
        pair.step();
        const std::string difference = pair.difference(host.reports, isRecorded ? &steps : nullptr);
        Require(difference.empty(), difference.c_str());
    }
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    edit(input, false);
    edit(input, true);
}

} // namespace qrtVistrelClasses4
