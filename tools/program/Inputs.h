// The playfiles that a command reads: files, folders of them, and standard input.
#pragma once

#include "frame/Traced.h"
#include "platform/FileSystem.h"
#include "tools/program/Commands.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// What is typed for standard input, or for standard output.
inline constexpr std::string_view kStandardStream = "-";

struct InputOptions {
    std::vector<std::string> names; ///< Of files, folders and standard input.
    bool recursive = false;

    /// Whether the output is that of several files. A script that passes a folder gets the same form for any
    /// number of files in it.
    bool areSeveral() const { return recursive || names.size() > 1; }
};

enum class InputKind { playfile, olderPlayfile };

/// Adds `name`, for one or more files, and "--recursive".
CLI::Option* AddInputOptions(CLI::App& command, InputOptions& options, const std::string& name,
                             const std::string& description);

/// A file to read.
struct Input {
    std::string path;
    std::string below; ///< The path below the folder that was typed; the name alone of a file that was typed.
};

/// The files that were typed, and with "--recursive" those in the folders that were typed: playfiles by the
/// ending of their name or their first line, in the order of their names, without copies that were
/// kept of others. Links to folders within folders are not followed, so there are no circles. Adds an error
/// for each name that leads to nothing.
std::vector<Input> FindInputs(const InputOptions& options, InputKind kind, ErrorLines& errors);

/// What a file is called in messages.
std::string InputName(const std::string& path);
/// Makes the file the subject of the following errors.
void AboutInput(ErrorLines& errors, const std::string& path);

/// The most bytes that are read into memory whole: 256 MiB.
inline constexpr std::size_t kMostInput = std::size_t{256} << 20;

/// All bytes of standard input. Throws an error if there are more than `kMostInput`, or if they were read
/// before.
std::string ReadStandardInput();
/// The same for a file, or for standard input.
std::string ReadInput(const std::string& path);

/// Opens a file, or standard input. Throws errors of the file system.
std::unique_ptr<InputFile> OpenInput(const std::string& path);

/// Calls `take(input)` for each file. A file that fails does not stop the others; the result is then
/// `failed`.
template <class Take>
ExitCode ForEachInput(const std::vector<Input>& inputs, Session& session, Take take) {
    ExitCode result = ExitCode::done;
    for (const Input& input : inputs) {
        ExitCode code = ExitCode::failed;
        if (const auto error = ErrorOf([&] { code = take(input); }))
            session.errors.add(*error);
        if (code != ExitCode::done)
            result = inputs.size() == 1 ? code : ExitCode::failed;
    }
    return result;
}

/// Prints the name of a file above what is shown of it, for several files.
class Headings {
public:
    Headings(const InputOptions& options, std::ostream& out) : isShown_(options.areSeveral()), out_(out) {}
    void print(const std::string& path);

private:
    bool isShown_;
    std::ostream& out_;
    const char* gap_ = "";
};

} // namespace qrtVistrelClasses4
