// What the imports and exports of stores, such as the list of signs, have in common.
#pragma once

#include "tools/program/Commands.h"
#include "tools/program/Outputs.h"

#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

struct ImportOptions {
    std::string file; ///< Its name, or "-".
    bool merges = false;
    bool isUnchecked = false;
};

/// Adds FILE, "--merge" and "--unchecked". `merge` says what is merged.
void AddImportOptions(CLI::App& command, ImportOptions& options, const std::string& merge);

/// The bytes of the file. Nothing, after adding the reason, if it cannot be read.
std::optional<std::string> ReadImport(const ImportOptions& options, ErrorLines& errors);

/// Adds "--out" and what goes with it.
void AddExportOptions(CLI::App& command, OutputOptions& options);

/// Writes what `write(out)` writes to the file of "--out", or prints it without one.
ExitCode WriteExport(const OutputOptions& options, std::string_view text, Session& session);

} // namespace qrtVistrelClasses4
