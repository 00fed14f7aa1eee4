#include <qrtVistrelClasses4/Transitions.h>

#include "playfile/Effects.h"
#include "preview/TransitionStage.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace qrtVistrelClasses4 {

/// How an effect changes dots.
struct TransitionRow {
    using Draw = void (*)(const TransitionStage& stage);

    EffectMotion motion;
    Draw on;
    Draw off;
};

namespace {

constexpr std::int32_t kStepsOfFade = 64;

constexpr TransitionRow kTransitions[] = {
    {EffectMotion::none, ShowAtOnce, ShowAtOnce},
    {EffectMotion::jump, ShowAtOnce, ShowAtOnce},
    {EffectMotion::scrollRight, ScrollRight, ScrollRight},
    {EffectMotion::scrollLeft, ScrollLeft, ScrollLeft},
    {EffectMotion::scrollDown, ScrollDown, ScrollDown},
    {EffectMotion::scrollUp, ScrollUp, ScrollUp},
    {EffectMotion::twinkle, Twinkle, Twinkle},
    {EffectMotion::reveal, RevealFromMiddle, RevealToMiddle},
    {EffectMotion::fade, Fade, Fade},
    {EffectMotion::lineDrop, LineDropOn, LineDropOff},
    {EffectMotion::wipe, Wipe, Wipe},
    {EffectMotion::checkerBoard, CheckerBoard, CheckerBoard},
    {EffectMotion::drop, DropOn, DropOff},
    {EffectMotion::open, OpenFromMiddle, OpenFromMiddle},
    {EffectMotion::jaws, CloseJaws, OpenJaws},
    {EffectMotion::scanAcross, ScanAcross, ScanAcross},
    {EffectMotion::paint, Paint, Paint},
    {EffectMotion::shoot, ShootOn, ShootOff},
    {EffectMotion::venetianBlinds, VenetianBlinds, VenetianBlinds},
    {EffectMotion::verticalBlinds, VerticalBlinds, VerticalBlinds},
    {EffectMotion::scanDown, ScanDown, ScanDown},
    {EffectMotion::pulse, Pulse, Pulse},
    {EffectMotion::marqueeBorder, MarqueeBorder, MarqueeBorder},
    {EffectMotion::lineWipe, LineWipe, LineWipe},
    {EffectMotion::border, Border, Border},
    {EffectMotion::barrelDown, BarrelDown, BarrelDown},
    {EffectMotion::barrelAcross, BarrelAcross, BarrelAcross},
};

const TransitionRow& rowOf(EffectMotion motion) {
    return *std::ranges::find(kTransitions, motion, &TransitionRow::motion);
}

/// In whole numbers, rounded up: whatever is at least n of m parts is n of m dots, too.
std::int64_t wholeNumberOf(double progress) {
    if (!(progress > 0)) // nor a number at all
        return 0;
    const auto all = static_cast<double>(TransitionStage::kAll);
    return progress < 1 ? static_cast<std::int64_t>(std::ceil(progress * all)) : TransitionStage::kAll;
}

} // namespace

Transition Transition::appearing(std::int16_t prefixCode) { return {rowOf(PrefixMotion(prefixCode)), true}; }
Transition Transition::disappearing(std::int16_t suffixCode) {
    return {rowOf(SuffixMotion(suffixCode)), false};
}

void Transition::draw(double progress, const Raster& before, const Raster& after, Raster& dots) const {
    if (before.size() != after.size())
        throw RuntimeError(ErrorNumber::invalidProcedureCall);
    const std::int64_t done = wholeNumberOf(progress);
    if (done == 0 || done == TransitionStage::kAll || after.width() == 0 || after.height() == 0) {
        dots = done == 0 ? before : after;
        return;
    }
    if (dots.size() != after.size())
        dots = Raster(after.width(), after.height());
    (isAppearing_ ? row_->on : row_->off)({done, before, after, dots});
}

std::int32_t Transition::steps(DotSize size) const {
    switch (SpanOf(row_->motion)) {
    case EffectSpan::none:
        return 1;
    case EffectSpan::across:
        return std::max(size.width, 1);
    case EffectSpan::down:
        return std::max(size.height, 1);
    default:
        return kStepsOfFade;
    }
}

bool Transition::isNone() const { return row_->motion == EffectMotion::none; }

std::vector<NamedTransition> AppearingTransitions() {
    std::vector<NamedTransition> all;
    const auto add = [&](std::int16_t code) {
        all.push_back({code, PrefixName(code).value_or(""), Transition::appearing(code)});
    };
    for (const FixedEffect& effect : kFixedEffects)
        add(effect.prefixCode);
    for (const OptionalEffect& effect : kOptionalEffects)
        add(effect.code);
    return all;
}

std::vector<NamedTransition> DisappearingTransitions() {
    std::vector<NamedTransition> all;
    const auto add = [&](std::int16_t code) {
        all.push_back({code, SuffixName(code).value_or(""), Transition::disappearing(code)});
    };
    for (const FixedEffect& effect : kFixedEffects)
        add(effect.suffixCode);
    for (const OptionalEffect& effect : kOptionalEffects)
        add(effect.code);
    return all;
}

} // namespace qrtVistrelClasses4
