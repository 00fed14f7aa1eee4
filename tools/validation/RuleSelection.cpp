#include "tools/validation/RuleSelection.h"

#include "tools/program/JsonText.h"
#include "tools/program/NameDistance.h"
#include "tools/program/Table.h"
#include "tools/program/ValueKinds.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

void addRuleOption(CLI::App& command, const char* name, std::vector<std::string>& rules,
                   const char* description) {
    command.add_option(name, rules, description)
        ->type_name(kRuleValue)
        ->delimiter(',')
        ->allow_extra_args(false); // a file may follow
}

bool areRules(const char* option, const std::vector<std::string>& names, ErrorLines& errors) {
    for (const std::string& name : names) {
        if (FindRule(name))
            continue;
        NearestName nearest(name);
        for (const Rule& rule : kRules)
            nearest.offer(rule.name);
        errors.about(option);
        errors.add("there is no rule " + name +
                   (nearest.name().empty() ? "; --rules lists them" : nearest.hint()));
        return false;
    }
    return true;
}

} // namespace

void AddRuleOptions(CLI::App& command, RuleOptions& options) {
    addRuleOption(command, "--only", options.only,
                  "Uses this rule, and no other than those that are named so. Several names may have commas "
                  "between them");
    addRuleOption(command, "--skip", options.skipped, "Does not use this rule, or these");
}

bool AreRules(const RuleOptions& options, ErrorLines& errors) {
    return areRules("--only", options.only, errors) && areRules("--skip", options.skipped, errors);
}

RuleSelection::RuleSelection(const RuleOptions& options) {
    const auto isIn = [](const Rule& rule, const std::vector<std::string>& names) {
        return std::ranges::find(names, rule.name) != names.end();
    };
    for (const Rule& rule : kRules)
        if ((options.only.empty() || isIn(rule, options.only)) && !isIn(rule, options.skipped))
            names_.insert(rule.name);
}

std::vector<Finding> RuleSelection::of(std::vector<Finding> findings) const {
    std::erase_if(findings, [&](const Finding& finding) { return !has(finding.rule->name); });
    return findings;
}

void PrintRules(std::ostream& out, const RuleSelection& selection) {
    Table table({{"Rule", Table::Align::left, true}, {"Kind"}, {"What it finds"}, {"What --fix does"}});
    for (const Rule& rule : kRules)
        if (selection.has(rule.name))
            table.addRow({std::string(rule.name), std::string(SeverityName(rule.severity)),
                          std::string(rule.summary), std::string(rule.fix)});
    out << table;
}

void PrintRulesAsJson(std::ostream& out, const RuleSelection& selection) {
    JsonArray array(out);
    for (const Rule& rule : kRules)
        if (selection.has(rule.name))
            array.add({{"rule", rule.name},
                       {"severity", SeverityName(rule.severity)},
                       {"summary", rule.summary},
                       {"fix", rule.fix.empty() ? nlohmann::ordered_json() : rule.fix}});
    array.end();
    out << '\n';
}

} // namespace qrtVistrelClasses4
