#include "tools/program/Screen.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

/// The place of the screen among the data of a stream.
int screenIndex() {
    static const int index = std::ios_base::xalloc();
    return index;
}

} // namespace

void AddScreenOptions(CLI::App& program, ScreenOptions& options) {
    program.add_flag("--wide", options.wide, "Prints whole tables and pictures, also on a narrow terminal");
    program
        .add_option(
            "--color", options.color,
            "Colours of pictures and findings: always, never, or auto, which asks the terminal and NO_COLOR")
        ->check(CLI::IsMember({"auto", "always", "never"}))
        ->type_name("WHEN");
}

Screen ScreenFor(Console& console, const ScreenOptions& options) {
    const Terminal terminal = console.terminal();
    const bool isTerminal = console.isTerminal(StandardStream::output);
    const bool isForced = options.color == "always";
    Screen screen;
    if (isTerminal && !options.wide)
        screen.columns = terminal.columns;
    if (isForced)
        screen.colors = std::max(terminal.colors, ColorDepth::sixteen);
    else if (isTerminal && options.color == "auto" && !terminal.refusesColors)
        screen.colors = terminal.colors;
    screen.hasSymbols = (isTerminal || isForced) && terminal.hasSymbols;
    return screen;
}

ScopedScreen::ScopedScreen(std::ios_base& stream, const Screen& screen) : stream_(stream), screen_(screen) {
    stream_.pword(screenIndex()) = &screen_;
}

ScopedScreen::~ScopedScreen() { stream_.pword(screenIndex()) = nullptr; }

const Screen& ScreenOf(std::ios_base& stream) {
    static const Screen file;
    const auto* screen = static_cast<const Screen*>(stream.pword(screenIndex()));
    return screen ? *screen : file;
}

} // namespace qrtVistrelClasses4
