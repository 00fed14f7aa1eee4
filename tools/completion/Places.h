// What a shell may complete, flat: one entry for each command, with all that may follow it.
#pragma once

#include "tools/completion/CommandModel.h"
#include "tools/program/ShellWord.h"
#include "tools/program/ValueKinds.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

struct DescribedWord {
    std::string word, description;
};

/// A place where a value is typed.
struct ValuePlace {
    std::string name; ///< "--color" for the value of that option, "0" for the first argument.
    OfferedValues offered;
};

struct CommandPlace {
    std::string path; ///< "frames insert"; empty for the program.
    std::vector<DescribedWord> options;
    std::vector<std::string> valued; ///< Those that take a value.
    std::vector<DescribedWord> commands;
    std::size_t lastArgument = 0; ///< The number of the one where commands may be, or which may be repeated.
    std::vector<ValuePlace> places; ///< Where shells know something to offer.
};

std::vector<CommandPlace> PlacesOf(const CommandModel& program);

/// The texts of `items` with `separator` between them.
template <class Items, class Text>
std::string Joined(const Items& items, std::string_view separator, Text text) {
    std::string all;
    for (const auto& item : items)
        (all += all.empty() ? "" : separator) += std::invoke(text, item);
    return all;
}

/// Completion scripts of the shells.
std::string BashScript(const std::vector<CommandPlace>& commands);
std::string ZshScript(const std::vector<CommandPlace>& commands);
std::string FishScript(const std::vector<CommandPlace>& commands);
std::string PowerShellScript(const std::vector<CommandPlace>& commands);

} // namespace qrtVistrelClasses4
