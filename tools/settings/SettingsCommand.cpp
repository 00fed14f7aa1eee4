// vistrel settings: the application's preferences.
#include "frame/Conversions.h"
#include "platform/LetterCase.h"
#include "settings/SettingsInfoClass.h"
#include "tools/program/Commands.h"
#include "tools/program/JsonText.h"
#include "tools/program/NameDistance.h"
#include "tools/program/PropertyValues.h"
#include "tools/program/Table.h"

#include <algorithm>
#include <optional>
#include <variant>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

using SettingValue = std::variant<std::string, std::int16_t, double, bool>;

struct NamedSetting {
    std::string property;
    std::string key;
    SettingValue value;
    SettingValue defaultValue;
};

std::vector<NamedSetting> namedSettings(const SettingsRecord& now, const SettingsRecord& defaults) {
    std::vector<NamedSetting> all;
    ForEachSetting(now, [&](const std::string& key, const auto& value, auto, const std::string& property) {
        all.push_back({property, key, value, {}});
    });
    auto next = all.begin();
    ForEachSetting(
        defaults, [&](const auto&, const auto& value, auto, const auto&) { (next++)->defaultValue = value; });
    return all;
}

/// Lets an error of loading be about the key that was read last.
class LastKeyRead final : public TraceRecorder {
public:
    explicit LastKeyRead(ErrorLines& errors) : errors_(errors) {}
    void entered(const TraceLine&) override {}
    void left(const TraceLine& line) override {
        if (line.procedure == "Function GetPrivateSetting")
            errors_.about("VistrelLite.ini " + line.arguments);
    }

private:
    ErrorLines& errors_;
};

/// All preferences as the file has them; what is wrong there goes to the session.
std::vector<NamedSetting> loadSettings(Session& session) {
    SettingsInfoClass settings;
    const SettingsRecord defaults = settings.Settings();
    LastKeyRead lastKey(session.errors);
    const ScopedTraceRecorder scope(lastKey);
    settings.GetSettingsFromDisk();
    return namedSettings(settings.Settings(), defaults);
}

/// A value as the library saves it.
struct StoredText {
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(std::int16_t number) const { return NumberToText(std::int32_t{number}); }
    std::string operator()(double number) const { return NumberToText(number); }
    std::string operator()(bool flag) const { return std::string(BooleanToText(flag)); }
};

std::string cellText(const SettingValue& value) {
    return Visible(Utf8FromAnsi(std::visit(StoredText(), value)));
}

/// What was typed, as the library saves values of the type of `value`; none after telling what is wanted.
std::optional<std::string> storedText(const SettingValue& value, const std::string& typed,
                                      ErrorLines& errors) {
    return std::visit(
        [&]<class Value>(const Value&) -> std::optional<std::string> {
            const std::optional<Value> parsed = ValueFromTyped<Value>(typed, errors);
            return parsed ? std::optional(StoredText()(*parsed)) : std::nullopt;
        },
        value);
}

/// The setting of that property name or key; none after telling which names come near.
const NamedSetting* find(const std::vector<NamedSetting>& settings, const std::string& name,
                         Session& session) {
    for (const NamedSetting& setting : settings)
        if (EqualIgnoringAsciiCase(setting.property, name) || EqualIgnoringAsciiCase(setting.key, name))
            return &setting;
    const auto nearest = std::ranges::min_element(settings, {}, [&](const NamedSetting& setting) {
        return std::min(NameDistance(setting.property, name), NameDistance(setting.key, name));
    });
    session.errors.about(name);
    session.errors.add("no such setting; the nearest name is " + nearest->property);
    return nullptr;
}

ExitCode list(bool json, Session& session) {
    const std::vector<NamedSetting> settings = loadSettings(session);
    if (json) {
        auto array = nlohmann::ordered_json::array();
        for (const NamedSetting& setting : settings)
            array.push_back(
                {{"property", setting.property},
                 {"key", setting.key},
                 {"value", std::visit([](const auto& value) { return JsonOf(value); }, setting.value)},
                 {"isDefault", setting.value == setting.defaultValue}});
        session.out << JsonText(array) << '\n';
        return ExitCode::done;
    }
    Table table({{"Property"}, {"Key"}, {"Value"}, {"Default"}});
    for (const NamedSetting& setting : settings)
        table.addRow({setting.property, setting.key, cellText(setting.value),
                      setting.value == setting.defaultValue ? "yes" : ""});
    session.out << table;
    return ExitCode::done;
}

ExitCode get(const std::string& name, Session& session) {
    const std::vector<NamedSetting> settings = loadSettings(session);
    const NamedSetting* setting = find(settings, name, session);
    if (!setting)
        return ExitCode::wrongUsage;
    session.out << cellText(setting->value) << '\n';
    return ExitCode::done;
}

/// Writes the key and looks whether it got there, since writing itself does not tell.
bool store(const std::string& key, const std::string& value) {
    SettingsInfoClass settings;
    settings.WriteSetting(key, value);
    const std::string somethingElse = value.empty() ? "-" : "";
    return settings.GetPrivateSetting(key, somethingElse) == value;
}

ExitCode set(const std::string& name, const std::string& typed, Session& session) {
    const SettingsRecord defaults = SettingsInfoClass().Settings();
    const std::vector<NamedSetting> settings = namedSettings(defaults, defaults);
    const NamedSetting* setting = find(settings, name, session);
    if (!setting)
        return ExitCode::wrongUsage;
    session.errors.about(setting->property);
    const std::optional<std::string> stored = storedText(setting->value, typed, session.errors);
    if (!stored)
        return ExitCode::wrongUsage;
    if (!store(setting->key, *stored))
        session.errors.add("the value was not stored, or does not read back as it is");
    return ExitCode::done;
}

} // namespace

void AddSettingsCommand(CLI::App& program, Session& session) {
    struct Options {
        bool json = false;
        std::string name, value;
    };
    const auto options = std::make_shared<Options>();
    CLI::App& settings = AddCommand(program, "settings", "Shows and changes the application's preferences",
                                    "vistrel settings set DisplayHeight 32");
    settings.require_subcommand(1);

    CLI::App& listCommand =
        AddCommand(settings, "list", "Shows every setting", "vistrel settings list --home samples");
    listCommand.add_flag("--json", options->json, "Prints an array of settings");
    listCommand.callback([options, &session] {
        session.command = [options, &session] { return list(options->json, session); };
    });

    constexpr const char* nameHelp = "Its property or INI key, in any case";
    CLI::App& getCommand =
        AddCommand(settings, "get", "Shows one setting", "vistrel settings get BrightnessScheduleStartTime2");
    getCommand.add_option("NAME", options->name, nameHelp)->required();
    getCommand.callback([options, &session] {
        session.command = [options, &session] { return get(options->name, session); };
    });

    CLI::App& setCommand =
        AddCommand(settings, "set", "Changes one setting", "vistrel settings set DisplayHeight 32");
    setCommand.add_option("NAME", options->name, nameHelp)->required();
    setCommand.add_option("VALUE", options->value, "The new value")->required();
    setCommand.callback([options, &session] {
        session.command = [options, &session] { return set(options->name, options->value, session); };
    });
}

} // namespace qrtVistrelClasses4
