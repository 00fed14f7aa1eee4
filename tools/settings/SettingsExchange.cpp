// vistrel settings export and import.
#include "tools/settings/SettingsExchange.h"

#include "platform/IniText.h"
#include "settings/PreferenceProfile.h"
#include "tools/exchange/JsonInput.h"
#include "tools/exchange/Stores.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/PropertyValues.h"
#include "tools/settings/StoredSettings.h"
#include <qrtVistrelClasses4/PreferencesFile.h>

#include <charconv>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

/// An INI file that is a text.
class IniTextFile final : public ProfileFile {
public:
    std::string read(std::string_view section, std::string_view key, std::string_view defaultValue,
                     std::size_t bufferSize) override {
        return ProfileString(values_.find(section, key), defaultValue, bufferSize);
    }
    void write(std::string_view section, std::string_view key, std::string_view value) override {
        changes_.push_back({std::string(section), std::string(key), std::string(value)});
    }
    void remove(std::string_view section, std::string_view key) override {
        changes_.push_back({std::string(section), std::string(key), std::nullopt});
    }
    SystemError commit() override {
        text_ = ApplyIniChanges(text_, changes_).value_or(text_);
        values_ = IniValues(text_);
        return SystemError::none;
    }

private:
    std::vector<IniChange> changes_;
    std::string text_;
    IniValues values_{text_};
};

/// The preferences as they are read back when they have been saved.
Preferences asReadBack(const Preferences& preferences, const PreferenceFolders& folders) {
    IniTextFile file;
    (void)WritePreferences(file, preferences); // which cannot fail
    return ReadPreferences(file, folders, {}).values;
}

/// Where a setting is in JSON.
template <class Row>
std::string pathOf(const PlacedPreference<Row>& placed) {
    if (placed.number.empty())
        return "$." + placed.name();
    std::int32_t number = 0;
    std::from_chars(placed.number.data(), placed.number.data() + placed.number.size(), number);
    return "$.Schedules[" + std::to_string(number - 1) + "]." + std::string(placed.row.name);
}

struct SettingsExchangeOptions {
    OutputOptions output;
    ImportOptions input;
};

ExitCode exportSettings(const SettingsExchangeOptions& options, Session& session) {
    const Preferences preferences = LoadStoredPreferences(session.errors);
    return session.errors.empty() ? WriteJsonExport(options.output, preferences, session) : ExitCode::failed;
}

ExitCode importSettings(const SettingsExchangeOptions& options, Session& session) {
    const std::optional<std::string> text = ReadImport(options.input, session.errors);
    const std::optional<std::string> path = text ? PreferencesPath() : std::nullopt;
    if (!path)
        return ExitCode::failed; // the reason has been reported
    ErrorLines ignored;          // values that cannot be read are replaced
    const Preferences before = LoadStoredPreferences(options.input.merges ? session.errors : ignored);
    const SettingsImport import{InputName(options.input.file), options.input.isUnchecked,
                                options.input.merges ? before : DefaultPreferences(FindPreferenceFolders())};
    const std::optional<Preferences> preferences =
        session.errors.empty() ? SettingsOfJson(*text, import, session.errors) : std::nullopt;
    if (!preferences)
        return ExitCode::failed;
    session.errors.aboutFile(*path);
    if (const auto error = SavePreferences(*preferences, *path)) {
        session.errors.add("not saved", *error);
        return ExitCode::failed;
    }
    std::size_t changed = 0;
    const auto count = [&](const auto&, const auto& old, const auto& now) { changed += old == now ? 0 : 1; };
    ForEachPreference(count, before, *preferences);
    session.out << Visible(*path + ": imported " + import.fileName) << "; " << Counted(changed, "setting")
                << " changed\n";
    return ExitCode::done;
}

} // namespace

std::optional<Preferences> SettingsOfJson(const std::string& text, const SettingsImport& import,
                                          ErrorLines& errors) {
    const std::size_t before = errors.count();
    Preferences preferences = import.present;
    errors.about(import.fileName);
    if (!ReadJson(text, preferences, errors, import.isUnchecked ? JsonChecks::typesOnly : JsonChecks::usual))
        return std::nullopt;
    const Preferences readBack = asReadBack(preferences, FindPreferenceFolders());
    const auto compare = [&](const auto& placed, const auto& value, const auto& later) {
        if (value != later)
            errors.add(pathOf(placed) + ": " + Abridged(JsonOf(value).dump()) + " would be read back as " +
                       Abridged(JsonOf(later).dump()));
    };
    ForEachPreference(compare, preferences, readBack);
    return errors.count() == before ? std::optional(std::move(preferences)) : std::nullopt;
}

void AddSettingsExchange(CLI::App& settings, Session& session) {
    const auto options = std::make_shared<SettingsExchangeOptions>();
    AddExportOptions(AddCommand(settings, "export", "Writes every setting as JSON",
                                "vistrel settings export --out settings.json", session, options,
                                &exportSettings),
                     options->output);
    AddImportOptions(
        AddCommand(settings, "import",
                   "Replaces every setting by that of a JSON file, or else by its default, once all of the "
                   "file has been checked",
                   "vistrel settings import settings.json --merge", session, options, &importSettings),
        options->input, {"Keeps the settings that the file lacks", "Takes values that no sign has, too"});
}

} // namespace qrtVistrelClasses4
