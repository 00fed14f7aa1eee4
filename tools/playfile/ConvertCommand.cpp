// vistrel convert: playfiles of the older format saved as current ones, many at once.
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "tools/playfile/Opening.h"
#include "tools/playfile/Saving.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/Outputs.h"
#include "tools/program/ValueKinds.h"

#include <algorithm>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct ConvertOptions {
    InputOptions input;
    std::string to;
    OutputOptions output;
};

/// Shows on the terminal which file is being converted, and removes that text at the end.
class Progress {
public:
    explicit Progress(std::size_t total) : total_(total) {}
    ~Progress() { show("\r\x1b[K"); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void startNext() {
        show("\r\x1b[KConverting " + std::to_string(++current_) + " of " + std::to_string(total_) + '\r');
    }

private:
    void show(const std::string& text) const {
        if (isWatched_)
            (void)platform().console().write(StandardStream::error, text);
    }

    bool isWatched_ = platform().console().isTerminal(StandardStream::error);
    std::size_t current_ = 0;
    std::size_t total_;
};

/// The playfile of the current format that a file is converted to. It is in the same place below the folder
/// of the new files as the old one below the folder that was typed.
std::string targetOf(const Input& input, const std::string& folder) {
    constexpr std::string_view ending = ".PL2";
    std::string_view name = input.path == kStandardStream ? "stdin" : std::string_view(input.below);
    const std::size_t stem = name.size() - std::min(name.size(), ending.size());
    if (stem > 0 && EqualIgnoringAsciiCase(name.substr(stem), ending))
        name = name.substr(0, stem);
    return JoinPath(folder, std::string(name) + ".playfile");
}

struct Counts {
    std::size_t converted = 0;
    std::size_t incomplete = 0; ///< How many of those are incomplete.
};

/// Converts the file `from` to `to`, and counts it. If that fails, the reason goes to the session's errors.
ExitCode convertFile(const std::string& from, const std::string& to, Counts& counts, Outputs& outputs,
                     Session& session) {
    const auto opened =
        OpenPlayfile(from, {.yes = true}, session.errors); // whoever converts files wants them opened
    if (!opened)
        return ExitCode::failed;
    if (!opened->playfile.isLegacy) {
        session.errors.add("not converted: it is a current playfile already");
        return ExitCode::failed;
    }
    const SavingOptions saving{.answers = {.no = true}}; // the files it refers to stay where they are
    if (const ExitCode code = SaveOpened(*opened, to, saving, outputs, session, "not converted");
        code != ExitCode::done)
        return code;
    ++counts.converted;
    counts.incomplete += opened->isComplete ? 0 : 1;
    outputs.remark(Visible(InputName(from) + " -> " + to) + "; " + Counted(opened->framesRead, "frame"));
    return ExitCode::done;
}

ExitCode convert(const ConvertOptions& options, Session& session) {
    const EntryKind kind = platform().files().kindOf(options.to);
    if (kind == EntryKind::missing && (HasPlaceholder(options.to, 'f') || HasPlaceholder(options.to, 'n'))) {
        session.errors.about("--to");
        session.errors.add("names a folder, which has no %f or %n");
        return ExitCode::wrongUsage;
    }
    const std::vector<Input> inputs = FindInputs(options.input, InputKind::olderPlayfile, session.errors);
    session.errors.about(options.to);
    if (kind != EntryKind::missing && kind != EntryKind::folder) {
        session.errors.add(FileFault{"is not a folder", true});
        return ExitCode::failed;
    }
    Outputs outputs(options.output, ExistingFiles::kept, session);
    outputs.makeFolders();
    Counts counts;
    {
        Progress progress(inputs.size());
        (void)ForEachInput(inputs, session, [&](const Input& input) {
            progress.startNext();
            return convertFile(input.path, targetOf(input, options.to), counts, outputs, session);
        });
    }
    std::string summary =
        "Converted " + std::to_string(counts.converted) + " of " + Counted(inputs.size(), "file");
    if (counts.incomplete > 0)
        summary += ", " + std::to_string(counts.incomplete) + " of them not completely";
    outputs.remark(summary);
    return counts.converted == inputs.size() && counts.incomplete == 0 ? ExitCode::done : ExitCode::failed;
}

} // namespace

void SetUpConvertCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<ConvertOptions>();
    SetAction(command, session, options, &convert);
    AddInputOptions(command, options->input, "FILES",
                    "The playfiles; bad ones are reported and left out. What a frame loses is reported, too, "
                    "and the exit code is then 1")
        ->type_name(kOlderPlayfileValue)
        ->required();
    command
        .add_option(
            "--to", options->to,
            "Folder for the new files, which end in .playfile; made if it is missing. Files in folders "
            "get the same folders there")
        ->type_name(kFolderValue)
        ->required();
    AddOutputOptions(command, options->output, ExistingFiles::kept);
}

} // namespace qrtVistrelClasses4
