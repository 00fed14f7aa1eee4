// The text of an INI ("profile") file: finding values, and changing some while keeping the rest.
//
// A line that starts with "[" and contains a "]" opens a section; its name is the text between the first "["
// and the last "]". Every other line is a key, up to the first "=", and its value. Lines before the first
// section belong to the section with the empty name. Comments have no meaning of their own: they are keys
// that nobody reads. Blanks around lines, names and values are ignored, and so is the case of ASCII letters.
// Of two sections or keys with the same name the first counts. Lines end in LF, CR or CR LF.
#pragma once

#include "platform/LetterCase.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// A name in an INI file, without the case of its letters. The order is one for searching: by a number made
/// of some of the letters, which seldom leaves texts to compare.
class IniName {
public:
    /// `text` must outlive the name.
    explicit IniName(std::string_view text);

    std::string_view text() const { return text_; }
    std::weak_ordering operator<=>(const IniName& other) const {
        return digest_ != other.digest_ ? digest_ <=> other.digest_
                                        : CompareIgnoringAsciiCase(text_, other.text_) <=> 0;
    }
    bool operator==(const IniName& other) const {
        return digest_ == other.digest_ && EqualIgnoringAsciiCase(text_, other.text_);
    }
    std::uint64_t digest() const { return digest_; }

private:
    std::string_view text_;
    std::uint64_t digest_;
};

/// The values of a text, in its order. A search goes through the names of sections, then through those of
/// keys: a file sees so few searches that sorting its names would cost more.
class IniValues {
    struct Section;

public:
    /// `text` must outlive this object and the values that it gives.
    explicit IniValues(std::string_view text);

    /// Remembers the last search, since keys are mostly asked for in the order of their lines.
    struct Cursor {
        const Section* section = nullptr;
        std::size_t nextEntry = 0;
    };
    /// The value, including quotes around it. No value if the section or the key is missing, or if the key
    /// has no "=". The cursor makes a search quicker, and is of use for these values only.
    std::optional<std::string_view> find(std::string_view section, std::string_view key,
                                         Cursor& cursor) const;
    std::optional<std::string_view> find(std::string_view section, std::string_view key) const {
        Cursor cursor;
        return find(section, key, cursor);
    }

private:
    struct Entry {
        IniName key;
        std::optional<std::string_view> value;
    };
    struct Section {
        IniName name;
        std::size_t firstEntry = 0;
        std::size_t endEntry = 0;
        bool maybeRepeats = false; ///< Whether two of its keys may have the same name.
    };
    void closeSection();

    std::vector<Entry> entries_;
    std::vector<Section> sections_;
};

/// The text that a program receives if its buffer has `bufferSize` characters: the value, or else
/// `defaultValue` without its trailing blanks. One pair of quotes around the text is removed, and it is cut
/// to `bufferSize` - 1 characters.
std::string ProfileString(std::optional<std::string_view> value, std::string_view defaultValue,
                          std::size_t bufferSize);

/// The lines that somebody may have damaged: those with control characters, and those that are neither
/// sections, nor keys with values, nor comments, which start with ";" or "#".
std::vector<std::string> DamagedIniLines(std::string_view text);

struct IniChange {
    std::string section;
    std::string key;
    std::optional<std::string> value; ///< Nothing removes every key of that name from the section.
};

/// `text` with the changes made, and CR LF at the end of each line. No value if no value changes. An existing
/// key keeps its place and spelling. A new key is added after the last line of its section that is not blank,
/// a new section at the end. Of several changes to one key the last counts.
std::optional<std::string> ApplyIniChanges(std::string_view text, std::span<const IniChange> changes);

} // namespace qrtVistrelClasses4
