#include "tools/program/ErrorLines.h"

#include "tools/program/Encoding.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace qrtVistrelClasses4 {

namespace {

/// What the usual description of an error means to somebody who does not know these errors.
struct Meaning {
    ErrorNumber number;
    std::string_view text;
    bool isCommon; ///< Whether the number would say nothing more.
};

constexpr Meaning kMeanings[] = {
    {ErrorNumber::overflow, "the number is too large", false},
    {ErrorNumber::subscriptOutOfRange, "the number is outside its range", false},
    {ErrorNumber::typeMismatch, "the value is of another kind than belongs there", false},
    {ErrorNumber::fileNotFound, "there is no such file", true},
    {ErrorNumber::deviceIoError, "the device failed", false},
    {ErrorNumber::fileAlreadyExists, "there is something of that name already", true},
    {ErrorNumber::diskFull, "the disk is full", true},
    {ErrorNumber::inputPastEnd, "the file ends too early", true},
    {ErrorNumber::deviceUnavailable, "the device is not available", false},
    {ErrorNumber::permissionDenied, "another program uses it", true},
    {ErrorNumber::pathFileAccess, "access is denied", true},
    {ErrorNumber::pathNotFound, "there is no such folder", true},
};

} // namespace

std::string TextOf(const RuntimeError& error) {
    const auto number = static_cast<ErrorNumber>(error.number());
    const auto* const meaning = std::ranges::find(kMeanings, number, &Meaning::number);
    const bool isUsual = meaning != std::end(kMeanings) && error.description() == Describe(number);
    if (isUsual && meaning->isCommon)
        return std::string(meaning->text);
    if (error.number() == kNoErrorNumber)
        return error.description();
    return (isUsual ? std::string(meaning->text) : error.description()) + " (error " +
           std::to_string(error.number()) + ")";
}

std::string ErrorLines::lineOf(const std::string& subject, std::string_view text) {
    return "vistrel: " + Visible((subject.empty() ? "" : subject + ": ") + std::string(text));
}

void ErrorLines::add(const std::string& subject, std::string_view text) { addLine(lineOf(subject, text)); }

void ErrorLines::addLine(std::string line) {
    ++count_;
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
        add(faultOf(error));
}

void ErrorLines::add(const std::string& failure, const RuntimeError& error) {
    if (!error.isQuiet())
        add(failure + ": " + faultOf(error).clause());
}

void ErrorLines::add(const FileFault& fault) {
    if (fault.continuesName)
        addLine(lineOf({}, subject_ + " " + fault.text));
    else
        add(fault.text);
}

FileFault ErrorLines::faultOf(const RuntimeError& error) const {
    return isFile_ ? FaultOf(subject_, error) : FileFault{TextOf(error)};
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
