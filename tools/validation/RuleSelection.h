// Which rules playfiles are checked by.
#pragma once

#include "tools/program/ErrorLines.h"
#include <qrtVistrelClasses4/Validation.h>

#include <CLI/CLI.hpp>

#include <ostream>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace qrtVistrelClasses4 {

/// Names of rules as they were typed.
struct RuleOptions {
    std::vector<std::string> only; ///< Empty for all rules.
    std::vector<std::string> skipped;
};

/// Adds "--only" and "--skip".
void AddRuleOptions(CLI::App& command, RuleOptions& options);

/// False, after adding an error, if a name is not that of a rule.
bool AreRules(const RuleOptions& options, ErrorLines& errors);

class RuleSelection {
public:
    explicit RuleSelection(const RuleOptions& options);

    bool has(std::string_view name) const { return names_.contains(name); }
    /// Those of the findings whose rule is selected.
    std::vector<Finding> of(std::vector<Finding> findings) const;

private:
    std::unordered_set<std::string_view> names_;
};

void PrintRules(std::ostream& out, const RuleSelection& selection);
void PrintRulesAsJson(std::ostream& out, const RuleSelection& selection);

} // namespace qrtVistrelClasses4
