// The moments of effects: one function an effect.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <cstdint>

namespace qrtVistrelClasses4 {

/// How far a change has got, in whole numbers, so that every compiler rounds in the same way.
struct TransitionStage {
    static constexpr std::int64_t kAll = 1 << 16;

    std::int64_t done; ///< More than 0, and less than `kAll`.
    const Raster& before;
    const Raster& after;
    Raster& dots; ///< Of the same size as the others, which is not empty.

    std::int32_t width() const { return dots.width(); }
    std::int32_t height() const { return dots.height(); }
    /// The part of `count` that is done by now, rounded down.
    std::int32_t part(std::int64_t count) const { return static_cast<std::int32_t>(count * done / kAll); }
};

void ShowAtOnce(const TransitionStage& stage);

// One picture pushes the other out.
void ScrollLeft(const TransitionStage& stage);
void ScrollRight(const TransitionStage& stage);
void ScrollUp(const TransitionStage& stage);
void ScrollDown(const TransitionStage& stage);

// An edge passes.
void Wipe(const TransitionStage& stage);
void LineWipe(const TransitionStage& stage);         ///< The edge is a lit line.
void RevealFromMiddle(const TransitionStage& stage); ///< Two edges part.
void RevealToMiddle(const TransitionStage& stage);   ///< Two edges meet.
void Border(const TransitionStage& stage);           ///< A lit border shrinks to the middle.
void MarqueeBorder(const TransitionStage& stage);    ///< A box grows in a border of running lights.

// Many edges pass.
void ScanAcross(const TransitionStage& stage); ///< Each row from the other side than the rows beside it.
void ScanDown(const TransitionStage& stage);
void VenetianBlinds(const TransitionStage& stage);
void VerticalBlinds(const TransitionStage& stage);
void CheckerBoard(const TransitionStage& stage); ///< First the squares of one colour, then the others.
void Paint(const TransitionStage& stage);        ///< Strokes of a broad brush, to and fro.

// Pictures or their parts move.
void OpenFromMiddle(const TransitionStage& stage); ///< The old picture's halves are doors.
void CloseJaws(const TransitionStage& stage);      ///< The new picture's halves bite.
void OpenJaws(const TransitionStage& stage);
void DropOn(const TransitionStage& stage); ///< The new picture falls, faster and faster.
void DropOff(const TransitionStage& stage);
void LineDropOn(const TransitionStage& stage); ///< One row falls after the other, the lowest one first.
void LineDropOff(const TransitionStage& stage);
void ShootOn(const TransitionStage& stage); ///< One column flies in from the right after the other.
void ShootOff(const TransitionStage& stage);
void BarrelAcross(const TransitionStage& stage); ///< Both pictures are on a barrel that turns.
void BarrelDown(const TransitionStage& stage);

// Brightness.
void Fade(const TransitionStage& stage);
void Pulse(const TransitionStage& stage);   ///< Fades to the new picture and back, and to it again.
void Twinkle(const TransitionStage& stage); ///< Single dots change, in an order that is always the same.

} // namespace qrtVistrelClasses4
