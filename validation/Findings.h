// What a validation has found so far.
#pragma once

#include <qrtVistrelClasses4/Validation.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

/// The name of a rule in a source. A name that no rule has does not compile.
class RuleName {
public:
    // NOLINTNEXTLINE(google-explicit-constructor): literals become names of rules.
    consteval RuleName(const char* name) : index_(IndexOfRule(name)) {
        if (index_ == kRules.size())
            throw "no rule has this name";
    }
    const Rule* rule() const { return &kRules[index_]; }

private:
    std::size_t index_;
};

/// Where something was found.
struct Place {
    std::int32_t frame = 0;      ///< 0: the whole playfile.
    std::int32_t line = 0;       ///< 0: the whole frame.
    std::string_view property{}; ///< Empty if no single one is to blame.
};

/// Collects findings.
class Findings {
public:
    void add(RuleName name, const Place& place, std::string message,
             std::optional<double> fix = std::nullopt);

    /// All findings in the order of their places; those of one place as they were added.
    std::vector<Finding> inOrder() &&;

private:
    std::vector<Finding> findings_;
};

} // namespace qrtVistrelClasses4
