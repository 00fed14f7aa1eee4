// A machine in memory that has all that valid playfiles need, and such playfiles.
#pragma once

#include "TestHost.h"
#include "bench/Dice.h"
#include <qrtVistrelClasses4/Validation.h>

#include <string>

namespace qrtVistrelClasses4 {

using bench::Dice;

inline constexpr DotSize kWorldSign{128, 64};
inline constexpr std::int16_t kWorldSignHeight = 64;

class World {
public:
    World();

    /// The path of one of the files: still.bmp, colors.bmp, spin.gif (3 pictures), clip.avi (5 pictures),
    /// large.avi, photo.jpg, settime.cmd, empty.cmd, bell.wav, bell.xyz, damaged.bmp, and tiny.cff, a font
    /// that has no letter but "A". Other names are those of missing files.
    std::string file(const std::string& name) { return host.inLibrary(JoinPath("signs", name)); }

    /// What is known about it: an amber sign, delays of half seconds up to 10, and all effects.
    ValidationCircumstances circumstances() const;

    TestHost host;
};

/// A frame without effects that shows or sends something.
FrameRecord ValidFrame(World& world, Dice& dice, NEW_FRAME_TYPES kind);
/// A playfile that nothing is wrong with, by what is known about the world.
Playfile ValidPlayfile(World& world, Dice& dice);

} // namespace qrtVistrelClasses4
