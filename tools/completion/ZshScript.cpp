#include "tools/completion/Places.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kZshHead = R"sh(#compdef vistrel
# Zsh completion for vistrel, printed by "vistrel completion zsh".

# What may be typed for the command $path_.
_vistrel_command() {
    case $path_ in
)sh";

constexpr std::string_view kZshBetween = R"sh(    esac
}

# What may be typed at the place $1 of the command $path_: as the value of an option, or as the argument of a number.
_vistrel_place() {
    case "$path_/$1" in
)sh";

constexpr std::string_view kZshTail = R"sh(    esac
}

_vistrel() {
    local path_= option= word found=1
    local -a options valued commands
    integer last=0 arguments=0
    _vistrel_command
    for word in "${(@)words[2,CURRENT-1]}"; do
        if [[ -n $option ]]; then
            option=
        elif (( ${valued[(Ie)$word]} )); then
            option=$word
        elif [[ $word == -?* ]]; then
            :
        elif (( arguments == last )) && [[ -n ${(M)commands:#${word}:*} ]]; then
            path_+=${path_:+ }$word arguments=0
            _vistrel_command
        elif (( arguments < last )); then
            (( ++arguments ))
        fi
    done
    if [[ -z $option && $PREFIX == --*=* ]]; then
        option=${PREFIX%%=*}
        compset -P '*='
    fi
    if [[ -z $option && $PREFIX == -* ]]; then
        _describe -o option options
        return
    fi
    if [[ -z $option ]] && (( arguments == last && $#commands )); then
        _describe command commands && found=0
    fi
    _vistrel_place ${option:-$arguments} && found=0
    return found
}

if [[ $funcstack[1] == _vistrel ]]; then
    _vistrel "$@"
else
    compdef _vistrel vistrel
fi
)sh";

/// "'show:Shows the frames of a playfile'" for each.
std::string zshDescribed(const std::vector<DescribedWord>& all) {
    return Joined(all, " ", [](const DescribedWord& each) {
        return QuotedForShell(Replaced(each.word, ":", [](char) { return R"(\:)"; }) + ":" +
                              each.description);
    });
}

std::string zshActionAt(const ValuePlace& place) {
    switch (place.offered.entries) {
    case OfferedValues::Entries::folders:
        return "_files -/";
    case OfferedValues::Entries::files:
        return place.offered.endings.empty()
                   ? "_files"
                   : "_files -g '(#i)*.(" + Replaced(place.offered.endings, " ", [](char) { return "|"; }) +
                         ")(-.)'";
    default:
        return "compadd -- " + Joined(place.offered.words, " ", &QuotedForShell);
    }
}

} // namespace

std::string ZshScript(const std::vector<CommandPlace>& commands) {
    std::string script(kZshHead);
    for (const CommandPlace& command : commands)
        script += "    '" + command.path + "')\n        options=(" + zshDescribed(command.options) +
                  ")\n        valued=(" + Joined(command.valued, " ", &QuotedForShell) +
                  ")\n        commands=(" + zshDescribed(command.commands) +
                  ")\n        last=" + std::to_string(command.lastArgument) + "\n        ;;\n";
    script += kZshBetween;
    for (const CommandPlace& command : commands)
        for (const ValuePlace& place : command.places)
            script += "    '" + command.path + "/'" + place.name + ") " + zshActionAt(place) + " ;;\n";
    script += "    *) return 1 ;;\n";
    return script + std::string(kZshTail);
}

} // namespace qrtVistrelClasses4
