#include "platform/RegistryTree.h"

#include "platform/Hex.h"
#include "platform/LetterCase.h"
#include "platform/NulTerminated.h"

#include <array>
#include <charconv>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr char kFoldedSeparator = '\0';

constexpr std::array<std::pair<RegistryHive, std::string_view>, 4> kHives{{
    {RegistryHive::classesRoot, "HKEY_CLASSES_ROOT"},
    {RegistryHive::currentUser, "HKEY_CURRENT_USER"},
    {RegistryHive::localMachine, "HKEY_LOCAL_MACHINE"},
    {RegistryHive::users, "HKEY_USERS"},
}};

std::string_view hiveName(RegistryHive hive) {
    for (const auto& [number, name] : kHives)
        if (number == hive)
            return name;
    return {};
}

/// Names end at their first NUL, as they do for the system's own registry functions.
/// Appends the parts of `path` that are not empty, each after a "\".
void appendParts(std::string& result, std::string_view path) {
    while (!path.empty()) {
        const std::string_view part = path.substr(0, path.find('\\'));
        if (!part.empty())
            result.append("\\").append(part);
        path.remove_prefix(std::min(path.size(), part.size() + 1));
    }
}

/// The key's path with the name of its hive; empty when the hive is unknown.
std::string fullPath(const RegistryKey& key) {
    std::string path(hiveName(key.hive));
    if (!path.empty())
        appendParts(path, UntilNul(key.path));
    return path;
}

bool isHive(std::string_view path) { return path.find('\\') == path.npos; }

std::string foldedPath(std::string_view path) {
    std::string folded = AnsiUpperCase(path);
    for (char& character : folded)
        if (character == '\\')
            character = kFoldedSeparator;
    return folded;
}

std::string_view withoutOuterBlanks(std::string_view line) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = line.find_first_not_of(blanks);
    return first == line.npos ? std::string_view()
                              : line.substr(first, line.find_last_not_of(blanks) + 1 - first);
}

constexpr bool needsEscape(char character) {
    const auto code = static_cast<unsigned char>(character);
    return code < 0x20 || code == 0x7f || character == '"' || character == '%';
}

void appendEscaped(std::string& result, std::string_view text) {
    for (const char character : text) {
        if (!needsEscape(character)) {
            result += character;
            continue;
        }
        result += '%';
        AppendHex(result, static_cast<unsigned char>(character));
    }
}

/// No value if `appendEscaped` cannot have written `text`.
std::optional<std::string> unescaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\0')
            return {};
        if (text[i] != '%') {
            result += text[i];
            continue;
        }
        const std::string_view digits = text.substr(i + 1, 2);
        unsigned char code = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
        if (error != std::errc() || digits.size() != 2 || end != digits.data() + 2 || code == 0)
            return {};
        result += static_cast<char>(code);
        i += 2;
    }
    return result;
}

} // namespace

/// Takes a text apart line by line.
class RegistryTree::Parser {
public:
    explicit Parser(RegistryTree& tree) : tree_(tree) {}
    void take(std::string_view line);
    void finish() { (sawHeader_ ? tree_.tail_ : tree_.head_) = std::move(above_); }

private:
    bool takeKey(std::string_view line);
    bool takeValue(std::string_view line);

    RegistryTree& tree_;
    Node* node_ = nullptr; ///< Key that values belong to; none below a header that is not understood.
    std::string above_;    ///< Lines to keep above the next one that is understood.
    bool sawHeader_ = false;
};

void RegistryTree::Parser::take(std::string_view line) {
    const std::string_view content = withoutOuterBlanks(line);
    if (content.empty())
        return;
    const bool isHeader = content.front() == '[';
    if (isHeader) {
        if (!sawHeader_)
            tree_.head_ = std::exchange(above_, {});
        sawHeader_ = true;
        node_ = nullptr;
    }
    if (!(isHeader ? takeKey(content) : takeValue(content)))
        above_.append(line).append("\n");
}

bool RegistryTree::Parser::takeKey(std::string_view line) {
    if (line.size() < 2 || line.back() != ']')
        return false;
    const std::optional<std::string> path = unescaped(line.substr(1, line.size() - 2));
    if (!path)
        return false;
    const std::string_view hive = std::string_view(*path).substr(0, path->find('\\'));
    for (const auto& [number, name] : kHives) {
        if (!EqualIgnoringAsciiCase(name, hive))
            continue;
        node_ = &tree_.nodeAt(fullPath({number, path->substr(hive.size())}));
        node_->above += std::exchange(above_, {});
        return true;
    }
    return false;
}

bool RegistryTree::Parser::takeValue(std::string_view line) {
    constexpr std::string_view between = "\"=\"";
    const std::size_t nameEnd = line.find(between);
    if (!node_ || nameEnd == line.npos || nameEnd == 0 || !line.starts_with('"') || !line.ends_with('"') ||
        line.size() < nameEnd + between.size() + 1)
        return false;
    const std::size_t textStart = nameEnd + between.size();
    auto name = unescaped(line.substr(1, nameEnd - 1));
    auto text = unescaped(line.substr(textStart, line.size() - 1 - textStart));
    if (!name || !text)
        return false;
    const auto [value, isNew] = node_->values.try_emplace(AnsiUpperCase(*name));
    if (isNew)
        value->second = {std::exchange(above_, {}), std::move(*name), std::move(*text)};
    return true;
}

RegistryTree::RegistryTree(std::string_view text) {
    Parser parser(*this);
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        parser.take(line);
        text.remove_prefix(std::min(text.size(), line.size() + 1));
    }
    parser.finish();
}

std::vector<std::string> RegistryTree::damagedLines() const {
    std::vector<std::string> damaged;
    const auto look = [&](std::string_view kept) {
        for (; !kept.empty(); kept.remove_prefix(kept.find('\n') + 1))
            if (const std::string_view line = withoutOuterBlanks(kept.substr(0, kept.find('\n')));
                !line.starts_with('#'))
                damaged.emplace_back(line);
    };
    look(head_);
    for (const auto& [folded, node] : nodes_) {
        look(node.above);
        for (const auto& [foldedName, value] : node.values)
            look(value.above);
    }
    look(tail_);
    return damaged;
}

std::string RegistryTree::text() const {
    std::string text = head_;
    for (const auto& [folded, node] : nodes_) {
        if (&node != &nodes_.begin()->second)
            text += '\n';
        text.append(node.above).append("[");
        appendEscaped(text, node.path);
        text.append("]\n");
        for (const auto& [foldedName, value] : node.values) {
            text.append(value.above).append("\"");
            appendEscaped(text, value.name);
            text.append("\"=\"");
            appendEscaped(text, value.text);
            text.append("\"\n");
        }
    }
    return text.append(tail_);
}

RegistryTree::Node& RegistryTree::nodeAt(const std::string& path) {
    const auto [node, isNew] = nodes_.try_emplace(foldedPath(path));
    if (isNew)
        node->second.path = path;
    return node->second;
}

const RegistryTree::Node* RegistryTree::find(const RegistryKey& key) const {
    const auto node = nodes_.find(foldedPath(fullPath(key)));
    return node == nodes_.end() ? nullptr : &node->second;
}

bool RegistryTree::hasPath(const std::string& path) const {
    if (isHive(path))
        return !path.empty();
    const std::string folded = foldedPath(path);
    const auto node = nodes_.lower_bound(folded);
    if (node == nodes_.end() || !node->first.starts_with(folded))
        return false;
    return node->first.size() == folded.size() || node->first[folded.size()] == kFoldedSeparator;
}

bool RegistryTree::hasKey(const RegistryKey& key) const { return hasPath(fullPath(key)); }

SystemError RegistryTree::addKey(const RegistryKey& key) {
    const std::string path = fullPath(key);
    if (path.empty())
        return SystemError::fileNotFound;
    if (!hasPath(path))
        nodeAt(path);
    return SystemError::none;
}

SystemError RegistryTree::removeKey(const RegistryKey& key) {
    const std::string path = fullPath(key);
    if (!hasPath(path))
        return SystemError::fileNotFound;
    if (isHive(path))
        return SystemError::accessDenied;
    const std::string folded = foldedPath(path);
    const std::string below = folded + kFoldedSeparator;
    auto node = nodes_.lower_bound(folded);
    const std::string parent = node->second.path.substr(0, path.rfind('\\'));
    while (node != nodes_.end() && (node->first == folded || node->first.starts_with(below))) {
        tail_ += node->second.above;
        for (const auto& [name, value] : node->second.values)
            tail_ += value.above;
        node = nodes_.erase(node);
    }
    if (!hasPath(parent))
        nodeAt(parent);
    return SystemError::none;
}

const std::string* RegistryTree::value(const RegistryKey& key, std::string_view name) const {
    const Node* node = find(key);
    if (!node)
        return nullptr;
    const auto value = node->values.find(AnsiUpperCase(UntilNul(name)));
    return value == node->values.end() ? nullptr : &value->second.text;
}

SystemError RegistryTree::setValue(const RegistryKey& key, std::string_view name, std::string_view value) {
    const std::string path = fullPath(key);
    if (path.empty())
        return SystemError::fileNotFound;
    name = UntilNul(name);
    Value& stored = nodeAt(path).values[AnsiUpperCase(name)];
    if (stored.name.empty())
        stored.name = name;
    stored.text = UntilNul(value);
    return SystemError::none;
}

SystemError RegistryTree::removeValue(const RegistryKey& key, std::string_view name) {
    const auto node = nodes_.find(foldedPath(fullPath(key)));
    if (node == nodes_.end())
        return SystemError::fileNotFound;
    auto& values = node->second.values;
    const auto value = values.find(AnsiUpperCase(UntilNul(name)));
    if (value == values.end())
        return SystemError::fileNotFound;
    tail_ += value->second.above;
    values.erase(value);
    return SystemError::none;
}

std::vector<std::string> RegistryTree::subkeys(const RegistryKey& key) const {
    // A folded path is as long as the path, so that a name has the same place in both.
    const std::string below = foldedPath(fullPath(key)) + kFoldedSeparator;
    std::vector<std::string> names;
    std::string_view last;
    for (auto node = nodes_.lower_bound(below); node != nodes_.end() && node->first.starts_with(below);
         ++node) {
        std::string_view part = std::string_view(node->first).substr(below.size());
        part = part.substr(0, part.find(kFoldedSeparator));
        if (part != last)
            names.push_back(node->second.path.substr(below.size(), part.size()));
        last = part;
    }
    return names;
}

std::vector<std::string> RegistryTree::valueNames(const RegistryKey& key) const {
    std::vector<std::string> names;
    if (const Node* node = find(key))
        for (const auto& [folded, value] : node->values)
            names.push_back(value.name);
    return names;
}

} // namespace qrtVistrelClasses4
