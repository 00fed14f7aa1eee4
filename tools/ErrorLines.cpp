#include "tools/ErrorLines.h"

#include "tools/Encoding.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {

void ErrorLines::add(std::string_view text) {
    std::string line = "vistrel: " + Visible((subject_.empty() ? "" : subject_ + ": ") + std::string(text));
    if (std::ranges::find(lines_, line) == lines_.end())
        lines_.push_back(std::move(line));
}

void ErrorLines::add(const RuntimeError& error) {
    if (!error.isQuiet())
        add(error.description() + " (error " + std::to_string(error.number()) + ")");
}

} // namespace qrtVistrelClasses4
