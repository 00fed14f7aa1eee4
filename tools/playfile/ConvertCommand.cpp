// vistrel convert: playfiles of the older format saved as current ones, many at once.
#include "frame/SystemErrors.h"
#include "frame/Traced.h"
#include "platform/LetterCase.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "tools/playfile/Opening.h"
#include "tools/playfile/Saving.h"
#include "tools/program/Commands.h"
#include "tools/program/Encoding.h"

#include <algorithm>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

struct ConvertOptions {
    std::vector<std::string> files;
    std::string to;
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

/// Name of the playfile of the current format that `file` is converted to.
std::string targetOf(const std::string& file, const std::string& folder) {
    constexpr std::string_view ending = ".PL2";
    std::string_view name = SplitPath(file).name;
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
void convertFile(const std::string& from, const std::string& to, Counts& counts, Session& session) {
    const auto opened =
        OpenPlayfile(from, {.yes = true}, session.errors); // whoever converts files wants them opened
    if (!opened)
        return;
    if (!opened->playfile.isLegacy)
        return session.errors.add("not converted: it is a current playfile already");
    if (platform().files().hasEntry(to)) // a link that leads nowhere must not be written through either
        return session.errors.add("not converted: " + to + " exists already");
    if (!SaveOpened(*opened, to, {.no = true}, session)) // the files it refers to stay where they are
        return;
    ++counts.converted;
    counts.incomplete += opened->isComplete ? 0 : 1;
    session.out << Visible(from + " -> " + to) << "; " << Counted(opened->framesRead, "frame") << '\n';
}

ExitCode convert(const ConvertOptions& options, Session& session) {
    session.errors.aboutFile(options.to);
    FileSystem& files = platform().files();
    if (files.kindOf(options.to) != EntryKind::folder)
        Check(files.createFolder(options.to));
    const std::size_t total = options.files.size();
    Counts counts;
    {
        Progress progress(total);
        for (const std::string& file : options.files) {
            progress.startNext();
            const auto error =
                ErrorOf([&] { convertFile(file, targetOf(file, options.to), counts, session); });
            if (error) // the other files can be converted all the same
                session.errors.add(*error);
        }
    }
    session.out << "Converted " << counts.converted << " of " << Counted(total, "file");
    if (counts.incomplete > 0)
        session.out << ", " << counts.incomplete << " of them not completely";
    session.out << '\n';
    return counts.converted == total && counts.incomplete == 0 ? ExitCode::done : ExitCode::failed;
}

} // namespace

void SetUpConvertCommand(CLI::App& command, Session& session) {
    const auto options = std::make_shared<ConvertOptions>();
    SetAction(command, session, options, &convert);
    command
        .add_option("FILES", options->files,
                    "The playfiles; bad ones are reported and left out. What a frame loses is reported, too, "
                    "and the exit code is then 1")
        ->required();
    command
        .add_option("--to", options->to,
                    "Folder for the new files, which end in .playfile; made if it is missing. Existing files "
                    "are left alone")
        ->required();
}

} // namespace qrtVistrelClasses4
