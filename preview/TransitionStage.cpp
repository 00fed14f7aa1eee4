#include "preview/TransitionStage.h"

#include <algorithm>
#include <cstddef>

namespace qrtVistrelClasses4 {
namespace {

/// A rectangle of dots.
struct Box {
    std::int32_t left, top, width, height;
};

/// Copies a part of `source`, which must be inside it, with its upper left corner to `left`, `top`.
void paste(const Raster& source, const Box& box, Raster& dots, std::int32_t left, std::int32_t top) {
    const std::int32_t first = std::max(0, -left);
    const std::int32_t count = std::min(box.width, dots.width() - left) - first;
    if (count <= 0)
        return;
    const std::int32_t last = std::min(box.height, dots.height() - top);
    for (std::int32_t y = std::max(0, -top); y < last; ++y)
        std::copy_n(source.row(box.top + y).begin() + box.left + first, count,
                    dots.row(top + y).begin() + left + first);
}

/// Copies a part to the same place.
void show(const Raster& source, Raster& dots, const Box& box) { paste(source, box, dots, box.left, box.top); }

void pasteAll(const Raster& source, Raster& dots, std::int32_t left, std::int32_t top) {
    paste(source, {0, 0, source.width(), source.height()}, dots, left, top);
}

int lightOf(Color dot) { return RedOf(dot) + GreenOf(dot) + BlueOf(dot); }

/// The colour of lines that are in neither picture: that of the brightest dot in them.
Color inkOf(const TransitionStage& stage) {
    Color ink = 0;
    for (const Raster* const picture : {&stage.after, &stage.before})
        for (std::int32_t y = 0; y < picture->height(); ++y)
            for (const Color dot : picture->row(y))
                if (dot != ink && lightOf(dot) > lightOf(ink))
                    ink = dot;
    return ink;
}

constexpr std::int32_t kParts = 4;         ///< At least so many slats, squares or strokes, dots permitting.
constexpr std::int32_t kBroadestPart = 16; ///< In dots.

std::int32_t sideOfPart(std::int32_t dots) { return std::clamp(dots / kParts, 1, kBroadestPart); }

/// Things that move one after the other: how many have arrived, and how many dots the next one has moved.
struct Flight {
    std::int32_t arrived = 0;
    std::int32_t moved = 0;
};

/// The first of `count` things moves 1 dot, and each of the others one more than that before it.
Flight growingFlight(const TransitionStage& stage, std::int32_t count) {
    Flight flight{0, stage.part(std::int64_t{count} * (count + 1) / 2)};
    while (flight.moved > flight.arrived)
        flight.moved -= ++flight.arrived;
    return flight;
}

/// The last of `count` things moves 1 dot, and each of the others one more than that after it.
Flight shrinkingFlight(const TransitionStage& stage, std::int32_t count) {
    Flight flight{0, stage.part(std::int64_t{count} * (count + 1) / 2)};
    while (flight.arrived < count && flight.moved >= count - flight.arrived)
        flight.moved -= count - flight.arrived++;
    return flight;
}

/// Rows that something falls that gets through the whole height.
std::int32_t fallen(const TransitionStage& stage) {
    return static_cast<std::int32_t>(stage.height() * stage.done * stage.done /
                                     (TransitionStage::kAll * TransitionStage::kAll));
}

/// Mixes two pictures; `weight`, up to `TransitionStage::kAll`, is the share of the new one.
void mix(const TransitionStage& stage, std::int64_t weight) {
    const auto channel = [weight](std::uint8_t before, std::uint8_t after) {
        const std::int64_t sum = before * (TransitionStage::kAll - weight) + after * weight;
        return static_cast<std::uint8_t>((sum + TransitionStage::kAll / 2) / TransitionStage::kAll);
    };
    for (std::int32_t y = 0; y < stage.height(); ++y) {
        auto old = stage.before.row(y).begin();
        auto dot = stage.dots.row(y).begin();
        for (const Color next : stage.after.row(y)) {
            *dot++ = next == *old
                         ? next
                         : Rgb(channel(RedOf(*old), RedOf(next)), channel(GreenOf(*old), GreenOf(next)),
                               channel(BlueOf(*old), BlueOf(next)));
            ++old;
        }
    }
}

/// A number from 0 to less than `TransitionStage::kAll` for each dot, in no order that can be seen.
std::int64_t turnOf(std::int32_t x, std::int32_t y) {
    std::uint32_t turn =
        static_cast<std::uint32_t>(x) * 0x9e3779b1U + static_cast<std::uint32_t>(y) * 0x85ebca77U;
    for (const std::uint32_t factor : {0x7feb352dU, 0x846ca68bU}) {
        turn ^= turn >> 16;
        turn *= factor;
    }
    return turn >> 16;
}

/// Where a row or column of a picture on a barrel comes from, if `edge` of its `count` ones are those of the
/// new picture.
struct BarrelPlace {
    BarrelPlace(std::int32_t number, std::int32_t edge, std::int32_t count)
        : isNew(number < edge),
          source(static_cast<std::int32_t>(isNew ? std::int64_t{number} * count / edge
                                                 : std::int64_t{number - edge} * count / (count - edge))) {}

    bool isNew;
    std::int32_t source;
};

} // namespace

void ShowAtOnce(const TransitionStage& stage) { stage.dots = stage.after; }

void ScrollLeft(const TransitionStage& stage) {
    const std::int32_t moved = stage.part(stage.width());
    pasteAll(stage.before, stage.dots, -moved, 0);
    pasteAll(stage.after, stage.dots, stage.width() - moved, 0);
}

void ScrollRight(const TransitionStage& stage) {
    const std::int32_t moved = stage.part(stage.width());
    pasteAll(stage.before, stage.dots, moved, 0);
    pasteAll(stage.after, stage.dots, moved - stage.width(), 0);
}

void ScrollUp(const TransitionStage& stage) {
    const std::int32_t moved = stage.part(stage.height());
    pasteAll(stage.before, stage.dots, 0, -moved);
    pasteAll(stage.after, stage.dots, 0, stage.height() - moved);
}

void ScrollDown(const TransitionStage& stage) {
    const std::int32_t moved = stage.part(stage.height());
    pasteAll(stage.before, stage.dots, 0, moved);
    pasteAll(stage.after, stage.dots, 0, moved - stage.height());
}

void Wipe(const TransitionStage& stage) {
    stage.dots = stage.before;
    show(stage.after, stage.dots, {0, 0, stage.part(stage.width()), stage.height()});
}

void LineWipe(const TransitionStage& stage) {
    Wipe(stage);
    stage.dots.fill(stage.part(stage.width()), 0, 1, stage.height(), inkOf(stage));
}

void RevealFromMiddle(const TransitionStage& stage) {
    const std::int32_t shown = stage.part(stage.width());
    stage.dots = stage.before;
    show(stage.after, stage.dots, {(stage.width() - shown) / 2, 0, shown, stage.height()});
}

void RevealToMiddle(const TransitionStage& stage) {
    const std::int32_t left = stage.width() - stage.part(stage.width());
    stage.dots = stage.after;
    show(stage.before, stage.dots, {(stage.width() - left) / 2, 0, left, stage.height()});
}

void Border(const TransitionStage& stage) {
    const std::int32_t edge = stage.part((std::min(stage.width(), stage.height()) + 1) / 2);
    const std::int32_t width = stage.width() - 2 * edge;
    const std::int32_t height = stage.height() - 2 * edge;
    stage.dots = stage.after;
    stage.dots.fill(edge, edge, width, height, inkOf(stage));
    show(stage.before, stage.dots, {edge + 1, edge + 1, width - 2, height - 2});
}

void MarqueeBorder(const TransitionStage& stage) {
    constexpr std::int32_t lamps = 2; // that are lit beside each other, and as many are not
    const std::int32_t width = stage.part(stage.width());
    const std::int32_t height = stage.part(stage.height());
    stage.dots = stage.before;
    show(stage.after, stage.dots,
         {(stage.width() - width) / 2, (stage.height() - height) / 2, width, height});
    const Color ink = inkOf(stage);
    std::int32_t place = 2 * lamps - width % (2 * lamps);
    const auto lamp = [&](std::int32_t x, std::int32_t y) {
        stage.dots.fill(x, y, 1, 1, place++ % (2 * lamps) < lamps ? ink : 0);
    };
    for (std::int32_t x = 0; x < stage.width(); ++x)
        lamp(x, 0);
    for (std::int32_t y = 1; y < stage.height(); ++y)
        lamp(stage.width() - 1, y);
    for (std::int32_t x = stage.width() - 2; x >= 0; --x)
        lamp(x, stage.height() - 1);
    for (std::int32_t y = stage.height() - 2; y > 0; --y)
        lamp(0, y);
}

void ScanAcross(const TransitionStage& stage) {
    const std::int32_t shown = stage.part(stage.width());
    stage.dots = stage.before;
    for (std::int32_t y = 0; y < stage.height(); ++y)
        show(stage.after, stage.dots, {y % 2 == 0 ? 0 : stage.width() - shown, y, shown, 1});
}

void ScanDown(const TransitionStage& stage) {
    const std::int32_t shown = stage.part(stage.height());
    stage.dots = stage.before;
    for (std::int32_t x = 0; x < stage.width(); ++x)
        show(stage.after, stage.dots, {x, x % 2 == 0 ? 0 : stage.height() - shown, 1, shown});
}

void VenetianBlinds(const TransitionStage& stage) {
    const std::int32_t slat = sideOfPart(stage.height());
    stage.dots = stage.before;
    for (std::int32_t y = 0; y < stage.height(); y += slat)
        show(stage.after, stage.dots, {0, y, stage.width(), std::min(stage.part(slat), stage.height() - y)});
}

void VerticalBlinds(const TransitionStage& stage) {
    const std::int32_t slat = sideOfPart(stage.width());
    stage.dots = stage.before;
    for (std::int32_t x = 0; x < stage.width(); x += slat)
        show(stage.after, stage.dots, {x, 0, std::min(stage.part(slat), stage.width() - x), stage.height()});
}

void CheckerBoard(const TransitionStage& stage) {
    const std::int32_t side = sideOfPart(std::min(stage.width(), stage.height()));
    const std::int32_t shown = stage.part(std::int64_t{2} * side);
    stage.dots = stage.before;
    for (std::int32_t y = 0; y < stage.height(); y += side)
        for (std::int32_t x = 0; x < stage.width(); x += side) {
            const bool isFirst = (x / side + y / side) % 2 == 0;
            const std::int32_t columns = isFirst ? std::min(shown, side) : std::max(shown - side, 0);
            show(stage.after, stage.dots,
                 {x, y, std::min(columns, stage.width() - x), std::min(side, stage.height() - y)});
        }
}

void Paint(const TransitionStage& stage) {
    const std::int32_t brush = sideOfPart(stage.height());
    const std::int32_t strokes = (stage.height() + brush - 1) / brush;
    std::int32_t painted = stage.part(std::int64_t{strokes} * stage.width());
    stage.dots = stage.before;
    for (std::int32_t stroke = 0; stroke < strokes; ++stroke) {
        const std::int32_t length = std::clamp(painted - stroke * stage.width(), 0, stage.width());
        const std::int32_t top = stroke * brush;
        show(stage.after, stage.dots,
             {stroke % 2 == 0 ? 0 : stage.width() - length, top, length,
              std::min(brush, stage.height() - top)});
    }
}

void OpenFromMiddle(const TransitionStage& stage) {
    const std::int32_t left = stage.width() / 2;
    const std::int32_t right = stage.width() - left;
    const std::int32_t moved = stage.part(right);
    stage.dots = stage.after;
    paste(stage.before, {0, 0, left, stage.height()}, stage.dots, -moved, 0);
    paste(stage.before, {left, 0, right, stage.height()}, stage.dots, left + moved, 0);
}

void CloseJaws(const TransitionStage& stage) {
    const std::int32_t upper = stage.height() / 2;
    const std::int32_t lower = stage.height() - upper;
    const std::int32_t apart = lower - stage.part(lower);
    stage.dots = stage.before;
    paste(stage.after, {0, 0, stage.width(), upper}, stage.dots, 0, -apart);
    paste(stage.after, {0, upper, stage.width(), lower}, stage.dots, 0, upper + apart);
}

void OpenJaws(const TransitionStage& stage) {
    const std::int32_t upper = stage.height() / 2;
    const std::int32_t lower = stage.height() - upper;
    const std::int32_t apart = stage.part(lower);
    stage.dots = stage.after;
    paste(stage.before, {0, 0, stage.width(), upper}, stage.dots, 0, -apart);
    paste(stage.before, {0, upper, stage.width(), lower}, stage.dots, 0, upper + apart);
}

void DropOn(const TransitionStage& stage) {
    stage.dots = stage.before;
    pasteAll(stage.after, stage.dots, 0, fallen(stage) - stage.height());
}

void DropOff(const TransitionStage& stage) {
    stage.dots = stage.after;
    pasteAll(stage.before, stage.dots, 0, fallen(stage));
}

void LineDropOn(const TransitionStage& stage) {
    const auto [arrived, moved] = shrinkingFlight(stage, stage.height());
    const std::int32_t row = stage.height() - 1 - arrived;
    stage.dots = stage.before;
    show(stage.after, stage.dots, {0, row + 1, stage.width(), arrived});
    if (moved > 0)
        paste(stage.after, {0, row, stage.width(), 1}, stage.dots, 0, moved - 1);
}

void LineDropOff(const TransitionStage& stage) {
    const auto [gone, moved] = growingFlight(stage, stage.height());
    const std::int32_t row = stage.height() - 1 - gone;
    stage.dots = stage.after;
    show(stage.before, stage.dots, {0, 0, stage.width(), row});
    paste(stage.before, {0, row, stage.width(), 1}, stage.dots, 0, row + moved);
}

void ShootOn(const TransitionStage& stage) {
    const auto [column, moved] = shrinkingFlight(stage, stage.width());
    stage.dots = stage.before;
    show(stage.after, stage.dots, {0, 0, column, stage.height()});
    if (moved > 0)
        paste(stage.after, {column, 0, 1, stage.height()}, stage.dots, stage.width() - moved, 0);
}

void ShootOff(const TransitionStage& stage) {
    const auto [column, moved] = growingFlight(stage, stage.width());
    stage.dots = stage.after;
    show(stage.before, stage.dots, {column + 1, 0, stage.width() - 1 - column, stage.height()});
    paste(stage.before, {column, 0, 1, stage.height()}, stage.dots, column - moved, 0);
}

void BarrelAcross(const TransitionStage& stage) {
    const std::int32_t edge = stage.part(stage.width());
    for (std::int32_t x = 0; x < stage.width(); ++x) {
        const BarrelPlace place(x, edge, stage.width());
        paste(place.isNew ? stage.after : stage.before, {place.source, 0, 1, stage.height()}, stage.dots, x,
              0);
    }
}

void BarrelDown(const TransitionStage& stage) {
    const std::int32_t edge = stage.part(stage.height());
    for (std::int32_t y = 0; y < stage.height(); ++y) {
        const BarrelPlace place(y, edge, stage.height());
        paste(place.isNew ? stage.after : stage.before, {0, place.source, stage.width(), 1}, stage.dots, 0,
              y);
    }
}

void Fade(const TransitionStage& stage) { mix(stage, stage.done); }

void Pulse(const TransitionStage& stage) {
    constexpr std::int64_t fades = 5;
    const std::int64_t rest = stage.done * fades % TransitionStage::kAll;
    const bool isBack = stage.done * fades / TransitionStage::kAll % 2 != 0;
    mix(stage, isBack ? TransitionStage::kAll - rest : rest);
}

void Twinkle(const TransitionStage& stage) {
    stage.dots = stage.before;
    for (std::int32_t y = 0; y < stage.height(); ++y)
        for (std::int32_t x = 0; x < stage.width(); ++x)
            if (turnOf(x, y) < stage.done)
                stage.dots.row(y)[static_cast<std::size_t>(x)] =
                    stage.after.row(y)[static_cast<std::size_t>(x)];
}

} // namespace qrtVistrelClasses4
