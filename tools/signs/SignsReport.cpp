#include "tools/signs/SignsReport.h"

#include "tools/program/Commands.h"
#include "tools/program/JsonText.h"

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::ordered_json;

void printJson(std::ostream& out, const SignsReport& report, const SignsFile& saved) {
    ordered_json json{{"file", saved.path}, {"done", report.done}, {"TotalDisplays", saved.list.count()}};
    if (report.changes) {
        ordered_json& changed = json["changed"] = ordered_json::object();
        for (const ChangedProperty& change : *report.changes)
            changed[change.name] = {{"before", change.before}, {"after", change.after}};
    }
    out << JsonText(json) << '\n';
}

} // namespace

void PrintReport(std::ostream& out, const SignsReport& report, const SignsFile& saved, bool json) {
    if (json)
        return printJson(out, report, saved);
    out << Visible(saved.path + ": " + report.done) << "; " << Counted(saved.list.count(), "sign")
        << " now\n";
    if (report.changes)
        for (const ChangedProperty& changed : *report.changes)
            out << ChangeText(changed) << '\n';
    if (report.readFrom != saved.path)
        out << Visible("The list was read from " + report.readFrom + ", which is unchanged.") << '\n';
}

} // namespace qrtVistrelClasses4
