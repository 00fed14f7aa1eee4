#include "fuzz/rules/Faults.h"

#include "playfile/Effects.h"

#include <array>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

using enum NEW_FRAME_TYPES;

FrameRecord& insertAt(Patient& patient, std::int32_t place, NEW_FRAME_TYPES kind) {
    OneBasedArray<FrameRecord>& frames = patient.frames();
    frames.resize(frames.upperBound() + 1);
    frames.moveUp(place);
    return frames.at(place) = ValidFrame(patient.world, patient.dice, kind);
}

/// Nested loops of 99 rounds around frames of 10 seconds.
void nest(Patient& it, int depth) {
    for (int start = 0; start < depth; ++start)
        it.append(FRAME_TEXT).PrefixCode = kLoopLimit - 1;
    for (int end = 0; end < depth; ++end) {
        FrameRecord& frame = it.append(FRAME_TEXT);
        frame.SuffixCode = kEndLoop;
        frame.DelayTime = 10;
    }
}

FrameRecord& graphic(Patient& it, const std::string& file, std::int16_t pictures = 0) {
    FrameRecord& frame = it.insert(FRAME_GRAPHIC);
    frame.PicturefileName = file.empty() ? file : it.world.file(file);
    frame.AVIFrames = pictures;
    return frame;
}
void command(Patient& it, const std::string& file) {
    it.insert(FRAME_CMD).commandfile = file.empty() ? file : it.world.file(file);
}
void sound(Patient& it, const std::string& file) { it.insert(FRAME_TEXT).AudioFile = it.world.file(file); }
void text(Patient& it, std::string_view text) {
    it.insertLine().CurrentLineText = "Now " + std::string(text);
}
void font(Patient& it, std::int16_t number, const std::string& file) {
    LineRecord& line = it.insertLine();
    line.LineFontSize = number;
    line.LineCustomFont = file;
}
/// Every read of a file of that name fails.
void failReadsOf(Patient& it, const std::string& name) {
    it.world.host.machine.files().observer = [path = it.world.file(name)](const FileOperation& operation) {
        return operation.kind == FileOperation::read && operation.path == path ? SystemError::accessDenied
                                                                               : SystemError::none;
    };
}

constexpr Fault kFaults[] = {
    {"read-incompletely",
     [](Patient& it) {
         it.onLoaded = [](LoadOutcome& outcome) {
             outcome.isComplete = false;
             outcome.error = FileError{RuntimeError(ErrorNumber::typeMismatch), 7};
         };
     }},
    {"legacy-loss",
     [](Patient& it) {
         it.onLoaded = [](LoadOutcome& outcome) {
             outcome.legacy.emplace(LegacyDetails{true, 1, 0, {{1, "width 128"}}, {}});
         };
     }},
    {"reference-moved", [](Patient& it) { graphic(it, "").PicturefileName = "elsewhere/still.bmp"; }},
    {"no-used-frame",
     [](Patient& it) {
         for (FrameRecord& frame : it.frames())
             EmptyFrame(frame);
     }},
    {"blank-between-frames",
     [](Patient& it) {
         EmptyFrame(it.append(FRAME_TEXT));
         insertAt(it, CountUsedFrames(it.playfile) + 2, FRAME_TEXT);
     }},
    {"name-given-twice",
     [](Patient& it) {
         it.append(FRAME_TEXT).FrameName = "Gate";
         it.insert(FRAME_TEXT).FrameName = "Gate";
     }},
    {"only-command-files",
     [](Patient& it) {
         for (FrameRecord& frame : it.frames())
             EmptyFrame(frame);
         command(it, "settime.cmd");
     }},
    {"too-many-frames",
     [](Patient& it) { it.known.framesAllowed = static_cast<std::int16_t>(it.frames().upperBound() - 1); }},
    {"unknown-frame-type",
     [](Patient& it) {
         it.insert(FRAME_TEXT).FrameType = it.dice.once(2) ? std::int16_t{5} : std::int16_t{-1};
     }},

    {"loop-without-end", [](Patient& it) { it.insert(FRAME_TEXT).PrefixCode = kLoopBase + 3; }},
    {"end-without-start", [](Patient& it) { it.insert(FRAME_TEXT).SuffixCode = kEndLoop; }},
    {"loop-reversed",
     [](Patient& it) {
         it.append(FRAME_TEXT).SuffixCode = kEndLoop;
         it.append(FRAME_TEXT).PrefixCode = kLoopBase + 3;
     }},
    {"loop-nested", [](Patient& it) { nest(it, 2); }},
    {"loop-without-count", [](Patient& it) { it.insert(FRAME_TEXT).PrefixCode = kLoopBase; }},
    {"loop-count-too-large",
     [](Patient& it) {
         it.insert(FRAME_TEXT).PrefixCode = static_cast<std::int16_t>(kLoopLimit + it.dice.below(900));
     }},
    {"loop-once",
     [](Patient& it) {
         FrameRecord& frame = it.insert(FRAME_TEXT);
         frame.PrefixCode = kLoopBase + 1;
         frame.SuffixCode = kEndLoop;
     }},
    {"empty-loop",
     [](Patient& it) {
         FrameRecord& frame = it.append(FRAME_TEXT);
         frame.PrefixCode = kLoopBase + 4;
         frame.SuffixCode = kEndLoop;
         frame.AudioFile.clear();
         frame.lines = OneBasedArray<LineRecord>(1);
     }},
    {"loop-in-blank-frame",
     [](Patient& it) {
         FrameRecord& frame = it.insert(FRAME_TEXT);
         EmptyFrame(frame);
         (it.dice.once(2) ? frame.PrefixCode : frame.SuffixCode) = kEndLoop;
     }},
    {"loops-beyond-a-day", [](Patient& it) { nest(it, 2); }},
    {"playback-too-long", [](Patient& it) { nest(it, 3); }},

    {"unknown-prefix", [](Patient& it) { it.insert(FRAME_TEXT).PrefixCode = 1003; }},
    {"unknown-suffix",
     [](Patient& it) {
         it.insert(FRAME_TEXT).SuffixCode = it.dice.once(2) ? std::int16_t{-2} : std::int16_t{20007};
     }},
    {"old-wipe-code",
     [](Patient& it) {
         FrameRecord& frame = it.insert(FRAME_TEXT);
         (it.dice.once(2) ? frame.PrefixCode : frame.SuffixCode) = kOldWipe;
     }},
    {"reveal-reversed",
     [](Patient& it) {
         FrameRecord& frame = it.insert(FRAME_TEXT);
         frame.PrefixCode = it.dice.once(2) ? 10 : 0;
         frame.SuffixCode = frame.PrefixCode == 0 ? 5 : 0;
     }},
    {"photorealistic-one-sided",
     [](Patient& it) {
         FrameRecord& frame = it.insert(FRAME_TEXT);
         const bool isPrefix = it.dice.once(2);
         (isPrefix ? frame.PrefixCode : frame.SuffixCode) = kPhotoRealistic;
         (isPrefix ? frame.SuffixCode : frame.PrefixCode) =
             it.dice.once(2) ? std::int16_t{0} : std::int16_t{1000};
     }},
    {"effect-not-offered",
     [](Patient& it) {
         it.known.offeredEffects->prefixes = {0};
         it.insert(FRAME_TEXT).PrefixCode = 1000;
     }},
    {"overlay-first",
     [](Patient& it) {
         FrameRecord& frame = insertAt(it, 1, FRAME_TEXT);
         frame.OverlayFrame = it.dice.once(2) ? 1 : 0;
         frame.PrefixCode = frame.OverlayFrame == 0 ? 15 : 0;
     }},
    {"overlay-over-blank",
     [](Patient& it) {
         EmptyFrame(it.append(FRAME_TEXT));
         insertAt(it, CountUsedFrames(it.playfile) + 2, FRAME_TEXT).OverlayFrame = 1;
     }},
    {"overlay-without-text", [](Patient& it) { it.append(FRAME_GRAPHIC).PrefixCode = 15; }},

    {"picture-unnamed", [](Patient& it) { graphic(it, ""); }},
    {"picture-missing", [](Patient& it) { graphic(it, "missing.bmp"); }},
    {"picture-unreadable",
     [](Patient& it) {
         graphic(it, it.dice.once(2) ? "damaged.bmp" : "photo.jpg");
         failReadsOf(it, "photo.jpg");
     }},
    {"picture-unknown-kind", [](Patient& it) { graphic(it, "photo.jpg"); }},
    {"picture-too-large", [](Patient& it) { graphic(it, "large.avi", 5); }},
    {"picture-colors", [](Patient& it) { graphic(it, "colors.bmp"); }},
    {"animation-frames",
     [](Patient& it) { graphic(it, it.dice.once(2) ? "still.bmp" : "spin.gif", it.dice.once(2) ? 4 : -3); }},
    {"command-file-unnamed", [](Patient& it) { command(it, ""); }},
    {"command-file-missing", [](Patient& it) { command(it, "missing.cmd"); }},
    {"command-file-unreadable",
     [](Patient& it) {
         command(it, "bell.xyz");
         failReadsOf(it, "bell.xyz");
     }},
    {"command-file-empty", [](Patient& it) { command(it, "empty.cmd"); }},
    {"sound-missing", [](Patient& it) { sound(it, "missing.wav"); }},
    {"sound-unreadable",
     [](Patient& it) {
         sound(it, "bell.xyz");
         failReadsOf(it, "bell.xyz");
     }},
    {"sound-unknown-kind", [](Patient& it) { sound(it, "bell.xyz"); }},
    {"drive-may-go-away",
     [](Patient& it) {
         if (it.dice.once(2))
             graphic(it, JoinPath("loose", "still.bmp"));
         else
             font(it, kCustomFont, it.world.file(JoinPath("loose", "tiny.cff")));
     }},

    {"fonts-missing",
     [](Patient& it) {
         it.world.host.machine.files().observer = [](const FileOperation& operation) {
             const bool isFont =
                 operation.path.ends_with(".cmd") && operation.path.find("bin") != std::string::npos;
             return isFont ? SystemError::fileNotFound : SystemError::none;
         };
         font(it, 1, "");
     }},
    {"font-missing", [](Patient& it) { font(it, kCustomFont, it.world.file("missing.cff")); }},
    {"font-unreadable", [](Patient& it) { font(it, kCustomFont, it.world.file("short.cff")); }},
    {"font-unnamed", [](Patient& it) { font(it, kCustomFont, ""); }},
    {"font-number-unknown", [](Patient& it) { font(it, it.dice.once(2) ? -1 : 13, ""); }},

    {"text-too-wide", [](Patient& it) { text(it, "twenty-one letters or more"); }},
    {"line-too-tall",
     [](Patient& it) {
         it.insertLine().LineFontSize = 10;
         it.known.signSize->height = 24;
     }},
    {"too-many-lines",
     [](Patient& it) {
         LineRecord line = it.insertLine();
         FrameRecord& frame = it.insert(FRAME_TEXT);
         frame.lines.resize(9);
         for (LineRecord& each : frame.lines)
             each = line;
     }},
    {"characters-lacking", [](Patient& it) { text(it, "\xe9"); }},
    {"damaged-code",
     [](Patient& it) {
         constexpr auto codes = std::to_array<std::string_view>(
             {"VBL9", "VBL000", "VBL417", "CR17", "CR5", "|h:m", "|mm_ d", "{time", "{vbl 7"});
         text(it, it.dice.oneOf(codes));
     }},
    {"unknown-command-code",
     [](Patient& it) {
         constexpr auto codes = std::to_array<std::string_view>({"##HORN", "##c", "|week|", "|H:M|"});
         text(it, it.dice.oneOf(codes));
     }},
    {"legacy-placeholder",
     [](Patient& it) {
         constexpr auto codes = std::to_array<std::string_view>({"{time}", "{vbl 7}", "{cnt 17}", "{days}"});
         text(it, it.dice.oneOf(codes));
     }},
    {"control-character", [](Patient& it) { text(it, "\t!"); }},
    {"empty-text-frame", [](Patient& it) { it.insertLine().CurrentLineText = it.dice.once(2) ? "  " : ""; }},
    {"no-text-over-picture",
     [](Patient& it) { it.insert(FRAME_GRAPHICTEXT).lines = OneBasedArray<LineRecord>(2); }},
    {"text-not-shown",
     [](Patient& it) {
         it.append(it.dice.once(2) ? FRAME_CMD : FRAME_GRAPHIC).lines.at(1).CurrentLineText = "Gate";
         if (it.dice.once(3))
             it.frames().at(CountUsedFrames(it.playfile)).FrameType = 0;
     }},
    {"lines-not-kept",
     [](Patient& it) {
         FrameRecord& frame = it.insert(FRAME_TEXT);
         frame.FixedNumberOfLines = frame.lines.upperBound() + 1;
     }},
    {"merge-on-last-line", [](Patient& it) { it.insertLine().Merge = true; }},

    {"delay-not-a-number",
     [](Patient& it) {
         using Limits = std::numeric_limits<double>;
         it.insert(FRAME_TEXT).DelayTime = it.dice.once(2) ? Limits::infinity() : Limits::quiet_NaN();
     }},
    {"delay-negative", [](Patient& it) { it.insert(FRAME_TEXT).DelayTime = -0.5; }},
    {"delay-zero",
     [](Patient& it) {
         LineRecord line = it.insertLine();
         FrameRecord& frame = it.append(FRAME_TEXT);
         frame.lines.resize(1);
         frame.lines.at(1) = line;
         frame.DelayTime = 0;
         constexpr auto still = std::to_array<std::int16_t>({0, 1000, 15, 1003});
         frame.PrefixCode = it.dice.oneOf(still);
     }},
    {"delay-too-long", [](Patient& it) { it.insert(FRAME_TEXT).DelayTime = 2e9; }},
    {"delay-outside-limits",
     [](Patient& it) {
         const bool isTooShort = it.dice.once(2);
         if (isTooShort)
             it.known.delayLimits->minimum = 0.5;
         it.insert(FRAME_TEXT).DelayTime = isTooShort ? 0.25 : 10.5;
     }},
    {"delay-off-step", [](Patient& it) { it.insert(FRAME_TEXT).DelayTime = 0.5 * it.dice.below(20) + 0.2; }},
    {"number-negative",
     [](Patient& it) {
         FrameRecord& frame = it.insert(FRAME_TEXT);
         if (it.dice.once(2))
             frame.TotalDisplayFramesUsedForThisFrame = -1;
         else
             frame.FixedNumberOfLines = -7;
     }},
    {"line-limit-too-large", [](Patient& it) { it.insert(FRAME_TEXT).FixedNumberOfLines = 40000; }},
    {"flag-not-0-or-1",
     [](Patient& it) {
         FrameRecord& frame = it.append(FRAME_TEXT);
         constexpr auto flags = std::to_array<std::int16_t FrameRecord::*>(
             {&FrameRecord::FastScroll, &FrameRecord::OverlayFrame, &FrameRecord::SendCommandFileAsIs});
         frame.*it.dice.oneOf(flags) = it.dice.once(2) ? -1 : 2;
     }},
    {"too-many-sign-frames",
     [](Patient& it) {
         it.insert(FRAME_TEXT).TotalDisplayFramesUsedForThisFrame = 32767;
         it.append(FRAME_TEXT).TotalDisplayFramesUsedForThisFrame = 32767;
     }},
};

} // namespace

FrameRecord& Patient::insert(NEW_FRAME_TYPES kind) {
    const auto places = static_cast<std::size_t>(CountUsedFrames(playfile)) + 1;
    return insertAt(*this, 1 + static_cast<std::int32_t>(dice.below(places)), kind);
}

FrameRecord& Patient::append(NEW_FRAME_TYPES kind) {
    return insertAt(*this, CountUsedFrames(playfile) + 1, kind);
}

LineRecord& Patient::insertLine() {
    FrameRecord& frame = insert(FRAME_TEXT);
    frame.lines = OneBasedArray<LineRecord>(1);
    frame.FixedNumberOfLines = 0;
    frame.lines.at(1).CurrentLineText = "Gate";
    return frame.lines.at(1);
}

std::span<const Fault> AllFaults() { return kFaults; }

} // namespace qrtVistrelClasses4
