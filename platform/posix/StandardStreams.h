// Where a program's own output goes.
#pragma once

namespace qrtVistrelClasses4 {

enum class StandardStream { output = 1, error = 2 };

/// Whether somebody watches the stream on a terminal, so that it may move and erase what it has written.
bool IsTerminal(StandardStream stream);

} // namespace qrtVistrelClasses4
