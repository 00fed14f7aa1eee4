// Lists of signs as other programs write and read them.
#pragma once

#include "tools/program/Commands.h"
#include <qrtVistrelClasses4/SignList.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// The list as a table for spreadsheets, with a line for each sign.
std::string CsvOf(const SignList& list);

struct SignsImport {
    std::string fileName;     ///< As error messages name it.
    bool isUnchecked = false; ///< Values may be such that no sign has.
    /// The list whose signs of the same name are changed. Values that the file lacks stay as they are. Null
    /// if the file has a list of its own; such values are then those of a new sign.
    const SignList* merged = nullptr;
};

/// The list that a table makes. Returns nothing, after adding all errors, if anything in it is wrong.
std::optional<SignList> SignsOfCsv(std::string_view text, const SignsImport& import, ErrorLines& errors);

/// Adds "export" and "import". `json` says whether a command prints JSON.
void AddSignsExchange(CLI::App& signs, Session& session, std::shared_ptr<const bool> json);

} // namespace qrtVistrelClasses4
