// The keys and values of a settings store that is kept as a text file.
#pragma once

#include "platform/RegistryStore.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// String values in a tree of keys, and their text:
///
///     # a remark
///     [HKEY_LOCAL_MACHINE\Software\Maker\Application]
///     "Name"="value"
///
/// A key exists as long as it, or a key below it, has a line of its own. Between quotes and brackets, a
/// control character, a double quote and "%" are written as "%" and two hexadecimal digits; all other
/// characters, including "\", are written as they are. Keys and values are ordered by name. Of two lines for
/// one value the first counts. Lines that are not understood are kept: before the first key at the start,
/// elsewhere above the line that they precede. If that line is deleted, they move to the end.
class RegistryTree {
public:
    RegistryTree() = default;
    explicit RegistryTree(std::string_view text);
    std::string text() const;
    bool operator==(const RegistryTree&) const = default;

    /// The kept lines that are not remarks: what somebody or something has damaged.
    std::vector<std::string> damagedLines() const;

    /// Root keys with a known number always exist.
    bool hasKey(const RegistryKey& key) const;
    SystemError addKey(const RegistryKey& key);
    /// A root key cannot be removed.
    SystemError removeKey(const RegistryKey& key);

    /// Null if the key or the value is missing. The text is valid until the tree changes.
    const std::string* value(const RegistryKey& key, std::string_view name) const;
    SystemError setValue(const RegistryKey& key, std::string_view name, std::string_view value);
    SystemError removeValue(const RegistryKey& key, std::string_view name);

    std::vector<std::string> subkeys(const RegistryKey& key) const;
    std::vector<std::string> valueNames(const RegistryKey& key) const;

private:
    struct Value {
        std::string above; ///< Whole lines kept above this value.
        std::string name;
        std::string text;
        bool operator==(const Value&) const = default;
    };
    struct Node {
        std::string above;
        std::string path;                    ///< With the name of the hive, in its first spelling.
        std::map<std::string, Value> values; ///< By name in upper case.
        bool operator==(const Node&) const = default;
    };
    class Parser;

    Node& nodeAt(const std::string& path);
    const Node* find(const RegistryKey& key) const;
    bool hasPath(const std::string& path) const;

    /// By path in upper case, with NUL instead of "\", so that the keys below a key follow it directly.
    std::map<std::string, Node> nodes_;
    std::string head_; ///< Kept lines before the first key.
    std::string tail_; ///< Kept lines after the last value.
};

} // namespace qrtVistrelClasses4
