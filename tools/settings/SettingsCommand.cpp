// vistrel settings: the application's preferences.
#include "platform/LetterCase.h"
#include "tools/program/Commands.h"
#include "tools/program/JsonText.h"
#include "tools/program/NameDistance.h"
#include "tools/program/PropertyValues.h"
#include "tools/program/Table.h"
#include "tools/program/ValueKinds.h"
#include "tools/settings/SettingsExchange.h"
#include "tools/settings/StoredSettings.h"
#include <qrtVistrelClasses4/PreferencesFile.h>

#include <optional>

namespace qrtVistrelClasses4 {
namespace {

struct SettingsOptions {
    bool json = false;
    std::string name, value;
    bool isUnchecked = false; ///< The value may be one that no sign has.
};

/// The default of a folder is a name on this machine's disk.
bool namesFolder(const auto& placed) {
    return placed.row.rule == PreferenceRule::graphicsFolder ||
           placed.row.rule == PreferenceRule::playfileFolder;
}

template <class Value>
std::string cellText(const auto& placed, const Value& value) {
    const std::string text = PreferenceText(value);
    return namesFolder(placed) ? VisibleName(text) : VisibleAnsi(text);
}

template <class Value>
nlohmann::ordered_json jsonOf(const auto& placed, const Value& value) {
    if constexpr (std::is_same_v<Value, std::string>)
        if (namesFolder(placed))
            return Utf8FromName(value);
    return JsonOf(value);
}

/// Calls `use(placed, value)` for the preference that has this property name or key, in any case. If there is
/// none, reports that, with the name that may have been meant.
template <class Use>
void withPreference(const std::string& name, const Preferences& preferences, ErrorLines& errors, Use use) {
    bool isFound = false;
    NearestName nearest(name);
    const auto visit = [&](const auto& placed, const auto& value) {
        nearest.offer(placed.name());
        nearest.offer(placed.name(), placed.key());
        if (isFound ||
            (!EqualIgnoringAsciiCase(placed.name(), name) && !EqualIgnoringAsciiCase(placed.key(), name)))
            return;
        isFound = true;
        use(placed, value);
    };
    ForEachPreference(visit, preferences);
    if (isFound)
        return;
    errors.about(name);
    errors.add("there is no such setting" + nearest.hint());
}

ExitCode list(const SettingsOptions& options, Session& session) {
    const Preferences preferences = LoadStoredPreferences(session.errors);
    const Preferences defaults = DefaultPreferences(FindPreferenceFolders());
    auto array = nlohmann::ordered_json::array();
    Table table({{"Property"}, {"Key"}, {"Value"}, {"Default"}});
    const auto visit = [&](const auto& placed, const auto& value, const auto& defaultValue) {
        const bool isDefault = value == defaultValue;
        array.push_back({{"property", placed.name()},
                         {"key", placed.key()},
                         {"value", jsonOf(placed, value)},
                         {"isDefault", isDefault}});
        table.addRow({placed.name(), placed.key(), cellText(placed, value), isDefault ? "yes" : ""});
    };
    ForEachPreference(visit, preferences, defaults);
    if (options.json)
        session.out << JsonText(array) << '\n';
    else
        session.out << table;
    return ExitCode::done;
}

ExitCode get(const SettingsOptions& options, Session& session) {
    auto code = ExitCode::wrongUsage;
    const auto print = [&](const auto& placed, const auto& value) {
        session.out << cellText(placed, value) << '\n';
        code = ExitCode::done;
    };
    withPreference(options.name, LoadStoredPreferences(session.errors), session.errors, print);
    return code;
}

void store(const std::string& key, const std::string& text, ErrorLines& errors) {
    const std::optional<std::string> path = PreferencesPath();
    if (!path)
        return; // the reason has been reported
    const WrittenPreference written = WritePreference(*path, key, text);
    if (written.error)
        errors.add("not saved", *written.error);
    else if (!written.readsBack)
        errors.add(
            "only part of the text is kept: the file holds no blanks or quotes around it, and at most 254 "
            "characters");
}

/// The value of a setting as the application would load it now.
std::string loadedValue(const std::string& name) {
    const std::optional<std::string> path = PreferencesPath();
    const PreferenceFolders folders = FindPreferenceFolders();
    const Preferences defaults = DefaultPreferences(folders);
    const Preferences preferences = path ? LoadPreferences({*path, folders, defaults}).values : defaults;
    std::string text;
    ErrorLines ignored;
    withPreference(name, preferences, ignored,
                   [&](const auto& placed, const auto& value) { text = cellText(placed, value); });
    return text;
}

/// Changes a setting by `change()`, and prints its value before and after.
template <class Change>
void printChange(const std::string& name, Session& session, Change change) {
    const std::string before = loadedValue(name);
    change();
    const std::string after = loadedValue(name);
    if (before != after)
        session.out << ChangeText({name, before, after}) << '\n';
    else if (session.errors.empty())
        session.out << name << ": " << after << ", as before\n";
}

ExitCode set(const SettingsOptions& options, Session& session) {
    auto code = ExitCode::wrongUsage;
    const auto change = [&]<class Value>(const auto& placed, const Value&) {
        session.errors.about(placed.name());
        const TypedValue typed{placed.row.name, options.value, options.isUnchecked};
        const std::optional<Value> value = ValueFromTyped<Value>(typed, session.errors);
        if (!value)
            return;
        printChange(placed.name(), session,
                    [&] { store(placed.key(), PreferenceText(*value), session.errors); });
        code = ExitCode::done;
    };
    withPreference(options.name, {}, session.errors, change);
    return code;
}

ExitCode reset(const SettingsOptions& options, Session& session) {
    auto code = ExitCode::wrongUsage;
    const std::optional<std::string> path = PreferencesPath();
    const auto remove = [&](const auto& placed, const auto&) {
        code = ExitCode::failed;
        if (!path)
            return; // the reason has been reported
        session.errors.about(placed.name());
        printChange(placed.name(), session, [&] {
            if (const std::optional<RuntimeError> error = RemovePreference(*path, placed.key()))
                session.errors.add("not saved", *error);
        });
        code = ExitCode::done;
    };
    withPreference(options.name, {}, session.errors, remove);
    return code;
}

} // namespace

void SetUpSettingsCommand(CLI::App& settings, Session& session) {
    const auto options = std::make_shared<SettingsOptions>();
    settings.require_subcommand(1);
    AddCommand(settings, "list", "Shows every setting", "vistrel settings list --home site", session, options,
               &list)
        .add_flag("--json", options->json, "Prints an array of settings");
    CLI::App& getCommand =
        AddCommand(settings, "get", "Shows one setting", "vistrel settings get BrightnessScheduleStartTime2",
                   session, options, &get);
    CLI::App& setCommand = AddCommand(settings, "set", "Changes one setting",
                                      "vistrel settings set DisplayHeight 32", session, options, &set);
    CLI::App& resetCommand = AddCommand(settings, "reset", "Gives one setting its default again",
                                        "vistrel settings reset DisplayHeight", session, options, &reset);
    for (CLI::App* command : {&getCommand, &setCommand, &resetCommand})
        command->add_option("NAME", options->name, "Its property or INI key, in any case")
            ->type_name(kSettingValue)
            ->required();
    setCommand.add_option("VALUE", options->value, "The new value")->required();
    setCommand.add_flag("--unchecked", options->isUnchecked, "Takes values that no sign has, too");
    AddSettingsExchange(settings, session);
}

} // namespace qrtVistrelClasses4
