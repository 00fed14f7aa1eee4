#include "tools/ErrorLines.h"

#include "tools/Encoding.h"

namespace qrtVistrelClasses4 {

void ErrorLines::add(std::string_view text) {
    lines_.push_back("vistrel: " + Visible((subject_.empty() ? "" : subject_ + ": ") + std::string(text)));
}

void ErrorLines::add(const RuntimeError& error) {
    if (!error.isQuiet())
        add(error.description() + " (error " + std::to_string(error.number()) + ")");
}

} // namespace qrtVistrelClasses4
