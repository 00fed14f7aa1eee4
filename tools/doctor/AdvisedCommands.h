// The commands that advice gives.
#pragma once

#include "tools/program/Encoding.h"
#include "tools/program/ShellWord.h"

#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Makes commands that act on the stores that were examined, and that people may copy into a shell.
class AdvisedCommands {
public:
    /// `home` is what --home has, or the environment in its place.
    explicit AdvisedCommands(const std::optional<std::string>& home)
        : start_(home ? withWord("vistrel --home ", Utf8FromName(*home)) : "vistrel") {}

    /// "vistrel --home site settings reset AVIDelay" for "settings reset" and "AVIDelay". Empty if a shell
    /// would not take the words as they are.
    std::string text(std::string_view command, std::string_view word) const {
        return start_.empty() ? "" : withWord(start_ + " " + std::string(command) + " ", word);
    }

    std::string reset(const std::string& setting) const {
        const std::string command = text("settings reset", setting);
        return command.empty() ? "reset the setting " + setting : command;
    }

private:
    static std::string withWord(const std::string& start, std::string_view word) {
        const std::optional<std::string> copied = WordToCopy(word);
        return copied ? start + *copied : "";
    }

    std::string start_;
};

} // namespace qrtVistrelClasses4
