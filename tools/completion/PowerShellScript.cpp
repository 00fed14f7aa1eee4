#include "tools/completion/Places.h"

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kPowerShellHead =
    R"ps(# PowerShell completion for vistrel, printed by "vistrel completion powershell".
Register-ArgumentCompleter -Native -CommandName vistrel, vistrel.exe -ScriptBlock {
    param($wordToComplete, $commandAst, $cursorPosition)

    # What may be typed for each command. Values are those of an option, or of the argument of a number. Where nothing
    # is known, files are offered.
    $table = @{
)ps";

constexpr std::string_view kPowerShellTail = R"ps(    }

    $path = ''
    $option = ''
    $arguments = 0
    $command = $table[$path]
    foreach ($element in $commandAst.CommandElements | Select-Object -Skip 1) {
        if ($element.Extent.EndOffset -ge $cursorPosition) {
            break
        }
        $word = $element.ToString().Trim('"', "'")
        if ($option) {
            $option = ''
        } elseif ($command.Valued -ccontains $word) {
            $option = $word
        } elseif ($word -match '^-.') {
            continue
        } elseif ($arguments -eq $command.Last -and $command.Commands.Contains($word)) {
            $path = "$path $word".Trim()
            $arguments = 0
            $command = $table[$path]
        } elseif ($arguments -lt $command.Last) {
            ++$arguments
        }
    }

    $current = $wordToComplete.Trim('"', "'")
    $prefix = ''
    if (-not $option -and $current -match '^(--[^=]*)=(.*)$') {
        $option = $Matches[1]
        $prefix = "$option="
        $current = $Matches[2]
    }
    $offered = [ordered]@{}
    if ($option) {
        $command.Values[$option] | Where-Object { $_ } | ForEach-Object { $offered[$_] = $_ }
    } elseif ($current.StartsWith('-')) {
        $offered = $command.Options
    } else {
        if ($arguments -eq $command.Last) {
            $offered = $command.Commands
        }
        $command.Values["$arguments"] | Where-Object { $_ } | ForEach-Object { $offered[$_] = $_ }
    }
    foreach ($word in @($offered.Keys)) {
        if ($word.StartsWith($current, [System.StringComparison]::OrdinalIgnoreCase)) {
            $text = "$prefix$word"
            if ($text -match '[ ();]') {
                $text = "'$text'"
            }
            [System.Management.Automation.CompletionResult]::new($text, $word, 'ParameterValue', $offered[$word])
        }
    }
}
)ps";

/// In single quotes, as this shell reads them.
std::string powerShellQuoted(std::string_view text) {
    return "'" + Replaced(text, "'", [](char) { return "''"; }) + "'";
}

std::string powerShellDescribed(const std::vector<DescribedWord>& all) {
    return "[ordered]@{" +
           Joined(all, "; ",
                  [](const DescribedWord& each) {
                      return powerShellQuoted(each.word) + " = " + powerShellQuoted(each.description);
                  }) +
           "}";
}

std::string powerShellValuesOf(const CommandPlace& command) {
    std::string values;
    for (const ValuePlace& place : command.places)
        if (!place.offered.words.empty())
            values += (values.empty() ? "" : "; ") + powerShellQuoted(place.name) + " = @(" +
                      Joined(place.offered.words, ", ", &powerShellQuoted) + ")";
    return "@{" + values + "}";
}

} // namespace

std::string PowerShellScript(const std::vector<CommandPlace>& commands) {
    std::string script(kPowerShellHead);
    for (const CommandPlace& command : commands)
        script += "        " + powerShellQuoted(command.path) +
                  " = @{\n            Options = " + powerShellDescribed(command.options) +
                  "\n            Valued = @(" + Joined(command.valued, ", ", &powerShellQuoted) +
                  ")\n            Commands = " + powerShellDescribed(command.commands) +
                  "\n            Last = " + std::to_string(command.lastArgument) +
                  "\n            Values = " + powerShellValuesOf(command) + "\n        }\n";
    return script + std::string(kPowerShellTail);
}

} // namespace qrtVistrelClasses4
