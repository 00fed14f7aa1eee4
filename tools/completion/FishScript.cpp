#include "tools/completion/Places.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kFishHead =
    R"sh(# Fish completion for vistrel, printed by "vistrel completion fish".

# What may be typed for the command $path, into the variables of the caller.
function __vistrel_command --no-scope-shadowing
    switch "$path"
)sh";

constexpr std::string_view kFishBetween = R"sh(    end
end

# What may be typed at the place $argv[2] of the command $argv[1]: as the value of an option, or as the argument of a
# number. $argv[3] is what has been typed of it.
function __vistrel_place
    switch "$argv[1]/$argv[2]"
)sh";

constexpr std::string_view kFishTail = R"sh(    end
end

function __vistrel_complete
    set -l path ''
    set -l option ''
    set -l options
    set -l valued
    set -l commands
    set -l last 0
    set -l arguments 0
    set -l current (commandline -ct)
    set -l typed (commandline -opc)
    __vistrel_command
    for word in $typed[2..-1]
        if test -n "$option"
            set option ''
        else if contains -- $word $valued
            set option $word
        else if string match -q -- '-?*' $word
            continue
        else if test $arguments = $last; and string match -q -- "$word"\t'*' $commands
            set path (string trim -- "$path $word")
            set arguments 0
            __vistrel_command
        else if test $arguments -lt $last
            set arguments (math $arguments + 1)
        end
    end
    if test -z "$option"; and string match -q -- '--*=*' $current
        set -l parts (string split -m 1 = -- $current)
        __vistrel_place "$path" $parts[1] $parts[2] | string replace -r '^' -- "$parts[1]="
        return
    end
    if test -n "$option"
        __vistrel_place "$path" $option "$current"
    else if string match -q -- '-*' $current
        printf '%s\n' $options
    else
        test $arguments = $last; and printf '%s\n' $commands
        __vistrel_place "$path" $arguments "$current"
    end
end

complete -c vistrel -f -a '(__vistrel_complete)'
)sh";

/// In single quotes, as this shell reads them.
std::string fishQuoted(std::string_view text) {
    return "'" + Replaced(text, R"('\)", [](char letter) { return std::string{'\\', letter}; }) + "'";
}

/// " 'show'\t'Shows the frames of a playfile'" for each. The tab is typed outside the quotes.
std::string fishDescribed(const std::vector<DescribedWord>& all) {
    std::string text;
    for (const DescribedWord& each : all)
        text += " " + fishQuoted(each.word) + R"(\t)" + fishQuoted(each.description);
    return text;
}

std::string fishActionAt(const OfferedValues& offered) {
    switch (offered.entries) {
    case OfferedValues::Entries::folders:
        return R"(__fish_complete_directories "$argv[3]" '')";
    case OfferedValues::Entries::files:
        return offered.endings.empty()
                   ? R"(__fish_complete_path "$argv[3]")"
                   : R"(__fish_complete_path "$argv[3]" | string match -rie '(/|\.()" +
                         Replaced(offered.endings, " ", [](char) { return "|"; }) + R"())(\t|$)')";
    default:
        return R"(printf '%s\n')" +
               Joined(offered.words, "", [](const std::string& word) { return " " + fishQuoted(word); });
    }
}

} // namespace

std::string FishScript(const std::vector<CommandPlace>& commands) {
    std::string script(kFishHead);
    for (const CommandPlace& command : commands)
        script += "        case '" + command.path + "'\n            set options" +
                  fishDescribed(command.options) + "\n            set valued" +
                  Joined(command.valued, "", [](const std::string& name) { return " " + name; }) +
                  "\n            set commands" + fishDescribed(command.commands) + "\n            set last " +
                  std::to_string(command.lastArgument) + "\n";
    script += kFishBetween;
    for (const CommandPlace& command : commands)
        for (const ValuePlace& place : command.places)
            script += "        case '" + command.path + "/" + place.name + "'\n            " +
                      fishActionAt(place.offered) + "\n";
    return script + std::string(kFishTail);
}

} // namespace qrtVistrelClasses4
