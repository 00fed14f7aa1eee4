// vistrel settings: the application's preferences.
#include "frame/Conversions.h"
#include "platform/LetterCase.h"
#include "settings/SettingsInfoClass.h"
#include "tools/Commands.h"
#include "tools/Encoding.h"
#include "tools/JsonText.h"
#include "tools/Table.h"

#include <algorithm>
#include <numeric>
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

struct TextOf {
    std::string operator()(const std::string& text) const { return Utf8FromAnsi(text); }
    std::string operator()(std::int16_t number) const { return NumberToText(std::int32_t{number}); }
    std::string operator()(double number) const { return NumberToText(number); }
    std::string operator()(bool flag) const { return std::string(BooleanToText(flag)); }
};

struct JsonOf {
    nlohmann::ordered_json operator()(const std::string& text) const { return Utf8FromAnsi(text); }
    template <class Value>
    nlohmann::ordered_json operator()(Value value) const {
        return value;
    }
};

std::string text(const SettingValue& value) { return std::visit(TextOf(), value); }

/// A typed-in text as the library would save a value of the same type; throws when it is none.
struct StoredTextOf {
    const std::string& typed;
    std::string operator()(const std::string&) const { return typed; }
    std::string operator()(std::int16_t) const { return NumberToText(std::int32_t{TextToInt16(typed)}); }
    std::string operator()(double) const { return NumberToText(TextToDouble(typed)); }
    std::string operator()(bool) const { return std::string(BooleanToText(TextToBoolean(typed))); }
};

std::string wantedType(const SettingValue& value) {
    struct Name {
        const char* operator()(const std::string&) const { return "a text"; }
        const char* operator()(std::int16_t) const { return "a whole number from -32768 to 32767"; }
        const char* operator()(double) const { return "a number"; }
        const char* operator()(bool) const { return "True or False"; }
    };
    return std::visit(Name(), value);
}

/// Number of letters to put in, take out or change to make one name of the other, taken without case.
std::size_t distance(const std::string& one, const std::string& other) {
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < one.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < other.size(); ++j) {
            const bool same = EqualIgnoringAsciiCase({&one[i], 1}, {&other[j], 1});
            const std::size_t changed = diagonal + (same ? 0 : 1);
            diagonal = std::exchange(row[j + 1], std::min({row[j] + 1, row[j + 1] + 1, changed}));
        }
    }
    return row.back();
}

/// The setting of that property name or key; none after telling which names come near.
const NamedSetting* find(const std::vector<NamedSetting>& settings, const std::string& name,
                         Session& session) {
    for (const NamedSetting& setting : settings)
        if (EqualIgnoringAsciiCase(setting.property, name) || EqualIgnoringAsciiCase(setting.key, name))
            return &setting;
    const auto nearest = std::ranges::min_element(settings, {}, [&](const NamedSetting& setting) {
        return std::min(distance(setting.property, name), distance(setting.key, name));
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
            array.push_back({{"property", setting.property},
                             {"key", setting.key},
                             {"value", std::visit(JsonOf(), setting.value)},
                             {"isDefault", setting.value == setting.defaultValue}});
        session.out << JsonText(array) << '\n';
        return ExitCode::done;
    }
    Table table({{"Property"}, {"Key"}, {"Value"}, {"Default"}});
    for (const NamedSetting& setting : settings)
        table.addRow({setting.property, setting.key, Visible(text(setting.value)),
                      setting.value == setting.defaultValue ? "yes" : ""});
    session.out << table;
    return ExitCode::done;
}

ExitCode get(const std::string& name, Session& session) {
    const std::vector<NamedSetting> settings = loadSettings(session);
    const NamedSetting* setting = find(settings, name, session);
    if (!setting)
        return ExitCode::wrongUsage;
    session.out << Visible(text(setting->value)) << '\n';
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
    const std::optional<std::string> ansi = AnsiFromUtf8(typed);
    if (!ansi) {
        session.errors.add("a character of the value is not in Windows-1252");
        return ExitCode::wrongUsage;
    }
    if (std::ranges::any_of(*ansi,
                            [](char character) { return static_cast<unsigned char>(character) < ' '; })) {
        session.errors.add("a value has no line breaks or other control characters");
        return ExitCode::wrongUsage;
    }
    try {
        if (!store(setting->key, std::visit(StoredTextOf{*ansi}, setting->value)))
            session.errors.add("the value was not stored, or does not read back as it is");
    } catch (const RuntimeError&) {
        session.errors.add("takes " + wantedType(setting->value) + ", not \"" + typed + "\"");
        return ExitCode::wrongUsage;
    }
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
