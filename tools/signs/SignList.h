// The list of signs as the program reads and saves it.
#pragma once

#include "displays/DisplayDatabaseClass.h"
#include "tools/program/ErrorLines.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// The list is read where it was saved last, and saved in the library's folder. It is not saved where signs
/// would be lost by it. One loss is not seen: the two spare texts of a record cannot be looked at, so that a
/// quote in them, which a file with texts outside quotes may hold, gets into the file.
class SignList {
public:
    /// Reads the list, as far as it can be read.
    SignList();

    DisplayDatabaseClass signs;

    /// The file that was read or, after saving, written.
    const std::string& path() const { return path_; }
    bool isComplete() const { return !error_; }
    /// A list that is not there yet is empty.
    bool isMissing() const;

    /// Every record as JSON, also those that do not count because the last one has no name. Moves the
    /// cursors.
    std::vector<nlohmann::ordered_json> records();

    /// Tells why the list is not what it should be.
    void tellFaults(ErrorLines& errors);
    /// False, after telling why, when saving would lose signs.
    bool mayBeChanged(ErrorLines& errors);
    /// False, after telling why, when nothing was saved or saving failed.
    bool save(ErrorLines& errors);

private:
    bool canBeSaved(ErrorLines& errors);

    std::string path_;
    std::optional<RuntimeError> error_; ///< Of reading.
};

/// Number of the sign of that name, in Windows-1252; -1 for none. A name that is a number is stored, and
/// found, with "#" before it.
std::int16_t FindSign(DisplayDatabaseClass& signs, const std::string& name);

/// Puts the cursor on the sign of the typed name; false after telling that there is none.
bool SelectSign(DisplayDatabaseClass& signs, const std::string& typed, ErrorLines& errors);

} // namespace qrtVistrelClasses4
