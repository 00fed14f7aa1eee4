// One fault for each rule.
#pragma once

#include "fuzz/rules/World.h"

#include <functional>
#include <span>
#include <string_view>

namespace qrtVistrelClasses4 {

/// A valid playfile that a fault is put into.
struct Patient {
    World& world;
    Dice& dice;
    Playfile playfile = ValidPlayfile(world, dice);
    ValidationCircumstances known = world.circumstances();
    std::function<void(LoadOutcome&)> onLoaded = {}; ///< For faults of the file, not of the playfile.

    OneBasedArray<FrameRecord>& frames() { return playfile.frames; }
    /// A new valid frame at a random place before, between or after the used ones.
    FrameRecord& insert(NEW_FRAME_TYPES kind);
    /// A new valid frame after the used ones.
    FrameRecord& append(NEW_FRAME_TYPES kind);
    /// A new text frame with one line.
    LineRecord& insertLine();
};

struct Fault {
    std::string_view rule;
    void (*put)(Patient& patient);
};
std::span<const Fault> AllFaults();

} // namespace qrtVistrelClasses4
