#include "fuzz/rules/World.h"

#include "fonts/FontFile.h"
#include "fonts/clsFontSizes.h"
#include "media/AnimationTesting.h"
#include "playfile/Effects.h"

#include <algorithm>
#include <array>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using enum NEW_FRAME_TYPES;

/// A font with letters as wide as its cells, of which the upper left dot is lit.
Font fullFont(CellSize size) {
    Font font = ParseFont({}, size.width, size.height).value();
    for (int code = ' '; code <= '~'; ++code) {
        const auto start = static_cast<std::size_t>(font.glyphOffset(static_cast<char>(code)).value());
        font.store.at(start) = static_cast<std::uint8_t>(size.width);
        font.store.at(start + 1) = code == ' ' ? 0 : 0x80;
    }
    return font;
}

constexpr std::array<std::string_view, 8> kWords{"GATE", "Ferry", "22:00", "to town",
                                                 "C+R",  "VB 9",  "a|b",   "#1"};
constexpr std::array<std::string_view, 5> kCodes{"|h:m|", "##C", "VBL007", "CR16", "##BELL"};
/// All but 2, which loading replaces by a file.
constexpr std::array<std::int16_t, 11> kFontsInFiles{0, 1, 3, 4, 5, 6, 7, 8, 9, 10, 11};
constexpr std::int16_t kHighFont = 6; ///< The first whose letters are high and wide.

std::string validText(Dice& dice, bool isShort) {
    if (isShort)
        return std::string(kWords[dice.below(2)]).substr(0, 4);
    std::string text(dice.oneOf(kWords));
    if (dice.once(2))
        text.append(" ").append(dice.oneOf(kCodes));
    return text;
}

/// Lines that fit the sign.
OneBasedArray<LineRecord> validLines(World& world, Dice& dice) {
    OneBasedArray<LineRecord> lines;
    std::int16_t rows = kWorldSignHeight;
    for (auto left = 1 + dice.below(6); left > 0; --left) {
        LineRecord line;
        line.LineFontSize = dice.oneOf(kFontsInFiles);
        const std::int16_t height = clsFontSizes::FontSize(line.LineFontSize).value().height;
        line.Scrolling = dice.once(3);
        line.CurrentLineText = validText(dice, line.LineFontSize >= kHighFont && !line.Scrolling);
        if (height > rows)
            break;
        if (dice.once(9)) {
            line.LineFontSize = kCustomFont;
            line.LineCustomFont = world.file("tiny.cff");
            line.CurrentLineText = "AAA";
        }
        line.Inverse = dice.once(5);
        rows = static_cast<std::int16_t>(rows - height);
        lines.resize(lines.upperBound() + 1);
        lines.at(lines.upperBound()) = line;
    }
    for (std::int32_t number = 1; number < lines.upperBound(); ++number)
        lines.at(number).Merge = dice.once(6);
    return lines;
}

void setPicture(World& world, Dice& dice, FrameRecord& frame) {
    static const std::pair<const char*, std::int16_t> pictures[] = {
        {"still.bmp", 0}, {"spin.gif", 3}, {"clip.avi", 5}};
    const auto& [name, count] = pictures[dice.below(3)];
    frame.PicturefileName = world.file(name);
    frame.AVIFrames = count;
}

void addEffects(Dice& dice, const OfferedEffects& offered, FrameRecord& frame) {
    const bool isPhotoRealistic = dice.once(9);
    frame.PrefixCode = isPhotoRealistic ? kPhotoRealistic : dice.oneOf(offered.prefixes);
    frame.SuffixCode = isPhotoRealistic ? kPhotoRealistic : dice.oneOf(offered.suffixes);
}

/// Loops one after the other.
void addLoops(Dice& dice, OneBasedArray<FrameRecord>& frames, std::int32_t used) {
    for (std::int32_t first = 1; first <= used; ++first) {
        if (!dice.once(4))
            continue;
        const std::int32_t last =
            first + static_cast<std::int32_t>(dice.below(static_cast<std::size_t>(used - first) + 1));
        for (std::int32_t number : {first, last})
            if (frames.at(number).PrefixCode == kPhotoRealistic)
                frames.at(number).PrefixCode = frames.at(number).SuffixCode = 0;
        frames.at(first).PrefixCode = static_cast<std::int16_t>(kLoopBase + 2 + dice.below(98));
        frames.at(last).SuffixCode = kEndLoop;
        first = last;
    }
}

} // namespace

World::World() {
    MemoryFileSystem& files = host.machine.files();
    for (std::int16_t number = 0; number < kNumberedFonts; ++number)
        files.put(host.inLibrary(JoinPath("bin", clsFontSizes::FontFile(number, 0, true).value())),
                  SizedFontBytes(fullFont(clsFontSizes::FontSize(number).value())));
    Font tiny{6, 8, "A"};
    tiny.store[0] = 6;
    tiny.store[1] = 0x80;
    files.put(file("tiny.cff"), HeaderFontBytes(tiny));
    const std::string rows("\1\0\1\0\0\1\1\0", 8);
    files.put(file("still.bmp"), Bmp(8, rows));
    files.put(file("colors.bmp"), Bmp(8, std::string("\1\2\3\0\0\1\1\0", 8)));
    files.put(file("damaged.bmp"), Bmp(8, rows).substr(0, 60));
    files.put(file("spin.gif"), Gif(3, 16, 8));
    files.put(file("clip.avi"), Avi(5, 128, 64));
    files.put(file("large.avi"), Avi(5, 129, 64));
    for (const char* const name : {"photo.jpg", "settime.cmd", "bell.wav", "bell.xyz"})
        files.put(file(name), name);
    files.put(file("empty.cmd"), "");
    files.put(file("short.cff"), "");
    files.put(host.inLibrary("NewEffects.ini"), "[Effects]\r\n");
    files.addLooseDrive(file("loose"));
    files.put(file(JoinPath("loose", "still.bmp")), Bmp(8, rows));
    files.put(file(JoinPath("loose", "tiny.cff")), HeaderFontBytes(tiny));
}

ValidationCircumstances World::circumstances() const {
    ValidationCircumstances known;
    known.signSize = kWorldSign;
    known.showsColors = false;
    known.delayLimits = DelayLimits{0, 10, 0.5};
    known.offeredEffects = FindOfferedEffects();
    known.commands.set("##BELL", "\7");
    return known;
}

FrameRecord ValidFrame(World& world, Dice& dice, NEW_FRAME_TYPES kind) {
    FrameRecord frame;
    frame.FrameType = static_cast<std::int16_t>(kind);
    frame.lines.resize(1);
    frame.DelayTime = 0.5 * (1 + dice.below(20));
    frame.TotalDisplayFramesUsedForThisFrame = static_cast<std::int16_t>(dice.below(3));
    frame.FastScroll = dice.once(2) ? 1 : 0;
    if (kind == FRAME_TEXT || kind == FRAME_GRAPHICTEXT)
        frame.lines = validLines(world, dice);
    if (kind == FRAME_GRAPHIC || kind == FRAME_GRAPHICTEXT)
        setPicture(world, dice, frame);
    if (kind == FRAME_CMD)
        frame.commandfile = world.file("settime.cmd");
    if (dice.once(8))
        frame.AudioFile = world.file("bell.wav");
    if (dice.once(4))
        frame.FixedNumberOfLines = frame.lines.upperBound();
    return frame;
}

Playfile ValidPlayfile(World& world, Dice& dice) {
    static const OfferedEffects offered = FindOfferedEffects();
    const auto used = static_cast<std::int32_t>(1 + dice.below(12));
    Playfile playfile;
    playfile.fileName = world.file("made.playfile");
    playfile.frames.resize(used + static_cast<std::int32_t>(dice.below(3)));
    for (FrameRecord& frame : playfile.frames)
        EmptyFrame(frame);
    for (std::int32_t number = 1; number <= used; ++number) {
        FrameRecord& frame = playfile.frames.at(number);
        frame = ValidFrame(world, dice, static_cast<NEW_FRAME_TYPES>(1 + dice.below(number == 1 ? 3 : 4)));
        if (dice.once(2))
            frame.FrameName = "Frame " + std::to_string(number);
        addEffects(dice, offered, frame);
        frame.OverlayFrame = number > 1 && dice.once(6) ? 1 : 0;
    }
    addLoops(dice, playfile.frames, used);
    return playfile;
}

} // namespace qrtVistrelClasses4
