#include "settings/PreferenceProfile.h"

#include "frame/Conversions.h"
#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include "platform/IniText.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "settings/AppFolder.h"
#include "settings/LibraryFiles.h"
#include "settings/clsSystemDirectory.h"

#include <span>
#include <type_traits>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kFileName = "VistrelLite.ini";
constexpr std::string_view kSection = "VistrelLite";
constexpr std::size_t kPreferenceBufferSize = 255;

void fromText(std::string& value, std::string_view text) { value = text; }
void fromText(bool& value, std::string_view text) { value = TextToBoolean(text); }
void fromText(double& value, std::string_view text) { value = LeadingNumber(text); }
void fromText(std::int16_t& value, std::string_view text) { value = RoundToInt16(LeadingNumber(text)); }

template <class Row>
std::string_view defaultOf(const Row& row, const PreferenceFolders& folders) {
    switch (row.rule) {
    case PreferenceRule::graphicsFolder:
        return folders.graphics;
    case PreferenceRule::playfileFolder:
        return folders.playfiles ? std::string_view(*folders.playfiles) : "";
    default:
        return row.defaultText;
    }
}

std::optional<RuntimeError> errorOf(SystemError error) {
    return error == SystemError::none ? std::nullopt : std::optional(ErrorFor(error));
}

/// Reads one preference after another. A value that does not convert leaves its preference as it is. A
/// `Source` gives the text of a key, or the default.
template <class Source>
class PreferenceReader {
public:
    PreferenceReader(Source source, const PreferenceFolders& folders, PreferencesOutcome& outcome)
        : source_(source), folders_(folders), outcome_(outcome) {}

    template <class Row, class Value>
    void operator()(const PlacedPreference<Row>& placed, Value& value) {
        placed.key(key_);
        const std::string_view defaultText = defaultOf(placed.row, folders_);
        const std::string text = source_(key_, defaultText);
        try {
            fromText(value, text);
            if (placed.row.rule == PreferenceRule::neverZero && value == Value())
                fromText(value, defaultText);
        } catch (const RuntimeError& error) {
            outcome_.errors.push_back({key_, error});
        }
    }

    template <auto member>
    void readOne() {
        using Row = std::remove_cvref_t<decltype(kPreferenceRow<member>)>;
        (*this)(PlacedPreference<Row>{kPreferenceRow<member>, {}}, outcome_.values.*member);
    }

private:
    Source source_;
    const PreferenceFolders& folders_;
    PreferencesOutcome& outcome_;
    std::string key_;
};

/// After an error on the way to the file, which has been trapped.
PreferencesOutcome withoutFile(Preferences values) {
    return {std::move(values), {{"AppPath", RuntimeError(ErrorNumber::pathNotFound)}}};
}

} // namespace

PreferenceFolders FindPreferenceFolders() try {
    PreferenceFolders folders{JoinPath(LibraryFolder(), "Brivox Graphics"), SystemFolder(kDocumentsFolder)};
    if (folders.playfiles)
        folders.playfiles = JoinPath(*folders.playfiles, "Vistrel Sign Playfiles");
    return folders;
} catch (...) {
    RethrowAsRuntimeError();
}

std::optional<RuntimeError> MakePlayfileFolder(const PreferenceFolders& folders) try {
    FileSystem& files = platform().files();
    if (!folders.playfiles || files.kindOf(*folders.playfiles) == EntryKind::folder)
        return std::nullopt;
    const SystemError error = files.createFolder(*folders.playfiles);
    return error == SystemError::folderNotFound ? std::nullopt
                                                : errorOf(error); // not without a documents folder
} catch (...) {
    RethrowAsRuntimeError();
}

std::optional<std::string> PreferencesName() try {
    const std::optional<std::string> folder = FindAppFolder();
    return folder ? std::optional(JoinPath(*folder, kFileName)) : std::nullopt;
} catch (...) {
    RethrowAsRuntimeError();
}

std::optional<std::string> PreferencesPath() try {
    const std::optional<std::string> name = PreferencesName();
    return name ? std::optional(platform().files().existingName(*name)) : std::nullopt;
} catch (...) {
    RethrowAsRuntimeError();
}

std::unique_ptr<ProfileFile> OpenPreferences(const std::string& path) {
    const auto [folder, name] = SplitPath(path);
    return platform().openProfile(
        path, FindElsewhere(std::string(folder), {.name = std::string(name)}).value_or(""));
}

Preferences DefaultPreferences(const PreferenceFolders& folders) try {
    Preferences preferences;
    ForEachPreference(
        [&](const auto& placed, auto& value) { fromText(value, defaultOf(placed.row, folders)); },
        preferences);
    return preferences;
} catch (...) {
    RethrowAsRuntimeError();
}

std::string PreferenceText(const std::string& value) { return value; }
std::string PreferenceText(bool value) { return std::string(BooleanToText(value)); }
std::string PreferenceText(double value) { return NumberToText(value); }
std::string PreferenceText(std::int16_t value) { return NumberToText(std::int32_t{value}); }

PreferencesOutcome ReadPreferences(ProfileFile& file, const PreferenceFolders& folders, Preferences before) {
    const auto source = [&](std::string_view key, std::string_view defaultText) {
        return file.read(kSection, key, defaultText, kPreferenceBufferSize);
    };
    PreferencesOutcome outcome{std::move(before), {}};
    ForEachPreference(PreferenceReader(source, folders, outcome), outcome.values);
    return outcome;
}

PreferencesOutcome ReadCropPreferences(const PreferenceSource& source) {
    PreferencesOutcome outcome;
    const PreferenceFolders none;
    const auto copying = [&](const std::string& key, std::string_view defaultText) {
        return source(key, std::string(defaultText));
    };
    PreferenceReader reader(copying, none, outcome);
    reader.readOne<&Preferences::BMPCrop>();
    reader.readOne<&Preferences::AVICrop>();
    return outcome;
}

std::optional<RuntimeError> PreferencesOutcome::error() const try {
    if (errors.empty())
        return std::nullopt;
    std::string keys;
    for (const PreferenceError& one : errors)
        keys += (keys.empty() ? "" : ", ") + one.key;
    const RuntimeError& first = errors.front().error;
    return RuntimeError(first.number(), first.description() + ": " + keys);
} catch (...) {
    RethrowAsRuntimeError();
}

PreferencesOutcome LoadPreferences(PreferencesCircumstances circumstances) try {
    return ReadPreferences(*OpenPreferences(circumstances.path), circumstances.folders,
                           std::move(circumstances.before));
} catch (...) {
    RethrowAsRuntimeError();
}

PreferencesOutcome LoadPreferences() try {
    (void)MakePlayfileFolder(FindPreferenceFolders()); // preferences are loaded without it, too
    return LoadPreferencesOnly();
} catch (...) {
    RethrowAsRuntimeError();
}

PreferencesOutcome LoadPreferencesOnly() try {
    const PreferenceFolders folders = FindPreferenceFolders();
    if (const std::optional<std::string> path = PreferencesName())
        return LoadPreferences({*path, folders, DefaultPreferences(folders)});
    return withoutFile(DefaultPreferences(folders));
} catch (...) {
    RethrowAsRuntimeError();
}

PreferencesOutcome LoadCropPreferences() try {
    const std::optional<std::string> path = PreferencesName();
    if (!path)
        return withoutFile({});
    return ReadCropPreferences([&](const std::string& key, const std::string& defaultText) {
        return ReadPreference(*path, key, defaultText);
    });
} catch (...) {
    RethrowAsRuntimeError();
}

std::optional<RuntimeError> WritePreferences(ProfileFile& file, const Preferences& preferences) {
    std::string key;
    ForEachPreference(
        [&](const auto& placed, const auto& value) {
            placed.key(key);
            file.write(kSection, key, PreferenceText(value));
        },
        preferences);
    return errorOf(file.commit());
}

std::optional<RuntimeError> SavePreferences(const Preferences& preferences, const std::string& path) try {
    return WritePreferences(*OpenPreferences(path), preferences);
} catch (...) {
    RethrowAsRuntimeError();
}

std::string ReadPreference(const std::string& path, const std::string& key,
                           const std::string& defaultText) try {
    return OpenPreferences(path)->read(kSection, key, defaultText, kPreferenceBufferSize);
} catch (...) {
    RethrowAsRuntimeError();
}

WrittenPreference WritePreference(const std::string& path, const std::string& key,
                                  const std::string& text) try {
    const IniChange change{std::string(kSection), key, text};
    const std::string alone = ApplyIniChanges("", std::span(&change, 1)).value_or("");
    const auto file = OpenPreferences(path);
    file->write(kSection, key, text);
    return {.error = errorOf(file->commit()),
            .readsBack =
                ProfileString(IniValues(alone).find(kSection, key), "", kPreferenceBufferSize) == text};
} catch (...) {
    RethrowAsRuntimeError();
}

std::optional<RuntimeError> RemovePreference(const std::string& path, const std::string& key) try {
    const auto file = platform().openProfile(path);
    file->remove(kSection, key);
    return errorOf(file->commit());
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
