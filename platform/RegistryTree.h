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
/// A key lasts as long as it, or a key below it, has a line of its own. Between quotes and brackets, a
/// control character, a double quote and "%" are written as "%" and two hexadecimal digits; all other
/// characters, "\" included, stand for themselves. Keys and values are ordered by name; of two lines for one
/// value the first counts. A line that is not understood is kept: before the first key it stays there,
/// elsewhere it stays above the line it stood above, and when that one is deleted it moves to the end.
class RegistryTree {
public:
    RegistryTree() = default;
    explicit RegistryTree(std::string_view text);
    std::string text() const;

    /// A root key always exists, unless its number is unknown.
    bool hasKey(const RegistryKey& key) const;
    SystemError addKey(const RegistryKey& key);
    /// A root key cannot be removed.
    SystemError removeKey(const RegistryKey& key);

    /// None when key or value is missing. The text lives until the tree changes.
    const std::string* value(const RegistryKey& key, std::string_view name) const;
    SystemError setValue(const RegistryKey& key, std::string_view name, std::string_view value);
    SystemError removeValue(const RegistryKey& key, std::string_view name);

    std::vector<std::string> subkeys(const RegistryKey& key) const;
    std::vector<std::string> valueNames(const RegistryKey& key) const;

private:
    struct Value {
        std::string above; ///< Whole lines that are kept above this one.
        std::string name;
        std::string text;
    };
    struct Node {
        std::string above;
        std::string path;                    ///< With the name of the hive, as spelt when first met.
        std::map<std::string, Value> values; ///< By name in upper case.
    };
    class Parser;

    Node& nodeAt(const std::string& path);
    const Node* find(const RegistryKey& key) const;
    bool hasPath(const std::string& path) const;

    /// By path in upper case, with NUL for "\" so that the keys below a key follow it directly.
    std::map<std::string, Node> nodes_;
    std::string head_; ///< Kept lines before the first key.
    std::string tail_; ///< Kept lines behind the last value.
};

} // namespace qrtVistrelClasses4
