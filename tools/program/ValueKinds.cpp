#include "tools/program/ValueKinds.h"

#include "tools/playfile/TypedProperties.h"
#include "tools/program/Commands.h"
#include "tools/program/PropertyValues.h"
#include <qrtVistrelClasses4/DisplayRecord.h>
#include <qrtVistrelClasses4/Preferences.h>
#include <qrtVistrelClasses4/ValidationRules.h>

#include <algorithm>
#include <iterator>

namespace qrtVistrelClasses4 {
namespace {

/// "DisplayWidth=", or "DisplayType=Kestrel" for each of the names that may be typed.
template <class Record, class Table>
std::vector<std::string> wordsOfProperties(const Table& table) {
    std::vector<std::string> words;
    const Record record;
    ForEachProperty(record, table, [&]<class Row>(const std::string& name, const Row& row, const auto&) {
        if constexpr (requires { row.isInFile(); })
            if (!row.isInFile())
                return;
        std::vector<std::string> values = NamesOf(AllowedValuesOf(row.name));
        bool isFlag = std::is_same_v<ValueOfRow<Row>, bool>;
        if constexpr (requires { Row::isFlagInNumber; })
            isFlag = isFlag || Row::isFlagInNumber;
        if (isFlag)
            values = {"yes", "no"};
        else if (values.empty())
            values = {""};
        for (const std::string& value : values)
            words.emplace_back(name).append("=").append(value);
    });
    return words;
}

std::vector<std::string> wordsOfSigns() { return wordsOfProperties<DisplayRecord>(kDisplayMembers); }

std::vector<std::string> wordsOfFrames() { return wordsOfProperties<FrameRecord>(kFrameMembers); }

std::vector<std::string> wordsOfLines() {
    std::vector<std::string> words = wordsOfProperties<LineRecord>(kLineMembers);
    words.emplace_back(kTextProperty).append("=");
    return words;
}

std::vector<std::string> wordsOfNewFrames() {
    std::vector<std::string> words = wordsOfFrames();
    std::ranges::move(wordsOfLines(), std::back_inserter(words));
    return words;
}

std::vector<std::string> namesOfSettings() {
    std::vector<std::string> names;
    const Preferences preferences;
    ForEachPreference([&](const auto& placed, const auto&) { names.push_back(placed.name()); }, preferences);
    return names;
}

std::vector<std::string> namesOfRules() {
    std::vector<std::string> names;
    names.reserve(kRules.size());
    for (const Rule& rule : kRules)
        names.emplace_back(rule.name);
    return names;
}

struct ValueKind {
    using Entries = OfferedValues::Entries;

    std::string_view name;
    Entries entries = Entries::none;
    std::string_view endings{};
    std::vector<std::string> (*words)() = nullptr;
};

constexpr ValueKind kKinds[] = {
    {kPlayfileValue, ValueKind::Entries::files, "playfile PL2"},
    {kOlderPlayfileValue, ValueKind::Entries::files, "PL2"},
    {kFontValue, ValueKind::Entries::files, "cmd cff"},
    {kFileValue, ValueKind::Entries::files},
    {kFolderValue, ValueKind::Entries::folders},
    {kPropertyValue, ValueKind::Entries::none, {}, &wordsOfSigns},
    {kFramePropertyValue, ValueKind::Entries::none, {}, &wordsOfFrames},
    {kLinePropertyValue, ValueKind::Entries::none, {}, &wordsOfLines},
    {kNewFramePropertyValue, ValueKind::Entries::none, {}, &wordsOfNewFrames},
    {kSettingValue, ValueKind::Entries::none, {}, &namesOfSettings},
    {kCommandValue, ValueKind::Entries::none, {}, &NamesOfCommands},
    {kRuleValue, ValueKind::Entries::none, {}, &namesOfRules},
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
