#include "tools/completion/Places.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kBashHead =
    R"sh(# Bash completion for vistrel, printed by "vistrel completion bash".

# What may be typed for the command $path.
_vistrel_command() {
    case $path in
)sh";

constexpr std::string_view kBashBetween = R"sh(    esac
}

# What may be typed at the place $1 of the command $path: as the value of an option, or as the argument of a number.
_vistrel_place() {
    case "$path/$1" in
)sh";

constexpr std::string_view kBashTail = R"sh(    esac
}

# Offers the files that begin with $1 and have one of the endings, in any case; folders, too.
_vistrel_files() {
    local file ending
    compopt -o filenames 2>/dev/null
    while IFS= read -r file; do
        [[ -d $file ]] && COMPREPLY+=("$file") && continue
        [[ $endings == '*' ]] && COMPREPLY+=("$file") && continue
        for ending in $endings; do
            [[ ${file,,} == *".${ending,,}" ]] && COMPREPLY+=("$file") && break
        done
    done < <(compgen -f -- "$1")
}

_vistrel() {
    local path='' options='' valued='' commands='' last=0 arguments=0 option='' endings='' folders=''
    local words=() typed=() word current joined='' prefix=''
    COMPREPLY=()
    for word in "${COMP_WORDS[@]:1:COMP_CWORD}"; do # "=" is a word of its own
        if [[ ($word == = || $joined) && ${#typed[@]} -gt 0 ]]; then
            typed[${#typed[@]}-1]+=$word
            [[ $word == = ]] && joined=yes || joined=
        else
            typed+=("$word")
        fi
    done
    current=${typed[${#typed[@]}-1]}
    unset "typed[${#typed[@]}-1]"
    _vistrel_command
    for word in "${typed[@]}"; do
        if [[ $option ]]; then
            option=
        elif [[ " $valued " == *" $word "* ]]; then
            option=$word
        elif [[ $word == -?* ]]; then
            :
        elif [[ $arguments == "$last" && " $commands " == *" $word "* ]]; then
            path+=${path:+ }$word arguments=0
            _vistrel_command
        elif ((arguments < last)); then
            ((++arguments))
        fi
    done
    if [[ ! $option && $current == --*=* ]]; then
        option=${current%%=*} prefix=$option=
        current=${current#*=}
    fi
    if [[ ! $option && $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        return
    fi
    _vistrel_place "${option:-$arguments}"
    [[ ! $option && $arguments == "$last" ]] && words+=($commands)
    for word in "${words[@]}"; do
        [[ $word == "$current"* ]] && COMPREPLY+=("$word")
    done
    # A word that goes on after "=" is typed without a blank, and what stands in front of "=" is there already.
    [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *= ]] && compopt -o nospace 2>/dev/null
    if [[ $current == *=* && $COMP_WORDBREAKS == *=* ]]; then
        COMPREPLY=("${COMPREPLY[@]#"${current%"${current##*=}"}"}")
    elif [[ $prefix && $COMP_WORDBREAKS != *=* ]]; then
        COMPREPLY=("${COMPREPLY[@]/#/$prefix}")
    fi
    [[ $endings ]] && _vistrel_files "$current"
    if [[ $folders ]]; then
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
    fi
    # Blanks in a word are quoted by Bash for file names only.
    if [[ ! $endings && ! $folders && ${#COMPREPLY[@]} -eq 1 ]]; then
        [[ ${COMPREPLY[0]} ]] && printf -v 'COMPREPLY[0]' %q "${COMPREPLY[0]}" || COMPREPLY=()
    fi
}

complete -F _vistrel vistrel
)sh";

std::string bashWordsOf(const std::vector<DescribedWord>& all) {
    return Joined(all, " ", &DescribedWord::word);
}

} // namespace

std::string BashScript(const std::vector<CommandPlace>& commands) {
    using Entries = OfferedValues::Entries;
    std::string script(kBashHead);
    for (const CommandPlace& command : commands)
        script += "    '" + command.path + "')\n        options='" + bashWordsOf(command.options) +
                  "'\n        valued='" +
                  Joined(command.valued, " ", [](const std::string& name) { return name; }) +
                  "'\n        commands='" + bashWordsOf(command.commands) +
                  "' last=" + std::to_string(command.lastArgument) + "\n        ;;\n";
    script += kBashBetween;
    for (const CommandPlace& command : commands)
        for (const ValuePlace& place : command.places) {
            script += "    '" + command.path + "/'" + place.name + ") ";
            if (place.offered.entries == Entries::files)
                script += "endings='" + (place.offered.endings.empty() ? "*" : place.offered.endings) + "'";
            else if (place.offered.entries == Entries::folders)
                script += "folders=yes";
            else
                script += "words=(" + Joined(place.offered.words, " ", &QuotedForShell) + ")";
            script += " ;;\n";
        }
    return script + std::string(kBashTail);
}

} // namespace qrtVistrelClasses4
