// Imports of signs, commands and settings: random ones there and back, and any text as one.
#include "Fuzz.h"
#include "RandomRecords.h"
#include "displays/DisplayFormat.h"
#include "tools/commands/CommandsExchange.h"
#include "tools/exchange/JsonOutput.h"
#include "tools/settings/SettingsExchange.h"
#include "tools/signs/SignsExchange.h"
#include <qrtVistrelClasses4/PreferencesFile.h>

namespace qrtVistrelClasses4 {
namespace {

/// The file of a list.
std::string fileOf(const SignList& list) {
    KeptBytes sink;
    DelimitedWriter out(sink);
    for (const DisplayRecord& sign : list.signs)
        WriteDisplay(out, sign);
    out.finish();
    return sink.text;
}

template <class Value>
std::string jsonOf(const Value& value) {
    KeptBytes sink;
    JsonOutput out(sink);
    out.put(value);
    out.finish();
    return sink.text;
}

/// Makes signs and commands with any values that files can hold, and settings with those that come back.
class RandomStores : RandomRecords {
public:
    explicit RandomStores(const std::string& seed) : RandomRecords(seed, {"\"\0", 2}) {}

    SignList signs() {
        SignList list;
        list.signs.resize(static_cast<std::int32_t>(below(kMostRecords)));
        for (DisplayRecord& sign : list.signs) {
            fill(sign, kDisplayMembers);
            sign.DisplayName = EscapeNumericName(sign.DisplayName);
        }
        return list;
    }

    CommandTable commands() {
        CommandTable table = BuiltInCommands();
        for (std::size_t count = below(kMostRecords); count > 0; --count) {
            std::array<std::string, 4> texts;
            for (std::string& text : texts) {
                fill(text);
                std::erase_if(text,
                              [](char code) { return kNotInCommands.find(code) != kNotInCommands.npos; });
            }
            table.add({texts[0], texts[1], texts[2], texts[3]});
        }
        return table;
    }

    Preferences settings() {
        Preferences preferences = DefaultPreferences({});
        const auto change = [&]<class Value>(const auto&, Value& value) {
            if constexpr (std::is_same_v<Value, std::string>)
                value = std::string(below(3), 'A');
            else if constexpr (std::is_same_v<Value, double>)
                value = static_cast<double>(below(100'000) + 1) / 4;
            else
                fill(value);
        };
        ForEachPreference(change, preferences);
        return preferences;
    }

private:
    static constexpr unsigned kMostRecords = 6;
};

/// `read(imported text, what import says, errors)` gives back what was written.
template <class Value, class Read, class Import>
void requireReturn(const Value& value, const std::string& text, Read read, const Import& import) {
    ErrorLines errors;
    const std::optional<Value> back = read(text, import, errors);
    Require(back.has_value(), errors.empty() ? "what is exported is read" : errors.lines().front().c_str());
    Require(*back == value, "and is as it was");
}

void requireReturn(const SignList& list) {
    const SignsImport import{"", true, nullptr};
    requireReturn(list, CsvOf(list), &SignsOfCsv, import);
    requireReturn(list, jsonOf(list.signs), &SignsOfJson, import);
    ErrorLines errors;
    Require(fileOf(SignsOfCsv(CsvOf(list), import, errors).value_or(SignList())) == fileOf(list),
            "and so are its bytes");
}

void requireReturn(const CommandTable& table) {
    requireReturn(table, jsonOf(CommandsToExchange(table)), &CommandsOfJson,
                  CommandsImport{"", true, nullptr});
}

void requireReturn(const Preferences& preferences) {
    requireReturn(preferences, jsonOf(preferences), &SettingsOfJson, SettingsImport{"", true, {}});
}

/// What a text makes, if anything, comes back from a text made of that.
template <class Read, class Import>
void requireSteady(const std::string& text, Read read, const Import& import) {
    ErrorLines errors;
    const auto value = read(text, import, errors);
    Require(value.has_value() == errors.empty(), "what is not taken has an error");
    if (value)
        requireReturn(*value);
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    TestHost host;
    enum : unsigned { signsInCsv, signsInJson, commands, settings, randomOnes, kinds };
    enum : unsigned { isUnchecked = 1, merges = 2 };
    const unsigned kind = input.byte() % kinds, flags = input.byte();
    RandomStores random(input.bytes(1));
    const std::string text = input.rest();
    const bool merging = (flags & merges) != 0, unchecked = (flags & isUnchecked) != 0;
    if (kind == randomOnes) {
        RandomStores more(text);
        requireReturn(more.signs());
        requireReturn(more.commands());
        requireReturn(more.settings());
    } else if (kind == commands) {
        const CommandTable present = random.commands();
        requireSteady(text, &CommandsOfJson, CommandsImport{"", unchecked, merging ? &present : nullptr});
    } else if (kind == settings) {
        requireSteady(text, &SettingsOfJson,
                      SettingsImport{"", unchecked, merging ? random.settings() : DefaultPreferences({})});
    } else {
        const SignList present = random.signs();
        requireSteady(text, kind == signsInCsv ? &SignsOfCsv : &SignsOfJson,
                      SignsImport{"", unchecked, merging ? &present : nullptr});
    }
}

} // namespace qrtVistrelClasses4
