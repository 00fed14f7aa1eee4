// What `vistrel check` prints.
#pragma once

#include "tools/program/Inputs.h"
#include "tools/program/JsonText.h"
#include "tools/program/SeverityCounts.h"
#include <qrtVistrelClasses4/Validation.h>

#include <cstddef>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// How many of the findings have a fix.
std::size_t CountFixable(const std::vector<Finding>& findings);

/// What was found in a file.
struct CheckedPlayfile {
    std::vector<Finding> findings; ///< Those that are left after fixing.
    std::vector<Finding> fixed{};
    bool isSaved = false; ///< If not, what is in `fixed` is still in the file.
};

enum class CheckForm {
    text,
    json,
    nothing, ///< Only counts.
};

class CheckReport {
public:
    /// `out` must outlive the report.
    CheckReport(CheckForm form, const InputOptions& input, std::ostream& out);

    /// Prints the name of a file above what is printed about it.
    void startFile(const std::string& path, const CheckedPlayfile& checked);
    void add(const std::string& path, const CheckedPlayfile& checked);
    /// Prints the end. `proposesFixes`: mentions the option that makes fixes.
    void finish(bool proposesFixes);

    const SeverityCounts& counts() const { return counts_; }

private:
    void addText(const CheckedPlayfile& checked);
    void addJson(const std::string& path, const std::vector<Finding>& findings);

    CheckForm form_;
    std::ostream& out_;
    Headings headings_;
    std::optional<JsonArray> array_;
    SeverityCounts counts_;
    std::size_t files_ = 0;
    std::size_t fixed_ = 0;
    std::size_t notSaved_ = 0; ///< What was fixed in playfiles that were not saved.
    std::size_t fixable_ = 0;  ///< Of the findings that are left.
    bool hasLines_ = false;
};

} // namespace qrtVistrelClasses4
