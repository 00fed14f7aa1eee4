// What looks like a code in a text, and is none.
#pragma once

#include "commands/TextCodes.h"
#include "validation/Findings.h"
#include <qrtVistrelClasses4/CommandTable.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace qrtVistrelClasses4 {

/// A piece of a text that looks like a code.
struct SuspectCode {
    std::string_view text;
    RuleName rule;
    std::string why; ///< The rest of a message that starts with "The text has " and the piece.
};

/// Examines texts for codes of given commands. `commands` must outlive it.
class CodeCheck {
public:
    explicit CodeCheck(const CommandTable& commands);

    /// Adds each of the suspect pieces of a text once, no matter how often it is there, and only the first
    /// ones of a rule if they are many.
    void check(std::string_view text, const Place& place, Findings& findings) const;

private:
    std::optional<SuspectCode> suspectAt(std::string_view rest, bool isAfterLetter) const;
    bool startsUnfinishedKey(std::string_view rest) const;

    std::vector<std::string_view> keys_;
    TextCodes codes_;
    std::unordered_set<std::string_view>
        starts_;                       ///< Of keys with bars, which have an end that can be missing.
    std::array<bool, 256> mayStart_{}; ///< By character, whether something to be examined may start with it.
};

} // namespace qrtVistrelClasses4
