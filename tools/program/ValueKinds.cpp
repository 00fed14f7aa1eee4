#include "tools/program/ValueKinds.h"

#include "tools/program/Commands.h"
#include "tools/program/PropertyValues.h"
#include <qrtVistrelClasses4/DisplayRecord.h>
#include <qrtVistrelClasses4/Preferences.h>

#include <algorithm>
#include <iterator>

namespace qrtVistrelClasses4 {
namespace {

/// "DisplayWidth=", or "DisplayType=Kestrel" for each name that a number has.
std::vector<std::string> wordsOfProperties() {
    std::vector<std::string> words;
    const DisplayRecord sign;
    ForEachProperty(sign, kDisplayMembers, [&](const std::string& name, const auto& row, const auto&) {
        const NumberNames* const names = AllowedValuesOf(row.name).names;
        if (!names)
            words.push_back(name + "=");
        else
            for (const NamedNumber& named : names->all())
                words.push_back(name + "=" + std::string(named.name));
    });
    return words;
}

std::vector<std::string> namesOfSettings() {
    std::vector<std::string> names;
    const Preferences preferences;
    ForEachPreference([&](const auto& placed, const auto&) { names.push_back(placed.name()); }, preferences);
    return names;
}

struct ValueKind {
    std::string_view name;
    OfferedValues::Entries entries = OfferedValues::Entries::none;
    std::string_view endings{};
    std::vector<std::string> (*words)() = nullptr;
};

using enum OfferedValues::Entries;

constexpr ValueKind kKinds[] = {
    {kPlayfileValue, files, "playfile PL2"},
    {kOlderPlayfileValue, files, "PL2"},
    {kFontValue, files, "cmd cff"},
    {kFileValue, files},
    {kFolderValue, folders},
    {kPropertyValue, none, {}, &wordsOfProperties},
    {kSettingValue, none, {}, &namesOfSettings},
    {kCommandValue, none, {}, &NamesOfCommands},
};

} // namespace

OfferedValues ValuesOfKind(std::string_view kind) {
    const auto* const found = std::ranges::find(kKinds, kind, &ValueKind::name);
    if (found == std::end(kKinds))
        return {};
    return {found->entries, std::string(found->endings),
            found->words ? found->words() : std::vector<std::string>()};
}

} // namespace qrtVistrelClasses4
