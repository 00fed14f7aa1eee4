#include "tools/doctor/Findings.h"

#include "tools/program/Encoding.h"
#include "tools/program/Table.h"

namespace qrtVistrelClasses4 {
namespace {

std::string severityName(const std::optional<Severity>& severity) {
    return severity ? std::string(SeverityName(*severity)) : "ok";
}

nlohmann::ordered_json textOrNull(const std::string& text) {
    return text.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(text);
}

} // namespace

SeverityCounts CountsOf(const DoctorFindings& findings) {
    SeverityCounts counts;
    for (const DoctorFinding& finding : findings)
        if (finding.severity)
            counts.add(*finding.severity);
    return counts;
}

nlohmann::ordered_json JsonOf(const DoctorFindings& findings) {
    auto array = nlohmann::ordered_json::array();
    for (const DoctorFinding& finding : findings)
        array.push_back(
            {{"check", finding.check},
             {"severity", severityName(finding.severity)},
             {"subject", finding.subject},
             {"message", finding.message},
             {"advice", textOrNull(finding.advice)},
             {"path", finding.path.empty() ? textOrNull({}) : textOrNull(Utf8FromName(finding.path))}});
    return array;
}

void PrintFindings(std::ostream& out, const DoctorFindings& findings) {
    // A finding that is cut would hide what is wrong.
    Table table({{"Kind"}, {"Subject", Table::Align::left, true}, {"Finding", Table::Align::left, true}});
    std::string advice;
    for (const DoctorFinding& finding : findings) {
        table.addRow({severityName(finding.severity), Visible(finding.subject), Visible(finding.message)});
        if (!finding.advice.empty())
            advice += "  " + Visible(finding.subject) + ": " + Visible(finding.advice) + '\n';
    }
    out << table;
    if (!advice.empty())
        out << "\nWhat to do\n" << advice;
    out << '\n' << CountsOf(findings).text() << '\n';
}

} // namespace qrtVistrelClasses4
