// Editing, held against a plain list that has its rules in terms of taking out and putting in.
#pragma once

#include "PlayfileRecords.h"
#include "TestHost.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <tuple>
#include <utility>

namespace qrtVistrelClasses4 {

/// A playfile as a list, its clipboard, and the errors that its operations report.
struct ListModel {
    Records frames, clipboard;
    int cursor = 0, allowed = 0;
    Numbers errors;

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
        std::tie(from, to) = std::minmax({from, to});
        if (!holds(from) || !holds(to))
            return false;
        clipboard.clear();
        std::transform(place(from), place(to + 1), std::back_inserter(clipboard), copied);
        return true;
    }
    void cut(int& from, int& to) {
        if (!copy(from, to))
            return;
        frames.erase(place(from), place(to + 1));
        if (frames.empty())
            frames.push_back(emptyFrame());
        cursor = std::max(from - 1, 1);
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
            if (holds(at + index))
                frame(at + index) =
                    carriedOver(frame(at + index), clipboard.at(static_cast<std::size_t>(index)));
            else
                fail();
        }
    }
};

/// A playfile and its model, which are told the same.
class PlayfileAndModel {
public:
    /// `random` gives any numbers.
    explicit PlayfileAndModel(std::function<unsigned()> random) : random_(std::move(random)) {
        for (int count = below(7); count > 0; --count)
            model_.frames.push_back(randomFrame());
        putRecords(playfile_, model_.frames);
        setAllowed();
    }

    /// Does one thing to both, and says what it was.
    std::string step() {
        const int kind = below(13);
        const int a = anyNumber();
        const int b = anyNumber();
        const std::string what = std::to_string(kind) + " " + std::to_string(a) + " " + std::to_string(b) +
                                 " at " + std::to_string(model_.cursor) + " of " + orderOf(model_.frames);
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
        return what;
    }

    /// What differs since the last step; nothing when they agree.
    std::string difference(KeptReports& reports) {
        std::string parts = std::exchange(difference_, {});
        if (recordsOf(playfile_) != model_.frames)
            parts += " frames, now " + orderOf(recordsOf(playfile_));
        if (playfile_.CurrentFrame() != model_.cursor)
            parts += " cursor, now " + std::to_string(playfile_.CurrentFrame());
        if (clipboard_ && recordsOf(*clipboard_) != model_.clipboard)
            parts += " clipboard, now " + orderOf(recordsOf(*clipboard_));
        if (reports.takeNumbers() != std::exchange(model_.errors, {}))
            parts += " errors";
        return parts;
    }

private:
    int below(unsigned bound) { return static_cast<int>(random_() % bound); }
    /// Mostly of a frame, or just beyond either end.
    int anyNumber() {
        return below(50) == 0 ? below(65536) - 32768 : below(static_cast<unsigned>(model_.size()) + 5) - 2;
    }
    FrameRecord randomFrame() {
        FrameRecord frame = filledFrame(static_cast<char>('A' + below(26)), below(4));
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
            return; // a number that none follows is for the tables
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

    std::function<unsigned()> random_;
    FrameInfoClass playfile_;
    std::shared_ptr<FrameInfoClass> clipboard_;
    ListModel model_;
    std::string difference_;
};

} // namespace qrtVistrelClasses4
