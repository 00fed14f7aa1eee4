// What the imports and exports of stores, such as the list of signs, have in common.
#pragma once

#include "tools/exchange/JsonOutput.h"
#include "tools/program/Commands.h"
#include "tools/program/Outputs.h"

#include <functional>
#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

struct ImportOptions {
    std::string file; ///< Its name, or "-".
    bool merges = false;
    bool isUnchecked = false;
};

/// What the help says about the options of an import.
struct ImportHelp {
    const char* merge;
    const char* unchecked;
};

/// Adds FILE, "--merge" and "--unchecked".
void AddImportOptions(CLI::App& command, ImportOptions& options, const ImportHelp& help);

/// The bytes of the file. Nothing, after adding the reason, if it cannot be read.
std::optional<std::string> ReadImport(const ImportOptions& options, ErrorLines& errors);

/// Adds "--out" and what goes with it.
void AddExportOptions(CLI::App& command, OutputOptions& options);

/// Writes what `write(file)` writes to the file of "--out", or prints it without one.
ExitCode WriteExport(const OutputOptions& options, const std::function<void(ByteSink& file)>& write,
                     Session& session);

/// The same for a value as JSON.
template <class Value>
ExitCode WriteJsonExport(const OutputOptions& options, const Value& value, Session& session) {
    const auto write = [&](ByteSink& file) {
        JsonOutput out(file);
        out.put(value);
        out.finish();
    };
    return WriteExport(options, write, session);
}

} // namespace qrtVistrelClasses4
