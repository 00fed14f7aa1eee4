// The effects by which frames appear and disappear, as changing dots.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/Raster.h>

#include <cstdint>
#include <string>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

struct TransitionRow;

/// How the dots of a sign change from one picture to the other. Signs of different makers do not move in the
/// same way, so this is a likeness: it moves as the name of the effect says. The same arguments give the same
/// dots on every system.
class Transition {
public:
    /// The effect by which a frame appears. Loops, and codes without a name, show the new picture at once.
    static Transition appearing(std::int16_t prefixCode);
    /// The effect by which a frame disappears, which leads to an empty picture.
    static Transition disappearing(std::int16_t suffixCode);

    /// Draws a moment of the change, from 0 to 1: at 0 the dots are those of `before`, at 1 those of `after`,
    /// and a number outside of that counts as the nearer end. `dots` must be a picture of its own, and gets
    /// the size of the others. Throws error 5 if `before` and `after` have different sizes.
    void draw(double progress, const Raster& before, const Raster& after, Raster& dots) const;

    /// Into how many equal steps a change of pictures of that size is best divided; at least 1. Between two
    /// of them hardly anything would change.
    std::int32_t steps(DotSize size) const;

    /// Whether the picture stays until the next frame appears. Such an effect takes no time.
    bool isNone() const;

private:
    Transition(const TransitionRow& row, bool isAppearing) : row_(&row), isAppearing_(isAppearing) {}

    const TransitionRow* row_;
    bool isAppearing_;
};

struct NamedTransition {
    std::int16_t code;
    std::string name;
    Transition transition;
};

/// All effects that lists offer, in the order of the lists. Loops are not effects of this kind.
QRT_PUBLIC std::vector<NamedTransition> AppearingTransitions();
QRT_PUBLIC std::vector<NamedTransition> DisappearingTransitions();

} // namespace qrtVistrelClasses4
