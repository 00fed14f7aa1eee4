// Where the program prints to: a terminal, or a file or a pipe.
#pragma once

#include "platform/Console.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <ios>
#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

/// How tables and pictures are printed.
struct Screen {
    std::optional<std::size_t> columns; ///< Characters in a line. No value: as many as there are.
    ColorDepth colors = ColorDepth::none;
    bool hasSymbols = false; ///< Block elements and the ellipsis may be printed, else only letters.
};

struct ScreenOptions {
    bool wide = false;
    std::string color = "auto";
};

/// "--wide" and "--color".
void AddScreenOptions(CLI::App& program, ScreenOptions& options);

/// The screen of standard output.
Screen ScreenFor(Console& console, const ScreenOptions& options);

/// Makes a stream print for a screen as long as it lives.
class ScopedScreen {
public:
    ScopedScreen(std::ios_base& stream, const Screen& screen);
    ~ScopedScreen();
    ScopedScreen(const ScopedScreen&) = delete;
    ScopedScreen& operator=(const ScopedScreen&) = delete;

private:
    std::ios_base& stream_;
    Screen screen_;
};

/// The screen of the stream. Without one, the stream goes to a file.
const Screen& ScreenOf(std::ios_base& stream);

} // namespace qrtVistrelClasses4
