#include "tools/program/Outputs.h"

#include "frame/SystemErrors.h"
#include "platform/FileNames.h"
#include "platform/Folders.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "tools/program/Encoding.h"
#include "tools/program/Inputs.h"
#include "tools/program/ValueKinds.h"

#include <algorithm>
#include <array>

namespace qrtVistrelClasses4 {
namespace {

/// Where the ending starts; the size of the path without one. A dot in front of a name starts no ending.
std::size_t startOfEnding(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    return dot == path.npos || dot <= SplitPath(path).folder.size() ? path.size() : dot;
}

/// "NAME: why it cannot be written".
std::string faultOf(const std::string& path, SystemError error) {
    return path + ": " + FaultOf(path, ErrorFor(error)).clause();
}

/// One name for the file that `path` leads to, however it is typed.
std::string resolvedName(const std::string& path) {
    FileSystem& files = platform().files();
    const std::string full = files.fullName(path);
    if (!full.starts_with('/')) // on Windows, which has resolved "." and ".."
        return files.resolveLinks(full);
    std::string resolved;
    for (std::size_t at = 1, end = 0; at <= full.size(); at = end + 1) {
        end = std::min(full.find('/', at), full.size());
        const std::string part = full.substr(at, end - at);
        if (part == "..")
            resolved.erase(std::min(resolved.rfind('/'), resolved.size()));
        else if (!part.empty() && part != ".")
            resolved = files.resolveLinks(resolved.append("/").append(part));
    }
    return resolved;
}

/// Why `path` cannot be written after `earlier`, which the file system may take for the same file.
std::string clashOf(const std::string& path, const std::string& earlier) {
    if (path == earlier)
        return "an earlier file of this run has the name " + path + ", too";
    return path +
           (FoldedName(path) == FoldedName(earlier) ? " differs only in case from "
                                                    : " is the same file as ") +
           earlier + ", an earlier file of this run";
}

} // namespace

void AddOutputOptions(CLI::App& command, OutputOptions& options, ExistingFiles existing) {
    const bool areKept = existing == ExistingFiles::kept;
    std::string replaced = "Replaces existing files";
    if (existing == ExistingFiles::replaced)
        replaced += ", as usual";
    else if (existing == ExistingFiles::replacedIfAlike)
        replaced += " of any kind; usually only those of the same kind";
    CLI::Option* force = command.add_flag("--force", options.force, replaced);
    command
        .add_flag("--no-clobber", options.noClobber,
                  areKept ? "Leaves existing files alone, as usual"
                          : "Leaves existing files alone, with an error")
        ->excludes(force);
    command.add_flag("--dry-run", options.dryRun, "Prints what would be written, and writes nothing");
    command.add_flag("--quiet", options.quiet, "Prints errors only");
}

CLI::Option* AddOutOption(CLI::App& command, OutputOptions& options, const std::string& description) {
    // An empty name is a mistake of a script. Without "--out", some commands change their own file.
    const CLI::Validator isName([](const std::string& name) { return name.empty() ? "names no file" : ""; },
                                "");
    return command
        .add_option("--out", options.out,
                    description + R"(; "-" for standard output. %f is the name of the playfile without )"
                                  "folder and ending, %% is %")
        ->type_name(kFileValue)
        ->check(isName);
}

bool HasPlaceholder(std::string_view pattern, char letter) {
    for (std::size_t at = 0; (at = pattern.find('%', at)) != pattern.npos; at += 2)
        if (at + 1 < pattern.size() && pattern[at + 1] == letter)
            return true;
    return false;
}

bool HasKnownPlaceholders(std::string_view pattern, const std::string& withoutFrame, ErrorLines& errors) {
    std::string fault;
    for (std::size_t at = 0; fault.empty() && (at = pattern.find('%', at)) != pattern.npos; at += 2) {
        const char letter = at + 1 < pattern.size() ? pattern[at + 1] : ' ';
        if (letter == 'n' && !withoutFrame.empty())
            fault = withoutFrame + " has no frame number %n";
        else if (letter != 'f' && letter != 'n' && letter != '%')
            fault = std::string("a name takes only %f, ") + (withoutFrame.empty() ? "%n " : "") +
                    "and %%, which is %";
    }
    errors.about("--out");
    if (!fault.empty())
        errors.add(fault);
    return fault.empty();
}

std::string NameFromPattern(std::string_view pattern, const std::string& input, std::int32_t frame) {
    std::string name;
    while (!pattern.empty()) {
        const std::size_t size = std::min(pattern.find('%'), pattern.size());
        name += pattern.substr(0, size);
        pattern.remove_prefix(size);
        const char letter = pattern.size() > 1 ? pattern[1] : ' ';
        if (letter == 'f')
            name += input == kStandardStream ? "stdin" : StemOf(input);
        else if (letter == 'n' && frame > 0)
            name += std::to_string(frame);
        else
            name += pattern.substr(0, letter == '%' ? 1 : 2); // as it is
        pattern.remove_prefix(std::min<std::size_t>(pattern.size(), 2));
    }
    return name;
}

std::string EndingOf(std::string_view path) {
    std::string ending(path.substr(startOfEnding(path)));
    std::ranges::transform(ending, ending.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    });
    return ending;
}

std::string StemOf(std::string_view path) {
    return std::string(SplitPath(path.substr(0, startOfEnding(path))).name);
}

std::string OutputName(const std::string& path) { return path == kStandardStream ? "standard output" : path; }

void AboutOutput(ErrorLines& errors, const std::string& path) {
    if (path == kStandardStream)
        errors.about(OutputName(path));
    else
        errors.aboutFile(path);
}

bool HasEnding(const std::string& path, std::initializer_list<std::string_view> endings, ErrorLines& errors) {
    if (path == kStandardStream || std::ranges::find(endings, EndingOf(path)) != endings.end())
        return true;
    std::string known;
    for (const std::string_view& ending : endings)
        known.append(known.empty() ? "" : &ending == endings.end() - 1 ? " and " : ", ").append(ending);
    errors.about(path);
    errors.add("the ending says what is written, and only " + known + (endings.size() > 1 ? " are" : " is") +
               " known here");
    return false;
}

bool MayNamePlayfile(const std::string& path, ErrorLines& errors) {
    constexpr auto others = std::to_array<std::string_view>({".png", ".jpg", ".jpeg", ".gif", ".bmp", ".tif",
                                                             ".tiff", ".avi", ".wav", ".xml", ".json", ".htm",
                                                             ".html", ".pdf", ".zip", ".cmd", ".cff"});
    const std::string ending = EndingOf(path);
    if (std::ranges::find(others, ending) == others.end())
        return true;
    errors.about(path);
    errors.add("the ending says what is written, and " + ending + " is not that of a playfile");
    return false;
}

bool NamesEachFile(const OutputOptions& options, bool areSeveral, ErrorLines& errors) {
    if (!areSeveral || options.out.empty() || HasPlaceholder(options.out, 'f'))
        return true;
    errors.about("--out");
    errors.add("names one file for several playfiles; %f in it takes the name of each");
    return false;
}

OutputTarget::OutputTarget(const std::string& path, std::ostream& out) : out_(out) {
    if (path != kStandardStream)
        file_.emplace(platform().files(), path);
}

SystemError OutputTarget::write(std::string_view bytes) {
    if (file_)
        return file_->write(bytes);
    out_ << bytes; // a failure is found when the program ends
    return SystemError::none;
}

std::string Outputs::refusal(const std::string& path) {
    if (path == kStandardStream)
        return platform().console().isTerminal(StandardStream::output)
                   ? "standard output is a terminal; it takes a file or a pipe"
                   : "";
    if (const auto [earlier, isNew] = names_.emplace(FoldedName(resolvedName(path)), path); !isNew)
        return clashOf(path, earlier->second);
    if (!replaces_ && platform().files().hasEntry(path)) // or a link that leads nowhere
        return path + " exists already; --force replaces it";
    const SystemError error =
        options_.dryRun || looksAhead_ ? platform().files().mayWrite(path) : SystemError::none;
    return error == SystemError::none || (error == SystemError::folderNotFound && makesFolders_)
               ? ""
               : faultOf(path, error);
}

std::optional<ExitCode> Outputs::codeInsteadOf(const std::string& path, const std::string& notDone) {
    if (const std::string reason = refusal(path); !reason.empty()) {
        session_.errors.add(notDone + ": " + reason);
        return ExitCode::failed;
    }
    if (!options_.dryRun) {
        FileSystem& files = platform().files();
        const auto error =
            makesFolders_ ? MakeFoldersAbove(files, path,
                                             [&](const auto& folder) { return files.createFolder(folder); })
                          : SystemError::none;
        if (error == SystemError::none)
            return std::nullopt;
        session_.errors.add(notDone + ": " + faultOf(path, error));
        return ExitCode::failed;
    }
    const bool isThere = path != kStandardStream && platform().files().hasEntry(path);
    print(Visible((isThere ? "Would replace " : "Would write ") + OutputName(path)));
    return ExitCode::done;
}

void Outputs::remark(const std::string& line) const {
    if (!options_.dryRun)
        print(line);
}

void Outputs::print(const std::string& line) const {
    if (options_.quiet)
        return;
    if (options_.out == kStandardStream)
        (void)platform().console().write(StandardStream::error, line + '\n');
    else
        session_.out << line << '\n';
}

} // namespace qrtVistrelClasses4
