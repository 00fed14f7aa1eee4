#include "platform/IniText.h"

#include "platform/LetterCase.h"
#include "platform/NulTerminated.h"

#include <algorithm>

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

constexpr auto byName = [](const auto& left, const auto& right) {
    return CompareIgnoringAsciiCase(left, right) < 0;
};

} // namespace

IniIndex::IniIndex(std::string_view text) {
    collect(withoutByteOrderMark(text));
    for (const Section& section : sections_) {
        const auto first = entries_.begin();
        std::ranges::stable_sort(first + static_cast<std::ptrdiff_t>(section.firstEntry),
                                 first + static_cast<std::ptrdiff_t>(section.endEntry), byName, &Entry::key);
    }
    std::ranges::stable_sort(sections_, byName, &Section::name);
}

void IniIndex::collect(std::string_view text) {
    sections_.push_back({});
    while (!text.empty()) {
        const IniLine line = parseLine(takeLine(text));
        if (line.kind == IniLine::section)
            sections_.push_back({line.name, entries_.size(), entries_.size()});
        else if (line.kind == IniLine::key)
            entries_.push_back({line.name, line.value});
        sections_.back().endEntry = entries_.size();
    }
}

std::optional<std::string_view> IniIndex::find(std::string_view section, std::string_view key) const {
    section = trimmed(section);
    const auto inSection = std::ranges::lower_bound(sections_, section, byName, &Section::name);
    if (inSection == sections_.end() || !EqualIgnoringAsciiCase(inSection->name, section))
        return {};
    key = trimmed(key);
    const auto entries =
        std::span(entries_).subspan(inSection->firstEntry, inSection->endEntry - inSection->firstEntry);
    const auto entry = std::ranges::lower_bound(entries, key, byName, &Entry::key);
    if (entry == entries.end() || !EqualIgnoringAsciiCase(entry->key, key))
        return {};
    return entry->value;
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

namespace {

/// Copies a text line by line and makes the changes on the way.
class IniEditor {
public:
    explicit IniEditor(std::span<const IniChange> changes);
    std::optional<std::string> apply(std::string_view text);

private:
    /// The last change to one key.
    struct Pending {
        std::string_view section;
        std::string_view key;
        std::string_view value;
        std::size_t order = 0; ///< Place of the first change to the key among all changes.
        bool done = false;
    };
    struct Group {
        std::string_view section;
        std::span<Pending> changes;
        bool visited = false;
    };

    void collect(std::span<const IniChange> changes);
    void group();
    void enterSection(std::string_view name);
    void leaveSection();
    void copyKey(std::string_view line, const IniLine& parsed);
    void addNewSections();
    std::string newLines(const Group& group) const;

    std::vector<Pending> pending_; ///< By section, then by key.
    std::vector<Group> groups_;    ///< By section.
    Group* current_ = nullptr;     ///< The changes to the section being copied.
    std::string out_;
    std::size_t insertAt_ = 0; ///< After the last line of the section being copied that is not blank.
    bool changed_ = false;
};

IniEditor::IniEditor(std::span<const IniChange> changes) {
    collect(changes);
    group();
}

void IniEditor::collect(std::span<const IniChange> changes) {
    pending_.reserve(changes.size());
    for (const IniChange& change : changes)
        pending_.push_back({trimmed(UntilNul(change.section)), trimmed(UntilNul(change.key)),
                            withoutLeadingBlanks(UntilNul(change.value)), pending_.size(), false});
    std::ranges::stable_sort(pending_, [](const Pending& left, const Pending& right) {
        const int sections = CompareIgnoringAsciiCase(left.section, right.section);
        return sections < 0 || (sections == 0 && byName(left.key, right.key));
    });
    // Changes to one key are neighbours now; the first gets the value of the last.
    std::size_t kept = 0;
    for (const Pending& change : pending_) {
        if (kept > 0 && EqualIgnoringAsciiCase(pending_[kept - 1].section, change.section) &&
            EqualIgnoringAsciiCase(pending_[kept - 1].key, change.key))
            pending_[kept - 1].value = change.value;
        else
            pending_[kept++] = change;
    }
    pending_.resize(kept);
}

void IniEditor::group() {
    const std::span<Pending> all = pending_;
    for (std::size_t first = 0; first < all.size();) {
        std::size_t end = first + 1;
        while (end < all.size() && EqualIgnoringAsciiCase(all[end].section, all[first].section))
            ++end;
        groups_.push_back({all[first].section, all.subspan(first, end - first), false});
        first = end;
    }
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
    current_ = nullptr;
    insertAt_ = out_.size();
    const auto found = std::ranges::lower_bound(groups_, name, byName, &Group::section);
    if (found == groups_.end() || !EqualIgnoringAsciiCase(found->section, name) || found->visited)
        return;
    found->visited = true;
    current_ = &*found;
}

void IniEditor::copyKey(std::string_view line, const IniLine& parsed) {
    if (current_ && parsed.kind == IniLine::key) {
        const auto change = std::ranges::lower_bound(current_->changes, parsed.name, byName, &Pending::key);
        const bool isMeant = change != current_->changes.end() && !change->done &&
                             EqualIgnoringAsciiCase(change->key, parsed.name);
        if (isMeant) {
            change->done = true;
            if (parsed.value != change->value) {
                out_.append(parsed.name).append("=").append(change->value).append(kLineEnd);
                changed_ = true;
                return;
            }
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
    std::vector<const Group*> missing;
    for (const Group& group : groups_)
        if (!group.visited)
            missing.push_back(&group);
    const auto firstOrder = [](const Group* group) {
        return std::ranges::min(group->changes, {}, &Pending::order).order;
    };
    std::ranges::sort(missing, {}, firstOrder);
    for (const Group* group : missing) {
        out_.append("[").append(group->section).append("]").append(kLineEnd).append(newLines(*group));
        changed_ = true;
    }
}

/// The lines of the keys that the section does not have yet.
std::string IniEditor::newLines(const Group& group) const {
    std::vector<const Pending*> missing;
    for (const Pending& change : group.changes)
        if (!change.done)
            missing.push_back(&change);
    std::ranges::sort(missing, {}, &Pending::order);
    std::string lines;
    for (const Pending* change : missing)
        lines.append(change->key).append("=").append(change->value).append(kLineEnd);
    return lines;
}

} // namespace

std::optional<std::string> ApplyIniChanges(std::string_view text, std::span<const IniChange> changes) {
    return IniEditor(changes).apply(text);
}

} // namespace qrtVistrelClasses4
