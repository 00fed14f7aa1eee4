#include "tools/program/ErrorLines.h"

#include "tools/program/Encoding.h"

#include <utility>

namespace qrtVistrelClasses4 {

std::string TextOf(const RuntimeError& error) {
    return error.description() + " (error " + std::to_string(error.number()) + ")";
}

void ErrorLines::keep(const std::string& subject, std::string_view text) {
    std::string line = "vistrel: " + Visible((subject.empty() ? "" : subject + ": ") + std::string(text));
    if (kept_.contains(line))
        return;
    if (lines_.size() == kMostErrorLines) {
        ++notKept_;
        return;
    }
    kept_.insert(line);
    lines_.push_back(std::move(line));
}

void ErrorLines::add(const RuntimeError& error) {
    if (!error.isQuiet())
        add(TextOf(error));
}

void ErrorLines::add(const FileError& error) {
    add((error.line ? "line " + std::to_string(*error.line) + ": " : "") + TextOf(error.error));
}

void ErrorLines::add(const std::vector<PreferenceError>& errors) {
    hasErrors_ = hasErrors_ || !errors.empty();
    for (const PreferenceError& error : errors)
        keep("VistrelLite.ini, key " + error.key, TextOf(error.error));
}

std::vector<std::string> ErrorLines::lines() const {
    std::vector<std::string> lines = lines_;
    if (notKept_ > 0)
        lines.push_back("vistrel: and " + std::to_string(notKept_) + " more");
    return lines;
}

} // namespace qrtVistrelClasses4
