// The list of signs as the program loads and saves it.
#pragma once

#include "tools/program/ErrorLines.h"
#include <qrtVistrelClasses4/SignList.h>

#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// A list that was loaded from the place where it was saved last. Values are as the library's properties read
/// them.
struct SignsFile : SignListOutcome {
    std::string path;
};

/// Loads the list up to the first error. Adds an error and returns nothing if it is not known where the list
/// is.
std::optional<SignsFile> LoadSigns(ErrorLines& errors);

/// The reasons why the list is not what it should be.
std::vector<FileFault> FaultsOf(const SignsFile& file);
/// Adds them.
void AddFaults(const SignsFile& file, ErrorLines& errors);

/// False, after adding the reason, if saving would lose signs.
bool MayBeChanged(const SignsFile& file, ErrorLines& errors);

/// Saves the list in the library's folder, and makes that its path. False, after adding the reason, if it was
/// not saved. A quote in one of the two spare texts of a sign, which a file with texts outside quotes may
/// hold, is not noticed.
bool SaveSigns(SignsFile& file, ErrorLines& errors);

/// The sign as it is read back from its file, which mends some values.
DisplayRecord SignAsLoaded(DisplayRecord sign);
/// The error of a value that is read back as another.
std::string NotReadBack(const nlohmann::ordered_json& value, const nlohmann::ordered_json& readBack);

/// Number of the sign of that name, in Windows-1252. A name that is a number is stored, and found, with "#"
/// before it.
std::optional<std::int16_t> FindSign(const SignList& list, const std::string& name);

/// Number of the sign of the typed name. Adds an error if there is none.
std::optional<std::int16_t> FindTypedSign(const SignList& list, const std::string& typed, ErrorLines& errors);

/// The sign of the typed name, from the list on disk. Adds an error if there is none.
std::optional<DisplayRecord> FindStoredSign(const std::string& typed, ErrorLines& errors);

} // namespace qrtVistrelClasses4
