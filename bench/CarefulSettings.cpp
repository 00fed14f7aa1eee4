#include "bench/CarefulSettings.h"

#include "bench/CarefulText.h"
#include "bench/WholeFile.h"
#include "platform/LetterCase.h"

#include <charconv>
#include <optional>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr std::string_view kSection = "[VistrelLite]";
constexpr std::size_t kTypicalPreferences = 2048; ///< Bytes, to reserve memory.

/// One preference, as a line of the file has it.
struct Entry {
    std::string key;
    std::string value;
    bool isDone = false;
};

/// The next line without its end.
std::string_view takeLine(std::string_view& rest) {
    const std::size_t feed = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, feed);
    rest.remove_prefix(std::min(feed + 1, rest.size()));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

struct KeyAndValue {
    std::string_view key;
    std::string_view value;
};

std::optional<KeyAndValue> split(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == line.npos)
        return std::nullopt;
    return KeyAndValue{line.substr(0, equals), line.substr(equals + 1)};
}

/// The place of the key in a list that is mostly in the order in which its keys are looked for. `next` is
/// where it is expected, and is moved on.
template <class Entries>
auto findFrom(Entries& entries, std::size_t& next, std::string_view key) {
    for (std::size_t tried = 0; tried < entries.size(); ++tried, ++next) {
        next = next < entries.size() ? next : 0;
        if (EqualIgnoringAsciiCase(entries[next].key, key))
            return entries.data() + next++;
    }
    return entries.data() + entries.size();
}

void fromText(std::string& value, std::string_view text) { value = text; }
void fromText(bool& value, std::string_view text) { value = EqualIgnoringAsciiCase(text, "True"); }
template <class Number>
void fromText(Number& value, std::string_view text) {
    std::from_chars(text.data(), text.data() + text.size(), value);
}

void toText(std::string& text, const std::string& value) { text = value; }
void toText(std::string& text, bool value) { text = value ? "True" : "False"; }
template <class Number>
void toText(std::string& text, Number value) {
    char digits[32];
    text.assign(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

std::vector<Entry> entriesOf(const Preferences& preferences) {
    std::vector<Entry> entries;
    ForEachPreference(
        [&](const auto& placed, const auto& value) {
            Entry& entry = entries.emplace_back();
            placed.key(entry.key);
            toText(entry.value, value);
        },
        preferences);
    return entries;
}

void appendLine(CarefulText& out, std::string_view key, std::string_view value) {
    out.append(key);
    out.append("=");
    out.append(value);
    out.append("\r\n");
}

void appendMissing(CarefulText& out, std::vector<Entry>& entries) {
    for (Entry& entry : entries)
        if (!std::exchange(entry.isDone, true))
            appendLine(out, entry.key, entry.value);
}

} // namespace

Preferences LoadPreferencesCarefully(const std::string& path) {
    const WholeFile file = ReadWholeFile(path);
    std::vector<KeyAndValue> entries;
    bool isOurs = false;
    for (std::string_view rest = file.text(); !rest.empty();) {
        const std::string_view line = takeLine(rest);
        if (line.starts_with('['))
            isOurs = EqualIgnoringAsciiCase(line, kSection);
        else if (const auto entry = isOurs ? split(line) : std::nullopt)
            entries.push_back(*entry);
    }
    Preferences preferences;
    std::string key;
    std::size_t next = 0;
    ForEachPreference(
        [&](const auto& placed, auto& value) {
            placed.key(key);
            const auto* const found = findFrom(entries, next, key);
            if (found != entries.data() + entries.size())
                fromText(value, found->value);
        },
        preferences);
    return preferences;
}

void SavePreferencesCarefully(const Preferences& preferences, const std::string& path) {
    const WholeFile file = ReadWholeFile(path);
    std::vector<Entry> entries = entriesOf(preferences);
    CarefulText out(file.size + kTypicalPreferences);
    bool isOurs = false, wasOurs = false;
    std::size_t next = 0;
    for (std::string_view rest = file.text(); !rest.empty();) {
        const std::string_view line = takeLine(rest);
        if (line.starts_with('[')) {
            if (isOurs)
                appendMissing(out, entries);
            isOurs = EqualIgnoringAsciiCase(line, kSection);
            wasOurs = wasOurs || isOurs;
        }
        const auto old = isOurs ? split(line) : std::nullopt;
        Entry* const entry = old ? findFrom(entries, next, old->key) : entries.data() + entries.size();
        if (entry != entries.data() + entries.size() && !std::exchange(entry->isDone, true)) {
            appendLine(out, old->key, entry->value);
        } else {
            out.append(line);
            out.append("\r\n");
        }
    }
    if (!wasOurs) {
        out.append(kSection);
        out.append("\r\n");
    }
    appendMissing(out, entries);
    WriteDurably(path, out.text());
}

} // namespace qrtVistrelClasses4::bench
