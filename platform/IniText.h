// The text of an INI ("profile") file: finding values, and changing some while keeping the rest.
//
// A line that starts with "[" and holds a "]" opens a section, named by what stands between the first "[" and
// the last "]". Any other line is a key, up to the first "=", and its value. Lines before the first section
// belong to the section with the empty name. Comments are nothing special: they are keys that nobody asks
// for. Blanks around lines, names and values do not count, ASCII letters are taken without case, and of two
// sections or keys with one name the first counts. Lines end in LF, CR or CR LF.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// All values of one text, ready to be found.
class IniIndex {
public:
    /// `text` must outlive the index and the values that it gives.
    explicit IniIndex(std::string_view text);

    /// The value with its quotes, if any; none when section or key is missing or the key has no "=".
    std::optional<std::string_view> find(std::string_view section, std::string_view key) const;

private:
    struct Entry {
        std::string_view key;
        std::optional<std::string_view> value;
    };
    struct Section {
        std::string_view name;
        std::size_t firstEntry = 0;
        std::size_t endEntry = 0;
    };

    void collect(std::string_view text);

    std::vector<Entry> entries_;    ///< By section, in each by key.
    std::vector<Section> sections_; ///< By name.
};

/// What a program gets that asks for a value with a buffer of `bufferSize` characters: the value, else
/// `defaultValue` without its trailing blanks, in either case without the quotes around it and cut to
/// `bufferSize` - 1 characters.
std::string ProfileString(std::optional<std::string_view> value, std::string_view defaultValue,
                          std::size_t bufferSize);

struct IniChange {
    std::string section;
    std::string key;
    std::string value;
};

/// `text` with the changes made, each line ended by CR LF; none when that changes no value. A key that is
/// there keeps its place and spelling, a new one goes behind the last line of its section that is not blank,
/// a new section to the end. Of several changes to one key the last counts.
std::optional<std::string> ApplyIniChanges(std::string_view text, std::span<const IniChange> changes);

} // namespace qrtVistrelClasses4
