#include "tools/doctor/Findings.h"

#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/Table.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

std::string_view severityName(Severity severity) {
    switch (severity) {
    case Severity::ok:
        return "ok";
    case Severity::note:
        return "note";
    case Severity::warning:
        return "warning";
    case Severity::error:
        break;
    }
    return "error";
}

std::string countOf(const Findings& findings, Severity severity) {
    return Counted(std::ranges::count(findings, severity, &Finding::severity),
                   std::string(severityName(severity)));
}

nlohmann::ordered_json textOrNull(const std::string& text) {
    return text.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(text);
}

} // namespace

std::string CountsOf(const Findings& findings) {
    return countOf(findings, Severity::error) + ", " + countOf(findings, Severity::warning) + ", " +
           countOf(findings, Severity::note);
}

bool HasErrors(const Findings& findings) {
    return std::ranges::find(findings, Severity::error, &Finding::severity) != findings.end();
}

nlohmann::ordered_json JsonOf(const Findings& findings) {
    auto array = nlohmann::ordered_json::array();
    for (const Finding& finding : findings)
        array.push_back(
            {{"check", finding.check},
             {"severity", severityName(finding.severity)},
             {"subject", finding.subject},
             {"message", finding.message},
             {"advice", textOrNull(finding.advice)},
             {"path", finding.path.empty() ? textOrNull({}) : textOrNull(Utf8FromName(finding.path))}});
    return array;
}

void PrintFindings(std::ostream& out, const Findings& findings) {
    // A finding that is cut would hide what is wrong.
    Table table({{"Kind"}, {"Subject", Table::Align::left, true}, {"Finding", Table::Align::left, true}});
    std::string advice;
    for (const Finding& finding : findings) {
        table.addRow({std::string(severityName(finding.severity)), Visible(finding.subject),
                      Visible(finding.message)});
        if (!finding.advice.empty())
            advice += "  " + Visible(finding.subject) + ": " + Visible(finding.advice) + '\n';
    }
    out << table;
    if (!advice.empty())
        out << "\nWhat to do\n" << advice;
    out << '\n' << CountsOf(findings) << '\n';
}

} // namespace qrtVistrelClasses4
