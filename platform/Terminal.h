// What terminals show.
#pragma once

#include <cstddef>

namespace qrtVistrelClasses4 {

/// Which colours a text can have.
enum class ColorDepth {
    none,
    sixteen, ///< The usual ones, which users set to their taste.
    palette, ///< 256: these, a cube of 6 x 6 x 6, and grays.
    full
};

/// The terminal that a program prints to.
struct Terminal {
    static constexpr std::size_t kUsualColumns = 80;

    std::size_t columns = kUsualColumns; ///< Characters in a line.
    ColorDepth colors = ColorDepth::none;
    bool refusesColors = false; ///< The user wants none, whatever the terminal shows.
    bool hasSymbols = false;    ///< Takes UTF-8, and shows block elements and the like.
};

/// The terminal as environment variables describe it.
Terminal TerminalOfEnvironment();

} // namespace qrtVistrelClasses4
