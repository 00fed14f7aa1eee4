#include "tools/validation/CheckReport.h"

#include "tools/preview/TerminalColors.h"
#include "tools/program/Encoding.h"
#include "tools/program/Screen.h"

#include <algorithm>
#include <array>

namespace qrtVistrelClasses4 {
namespace {

constexpr Color kColorOfFixed = Rgb(0, 160, 0);

Color colorOf(Severity severity) {
    constexpr std::array colors{Rgb(0, 150, 190), Rgb(205, 160, 0), Rgb(220, 0, 0)};
    static_assert(static_cast<std::size_t>(Severity::error) == colors.size() - 1);
    return colors[static_cast<std::size_t>(severity)];
}

/// "frame 3, line 1, CurrentLineText (line 72 of the file)".
std::string placeOf(const Finding& finding) {
    std::string place = "playfile";
    if (finding.frame > 0)
        place = "frame " + std::to_string(finding.frame);
    if (finding.line > 0)
        place += ", line " + std::to_string(finding.line);
    if (!finding.property.empty())
        (place += ", ") += finding.property;
    if (finding.fileLine > 0)
        place += " (line " + std::to_string(finding.fileLine) + " of the file)";
    return place;
}

/// Prints a finding as a line that starts with `kind`.
void printFinding(std::ostream& out, std::string_view kind, Color color, const Finding& finding) {
    constexpr std::size_t widestKind = 7; // "warning", "fixable"
    const std::string sequence = ColorSequence(Ground::letter, color, ScreenOf(out).colors);
    out << sequence << kind << (sequence.empty() ? "" : kUsualColors)
        << std::string(widestKind + 2 - kind.size(), ' ') << placeOf(finding) << ": "
        << VisibleAnsi(finding.message) << " [" << finding.rule->name << "]\n";
}

nlohmann::ordered_json numberOrNull(std::int32_t number) {
    return number > 0 ? nlohmann::ordered_json(number) : nlohmann::ordered_json();
}

} // namespace

std::size_t CountFixable(const std::vector<Finding>& findings) {
    return static_cast<std::size_t>(
        std::ranges::count_if(findings, [](const Finding& finding) { return finding.fix.has_value(); }));
}

CheckReport::CheckReport(CheckForm form, const InputOptions& input, std::ostream& out)
    : form_(form), out_(out), headings_(input, out) {
    if (form == CheckForm::json)
        array_.emplace(out);
}

void CheckReport::startFile(const std::string& path, const CheckedPlayfile& checked) {
    if (form_ != CheckForm::text || (checked.findings.empty() && checked.fixed.empty()))
        return;
    headings_.print(path);
    hasLines_ = true;
}

void CheckReport::add(const std::string& path, const CheckedPlayfile& checked) {
    ++files_;
    (checked.isSaved ? fixed_ : notSaved_) += checked.fixed.size();
    fixable_ += CountFixable(checked.findings);
    for (const Finding& finding : checked.findings)
        counts_.add(finding.rule->severity);
    if (array_)
        addJson(path, checked.findings);
    else if (form_ == CheckForm::text)
        addText(checked);
}

void CheckReport::addText(const CheckedPlayfile& checked) {
    for (const Finding& finding : checked.fixed)
        printFinding(out_, checked.isSaved ? "fixed" : "fixable", kColorOfFixed, finding);
    for (const Finding& finding : checked.findings)
        printFinding(out_, SeverityName(finding.rule->severity), colorOf(finding.rule->severity), finding);
}

void CheckReport::addJson(const std::string& path, const std::vector<Finding>& findings) {
    for (const Finding& finding : findings)
        array_->add({{"file", path},
                     {"rule", finding.rule->name},
                     {"severity", SeverityName(finding.rule->severity)},
                     {"frame", numberOrNull(finding.frame)},
                     {"line", numberOrNull(finding.line)},
                     {"property", finding.property.empty() ? nlohmann::ordered_json() : finding.property},
                     {"fileLine", numberOrNull(finding.fileLine)},
                     {"message", Utf8FromAnsi(finding.message)}});
}

void CheckReport::finish(bool proposesFixes) {
    if (array_) {
        array_->end();
        out_ << '\n';
    }
    if (form_ != CheckForm::text || files_ == 0)
        return;
    out_ << (hasLines_ ? "\n" : "") << Counted(files_, "file") << " checked: " << counts_.text();
    if (fixed_ > 0)
        out_ << "; " << Counted(fixed_, "fault") << " fixed";
    if (notSaved_ > 0)
        out_ << "; " << Counted(notSaved_, "fault") << " can be fixed";
    if (proposesFixes && fixable_ > 0)
        out_ << "; " << fixable_ << " can be fixed with --fix";
    out_ << '\n';
}

} // namespace qrtVistrelClasses4
