#include "tools/program/ErrorLines.h"

#include "tools/program/Encoding.h"

#include <utility>

namespace qrtVistrelClasses4 {

std::string TextOf(const RuntimeError& error) {
    return error.description() + " (error " + std::to_string(error.number()) + ")";
}

std::string ErrorLines::lineOf(const std::string& subject, std::string_view text) {
    return "vistrel: " + Visible((subject.empty() ? "" : subject + ": ") + std::string(text));
}

void ErrorLines::add(const std::string& subject, std::string_view text) {
    ++count_;
    std::string line = lineOf(subject, text);
    if (kept_.contains(line))
        return;
    if (keptErrors_ == kMostErrorLines) {
        ++notKept_;
        return;
    }
    ++keptErrors_;
    keep(std::move(line));
}

void ErrorLines::keep(std::string line) {
    if (kept_.insert(line).second)
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
    for (const PreferenceError& error : errors)
        add("VistrelLite.ini, key " + error.key, TextOf(error.error));
}

std::vector<std::string> ErrorLines::lines() const {
    std::vector<std::string> lines = lines_;
    if (notKept_ > 0)
        lines.push_back("vistrel: and " + std::to_string(notKept_) + " more");
    return lines;
}

} // namespace qrtVistrelClasses4
