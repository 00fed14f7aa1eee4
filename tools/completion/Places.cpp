#include "tools/completion/Places.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

using Path = std::vector<const CommandModel*>; ///< From the program to a command.

OfferedValues offeredFor(const ValueModel& value) {
    return value.words.empty() ? ValuesOfKind(value.value) : OfferedValues{.words = value.words};
}

void addPlace(const std::string& name, const ValueModel& value, CommandPlace& place) {
    ValuePlace added{name, offeredFor(value)};
    if (added.offered.entries != OfferedValues::Entries::none || !added.offered.words.empty())
        place.places.push_back(std::move(added));
}

void addOption(const ValueModel& option, CommandPlace& place) {
    for (const std::string& name : option.names)
        if (std::ranges::find(place.options, name, &DescribedWord::word) == place.options.end()) {
            place.options.push_back({name, option.description});
            if (option.value.empty())
                continue;
            place.valued.push_back(name);
            addPlace(name, option, place);
        }
}

void addCommand(const Path& path, std::vector<CommandPlace>& places) {
    const CommandModel& command = *path.back();
    CommandPlace place;
    const std::size_t blank = command.name.find(' ');
    place.path = blank == command.name.npos ? "" : command.name.substr(blank + 1);
    for (auto each = path.rbegin(); each != path.rend(); ++each)
        for (const ValueModel& option : (*each)->options)
            if (each == path.rbegin() || option.names.front() != "--version") // which only the program has
                addOption(option, place);
    for (std::size_t number = 0; number < command.arguments.size(); ++number)
        addPlace(std::to_string(number), command.arguments[number], place);
    const bool isLastRepeated = !command.arguments.empty() && command.arguments.back().isRepeated;
    place.lastArgument = command.arguments.size();
    if (isLastRepeated && command.commands.empty())
        --place.lastArgument;
    else if (isLastRepeated) // a command is only taken after the first one
        addPlace(std::to_string(place.lastArgument), command.arguments.back(), place);
    for (const CommandModel& below : command.commands)
        place.commands.push_back({below.name.substr(command.name.size() + 1), below.description});
    places.push_back(std::move(place));
    for (const CommandModel& below : command.commands) {
        Path longer = path;
        longer.push_back(&below);
        addCommand(longer, places);
    }
}

/// Makes `help` offer the commands, and the subcommands of the one that is typed after it: "help frames" is a
/// place like "frames", with the options of `help`.
void addExplained(std::vector<CommandPlace>& places) {
    const auto help = std::ranges::find(places, "help", &CommandPlace::path);
    if (help == places.end())
        return;
    std::erase_if(help->places, [](const ValuePlace& place) { return place.name == "0"; });
    help->lastArgument = 0;
    const std::vector<CommandPlace> all = places;
    CommandPlace explained = *help;
    help->commands = all.front().commands;
    for (const CommandPlace& command : all)
        if (!command.path.empty()) {
            explained.path = "help " + command.path;
            explained.commands = command.commands;
            places.push_back(explained);
        }
}

} // namespace

std::vector<CommandPlace> PlacesOf(const CommandModel& program) {
    std::vector<CommandPlace> places;
    addCommand({&program}, places);
    addExplained(places);
    return places;
}

} // namespace qrtVistrelClasses4
