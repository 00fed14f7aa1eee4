// Pictures of the stages of effects.
#pragma once

#include <qrtVistrelClasses4/PixelBuffer.h>
#include <qrtVistrelClasses4/Transitions.h>

namespace qrtVistrelClasses4 {

/// How an effect changes a small sign from its beginning to its end: stages in equal steps side by side,
/// drawn as LEDs. `effect` appears over another picture, or disappears.
PixelBuffer EffectStrip(const Transition& effect, bool appears);

} // namespace qrtVistrelClasses4
