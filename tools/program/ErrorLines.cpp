#include "tools/program/ErrorLines.h"

#include "tools/program/Encoding.h"

#include <utility>

namespace qrtVistrelClasses4 {

void ErrorLines::add(std::string_view text) {
    std::string line = "vistrel: " + Visible((subject_.empty() ? "" : subject_ + ": ") + std::string(text));
    if (told_.contains(line))
        return;
    if (lines_.size() == kMostErrorLines) {
        ++notKept_;
        return;
    }
    told_.insert(line);
    lines_.push_back(std::move(line));
}

void ErrorLines::add(const RuntimeError& error) {
    if (!error.isQuiet())
        add(error.description() + " (error " + std::to_string(error.number()) + ")");
}

std::vector<std::string> ErrorLines::lines() const {
    std::vector<std::string> lines = lines_;
    if (notKept_ > 0)
        lines.push_back("vistrel: and " + std::to_string(notKept_) + " more");
    return lines;
}

} // namespace qrtVistrelClasses4
