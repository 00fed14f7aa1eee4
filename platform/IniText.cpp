#include "platform/IniText.h"

#include "platform/NulTerminated.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <numeric>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
constexpr std::string_view kLineEnd = "\r\n";

constexpr bool isBlank(char character) {
    // Old editors end a text with Ctrl+Z.
    return character == ' ' || (character >= '\t' && character <= '\r') || character == '\x1a';
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

std::string_view trimmed(std::string_view text) {
    text = withoutLeadingBlanks(text);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Cuts the first line off `rest`. The line comes without its end.
std::string_view takeLine(std::string_view& rest) {
    std::size_t end = 0;
    while (end < rest.size() && rest[end] != '\r' && rest[end] != '\n')
        ++end;
    const std::string_view line = rest.substr(0, end);
    const bool isPair = rest.substr(end, 2) == kLineEnd;
    rest.remove_prefix(std::min(rest.size(), end + (isPair ? 2 : 1)));
    return line;
}

struct IniLine {
    enum Kind { blank, section, key } kind = blank;
    std::string_view name;
    std::optional<std::string_view> value;
};

IniLine parseLine(std::string_view line) {
    line = trimmed(line);
    if (line.empty())
        return {};
    if (line.front() == '[')
        if (const std::size_t close = line.rfind(']'); close != line.npos)
            return {IniLine::section, trimmed(line.substr(1, close - 1)), {}};
    const std::size_t equals = line.find('=');
    if (equals == line.npos)
        return {IniLine::key, line, {}};
    return {IniLine::key, trimmed(line.substr(0, equals)), trimmed(UntilNul(line.substr(equals + 1)))};
}

std::string_view withoutByteOrderMark(std::string_view text) {
    return text.starts_with(kByteOrderMark) ? text.substr(kByteOrderMark.size()) : text;
}

} // namespace

IniName::IniName(std::string_view text) : text_(text) {
    // Of a long name both ends: keys often differ only in the number at their end.
    std::uint64_t first = 0, last = 0;
    if (text.size() >= sizeof first) {
        std::memcpy(&first, text.data(), sizeof first);
        std::memcpy(&last, text.data() + text.size() - sizeof last, sizeof last);
    } else {
        text.copy(reinterpret_cast<char*>(&first), text.size());
    }
    constexpr std::uint64_t noCase = 0x2020202020202020, spread = 0x9e3779b97f4a7c15;
    digest_ = ((text.size() + (first | noCase)) * spread ^ (last | noCase)) * spread;
}

IniValues::IniValues(std::string_view text) {
    text = withoutByteOrderMark(text);
    sections_.push_back({IniName({})});
    while (!text.empty()) {
        const IniLine line = parseLine(takeLine(text));
        if (line.kind == IniLine::section) {
            closeSection();
            sections_.push_back({IniName(line.name), entries_.size()});
        } else if (line.kind == IniLine::key) {
            entries_.push_back({IniName(line.name), line.value});
        }
    }
    closeSection();
}

void IniValues::closeSection() {
    Section& section = sections_.back();
    section.endEntry = entries_.size();
    std::vector<std::uint64_t> digests;
    for (std::size_t entry = section.firstEntry; entry < section.endEntry; ++entry)
        digests.push_back(entries_[entry].key.digest());
    std::ranges::sort(digests);
    section.maybeRepeats = std::ranges::adjacent_find(digests) != digests.end();
}

std::optional<std::string_view> IniValues::find(std::string_view section, std::string_view key,
                                                Cursor& cursor) const {
    if (!cursor.section || cursor.section->name.text() != section) {
        const auto found = std::ranges::find(sections_, IniName(trimmed(section)), &Section::name);
        if (found == sections_.end())
            return {};
        cursor = {&*found, found->firstEntry};
    }
    const auto [name, first, end, maybeRepeats] = *cursor.section;
    const bool isNext =
        !maybeRepeats && cursor.nextEntry < end && entries_[cursor.nextEntry].key.text() == key;
    if (!isNext) {
        const auto entries = std::span(entries_).subspan(first, end - first);
        const auto entry = std::ranges::find(entries, IniName(trimmed(key)), &Entry::key);
        if (entry == entries.end())
            return {};
        cursor.nextEntry = first + static_cast<std::size_t>(entry - entries.begin());
    }
    return entries_[cursor.nextEntry++].value;
}

std::string ProfileString(std::optional<std::string_view> value, std::string_view defaultValue,
                          std::size_t bufferSize) {
    std::string_view text = UntilNul(value.value_or(defaultValue));
    if (!value)
        while (text.ends_with(' '))
            text.remove_suffix(1);
    const bool isQuoted =
        text.size() >= 2 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
    if (isQuoted)
        text = text.substr(1, text.size() - 2);
    return std::string(text.substr(0, std::max<std::size_t>(bufferSize, 1) - 1));
}

std::vector<std::string> DamagedIniLines(std::string_view text) {
    const auto isControl = [](char letter) { return letter >= '\0' && letter < ' ' && letter != '\t'; };
    std::vector<std::string> damaged;
    for (text = withoutByteOrderMark(text); !text.empty();) {
        const std::string_view line = trimmed(takeLine(text));
        const IniLine parsed = parseLine(line);
        const bool isUnread = parsed.kind == IniLine::key && (parsed.name.empty() || !parsed.value) &&
                              !line.starts_with(';') && !line.starts_with('#');
        if (isUnread || std::ranges::any_of(line, isControl))
            damaged.emplace_back(line);
    }
    return damaged;
}

namespace {

/// Copies a text line by line and makes the changes on the way.
class IniEditor {
public:
    explicit IniEditor(std::span<const IniChange> changes);
    std::optional<std::string> apply(std::string_view text);

private:
    struct Pending {
        IniName key;
        std::optional<std::string_view> value; ///< Nothing to remove the key.
        bool done = false;
    };
    /// The changes to one section.
    struct Group {
        explicit Group(std::size_t order) : firstOrder(order) {}
        void makeIndex();
        Pending* find(IniName key);

        std::vector<Pending> changes;   ///< In their order. All but the first to a key are done.
        std::vector<std::size_t> byKey; ///< The place in `changes` of the first to each key, by key.
        std::size_t next = 0; ///< Where the change to the next line is, if that has the order of the changes.
        std::size_t firstOrder; ///< Place of the first of the changes among those to all sections.
        bool visited = false;
    };
    using Groups = std::map<IniName, Group>;

    static std::optional<std::string_view> newValue(const IniChange& change) {
        return change.value ? std::optional(withoutLeadingBlanks(UntilNul(*change.value))) : std::nullopt;
    }
    void enterSection(std::string_view name);
    void leaveSection();
    void copyKey(std::string_view line, const IniLine& parsed);
    void addNewSections();
    static std::string newLines(const Group& group);

    Groups groups_;
    Group* current_ = nullptr; ///< The changes to the section being copied.
    std::string out_;
    std::size_t insertAt_ = 0; ///< After the last line of the section being copied that is not blank.
    bool changed_ = false;
};

IniEditor::IniEditor(std::span<const IniChange> changes) {
    Group* group = nullptr;
    for (std::size_t order = 0; order < changes.size(); ++order) {
        const IniChange& change = changes[order];
        if (order == 0 || change.section != changes[order - 1].section)
            group = &groups_.try_emplace(IniName(trimmed(UntilNul(change.section))), order).first->second;
        group->changes.push_back({IniName(trimmed(UntilNul(change.key))), newValue(change)});
    }
    for (auto& [section, changed] : groups_)
        changed.makeIndex();
}

void IniEditor::Group::makeIndex() {
    byKey.resize(changes.size());
    std::iota(byKey.begin(), byKey.end(), std::size_t{0});
    std::ranges::sort(byKey, {}, [&](std::size_t place) { return std::pair(changes[place].key, place); });
    // Changes to one key are neighbours now; the first gets the value of the last.
    std::size_t kept = 0;
    for (const std::size_t place : byKey) {
        if (kept > 0 && changes[byKey[kept - 1]].key == changes[place].key) {
            changes[byKey[kept - 1]].value = changes[place].value;
            changes[place].done = true;
        } else {
            byKey[kept++] = place;
        }
    }
    byKey.resize(kept);
}

/// Null if there is no change to the key, or if that is done.
IniEditor::Pending* IniEditor::Group::find(IniName key) {
    const auto isChange = [&](std::size_t place) {
        return !changes[place].done && changes[place].key == key;
    };
    if (next == changes.size() || !isChange(next)) {
        const auto found =
            std::ranges::lower_bound(byKey, key, {}, [&](std::size_t place) { return changes[place].key; });
        if (found == byKey.end() || !isChange(*found))
            return nullptr;
        next = *found;
    }
    return &changes[next++];
}

std::optional<std::string> IniEditor::apply(std::string_view text) {
    out_.reserve(text.size() + text.size() / 8 + 64);
    const std::string_view body = withoutByteOrderMark(text);
    out_ = text.substr(0, text.size() - body.size());
    enterSection({});
    for (std::string_view rest = body; !rest.empty();) {
        const std::string_view line = takeLine(rest);
        const IniLine parsed = parseLine(line);
        if (parsed.kind == IniLine::section) {
            leaveSection();
            enterSection(parsed.name);
        }
        copyKey(line, parsed);
        if (parsed.kind != IniLine::blank)
            insertAt_ = out_.size();
    }
    leaveSection();
    addNewSections();
    return changed_ ? std::optional(std::move(out_)) : std::nullopt;
}

void IniEditor::enterSection(std::string_view name) {
    insertAt_ = out_.size();
    const auto found = groups_.find(IniName(name));
    const bool isFirst = found != groups_.end() && !std::exchange(found->second.visited, true);
    current_ = isFirst ? &found->second : nullptr;
}

void IniEditor::copyKey(std::string_view line, const IniLine& parsed) {
    if (Pending* change =
            current_ && parsed.kind == IniLine::key ? current_->find(IniName(parsed.name)) : nullptr) {
        if (!change->value) { // it stays to be done, as the key may have more lines
            changed_ = true;
            return;
        }
        change->done = true;
        if (parsed.value != change->value) {
            out_.append(parsed.name).append("=").append(*change->value).append(kLineEnd);
            changed_ = true;
            return;
        }
    }
    out_.append(line).append(kLineEnd);
}

void IniEditor::leaveSection() {
    if (!current_)
        return;
    if (const std::string lines = newLines(*current_); !lines.empty()) {
        out_.insert(insertAt_, lines);
        changed_ = true;
    }
}

void IniEditor::addNewSections() {
    std::vector<const Groups::value_type*> missing;
    for (const Groups::value_type& group : groups_)
        if (!group.second.visited && !newLines(group.second).empty())
            missing.push_back(&group);
    std::ranges::sort(missing, {}, [](const auto* group) { return group->second.firstOrder; });
    for (const Groups::value_type* group : missing) {
        out_.append("[").append(group->first.text()).append("]").append(kLineEnd);
        out_.append(newLines(group->second));
        changed_ = true;
    }
}

/// The lines of the keys that the section does not have yet.
std::string IniEditor::newLines(const Group& group) {
    std::string lines;
    for (const Pending& change : group.changes)
        if (!change.done && change.value)
            lines.append(change.key.text()).append("=").append(*change.value).append(kLineEnd);
    return lines;
}

} // namespace

std::optional<std::string> ApplyIniChanges(std::string_view text, std::span<const IniChange> changes) {
    return IniEditor(changes).apply(text);
}

} // namespace qrtVistrelClasses4
