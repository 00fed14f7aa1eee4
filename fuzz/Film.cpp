// The film of any frames, played in order, compared with its dots at single moments: how long the moments are
// apart, and then each frame.
#include "Fuzz.h"
#include "fonts/FontFile.h"
#include <qrtVistrelClasses4/Film.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>
#include <optional>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int32_t kMostFrames = 12;
constexpr int kMostMoments = 24;

constexpr std::int16_t kCodes[] = {0,    5,    10,   15,   114,  115,   116,   117,   118,   119,  120,
                                   121,  122,  123,  124,  125,  126,   127,   128,   129,   1000, 2000,
                                   5000, 5001, 5002, 5003, 9999, 10000, 11006, 12005, 20001, 20002};
constexpr double kDelays[] = {0, 0.04, 0.7, 3, 61, 1e9, 1e300};
constexpr const char* kTexts[] = {"", "A", "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA", "|hm|", "1|h:m|", "A1"};

/// A font of "A" and digits, each of which looks different.
std::string fontBytes() {
    Font font{4, 2, "A0123456789"};
    for (std::size_t letter = 0; letter < font.characters.size(); ++letter) {
        const auto place = static_cast<std::size_t>(font.recordSize()) * letter;
        font.store[place] = 4;
        font.store[place + 1] = static_cast<std::uint8_t>(letter << 4);
        font.store[place + 2] = static_cast<std::uint8_t>(~letter << 4);
    }
    return HeaderFontBytes(font);
}

LineRecord lineOf(FuzzedInput& input) {
    LineRecord line;
    const unsigned byte = input.byte();
    line.Scrolling = byte % 2 == 1;
    line.Blinking = byte / 2 % 2 == 1;
    line.Inverse = byte / 4 % 2 == 1;
    line.CurrentLineText = kTexts[byte / 8 % std::size(kTexts)];
    line.LineFontSize = kCustomFont;
    line.LineCustomFont = "four";
    return line;
}

FrameRecord frameOf(FuzzedInput& input) {
    FrameRecord frame;
    const unsigned byte = input.byte();
    frame.FrameType = static_cast<std::int16_t>(byte % 8 == 0 ? byte / 8 % 5 : 2);
    frame.OverlayFrame = static_cast<std::int16_t>(byte / 8 % 2);
    frame.FastScroll = static_cast<std::int16_t>(byte / 16 % 2);
    frame.WinBackColor = static_cast<std::int32_t>(byte / 32 * 0x203040) - 1;
    frame.PrefixCode = kCodes[input.byte() % std::size(kCodes)];
    frame.SuffixCode = kCodes[input.byte() % std::size(kCodes)];
    const unsigned delay = input.byte();
    frame.DelayTime = kDelays[delay % std::size(kDelays)];
    frame.lines.resize(static_cast<std::int32_t>(delay / 16 % 4));
    for (LineRecord& line : frame.lines)
        line = lineOf(input);
    return frame;
}

FilmCircumstances circumstancesOf(FuzzedInput& input) {
    using namespace std::chrono;
    FilmCircumstances circumstances;
    circumstances.sign.size =
        DotSize{static_cast<std::int32_t>(input.byte() % 40), static_cast<std::int32_t>(input.byte() % 12)};
    const unsigned byte = input.byte();
    circumstances.sign.showsColors = byte % 2 == 1;
    circumstances.timing.scrollingTextSpeed = static_cast<std::int16_t>(byte / 2 % 10);
    circumstances.timing.moment = local_days(2026y / January / 1) + seconds(byte);
    circumstances.blinking = {input.byte() / 100.0, input.byte() / 100.0};
    return circumstances;
}

/// The next moment that is looked at: the next change, or a while later.
double momentAfter(Film& film, double moment, unsigned byte) {
    const std::optional<double> next = film.nextChange(moment);
    Require(!next || (*next > moment && *next <= film.seconds()),
            "changes are later, and none is after the end");
    return byte % 4 == 0 ? next.value_or(moment) : moment + film.seconds() * byte / 2560;
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    host.machine.files().put(host.inLibrary("CustomFonts/four"), fontBytes());
    const FilmCircumstances circumstances = circumstancesOf(input);
    std::array<unsigned, kMostMoments> pace{};
    std::ranges::generate(pace, [&] { return input.byte(); });
    Playfile playfile;
    while (!input.atEnd() && playfile.frames.upperBound() < kMostFrames) {
        playfile.frames.resize(playfile.frames.upperBound() + 1);
        playfile.frames.at(playfile.frames.upperBound()) = frameOf(input);
    }
    Film inOrder = FilmOf(playfile, circumstances);
    Film anyOrder = FilmOf(playfile, circumstances);
    double moment = 0;
    for (const unsigned byte : pace) {
        const Raster dots = inOrder.dotsAt(moment);
        anyOrder.dotsAt(inOrder.seconds() * (byte % 16) / 15);
        Require(anyOrder.dotsAt(moment) == dots, "the order in which dots are asked for means nothing");
        if (const std::optional<double> next = inOrder.nextChange(moment))
            Require(anyOrder.dotsAt(moment + (*next - moment) / 2) == dots || *next - moment < 1e-5,
                    "dots stay as they are until the next change");
        moment = momentAfter(inOrder, moment, byte);
    }
}

} // namespace qrtVistrelClasses4
