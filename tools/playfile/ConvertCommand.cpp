// vistrel convert: playfiles of the older format saved as current ones, many at once.
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

/// Counts on the terminal while the files are converted, and leaves nothing of it. A message on the way is
/// written over it.
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

enum class Conversion { complete, partial, failed };

/// Name of the current playfile that the older one `file` becomes.
std::string targetOf(const std::string& file, const std::string& folder) {
    constexpr std::string_view ending = ".PL2";
    std::string_view name = SplitPath(file).name;
    const std::size_t stem = name.size() - std::min(name.size(), ending.size());
    if (stem > 0 && EqualIgnoringAsciiCase(name.substr(stem), ending))
        name = name.substr(0, stem);
    return JoinPath(folder, std::string(name) + ".playfile");
}

Conversion convertFile(const std::string& from, const std::string& to, Session& session) {
    ErrorLines& errors = session.errors;
    const std::size_t errorsBefore = errors.count();
    FrameInfoClass playfile;
    playfile.SetSuppressMessages(true); // whoever converts wants to go on
    if (!OpenPlayfile(playfile, from, {}, errors))
        return Conversion::failed;
    if (!playfile.IsLegacy()) {
        errors.add("not converted: it is a current playfile already");
        return Conversion::failed;
    }
    if (platform().files().hasEntry(to)) { // what a link that leads nowhere names must not be made either
        errors.add("not converted: " + to + " is there already");
        return Conversion::failed;
    }
    if (SavePlayfile(playfile, to, {}, session) != ExitCode::done)
        return Conversion::failed;
    const std::int16_t count = playfile.TotalFrames();
    session.out << Visible(from + " -> " + to) << "; " << count << (count == 1 ? " frame\n" : " frames\n");
    return errors.count() == errorsBefore ? Conversion::complete : Conversion::partial;
}

/// What one file throws does not keep the next from being converted.
Conversion tryToConvert(const std::string& from, const std::string& to, Session& session) {
    Conversion result = Conversion::failed;
    if (const auto error = ErrorOf([&] { result = convertFile(from, to, session); }))
        session.errors.add(*error);
    return result;
}

ExitCode convert(const ConvertOptions& options, Session& session) {
    session.errors.about(options.to);
    FileSystem& files = platform().files();
    if (files.kindOf(options.to) != EntryKind::folder)
        Check(files.createFolder(options.to));
    std::size_t converted = 0;
    std::size_t partial = 0;
    {
        Progress progress(options.files.size());
        for (const std::string& file : options.files) {
            progress.startNext();
            const Conversion result = tryToConvert(file, targetOf(file, options.to), session);
            converted += result != Conversion::failed ? 1 : 0;
            partial += result == Conversion::partial ? 1 : 0;
        }
    }
    const std::size_t total = options.files.size();
    session.out << "Converted " << converted << " of " << total << (total == 1 ? " file" : " files");
    if (partial > 0)
        session.out << ", " << partial << " of them not completely";
    session.out << '\n';
    return converted == total && partial == 0 ? ExitCode::done : ExitCode::failed;
}

} // namespace

void AddConvertCommand(CLI::App& program, Session& session) {
    CLI::App& command =
        AddCommand(program, "convert", "Saves playfiles of the older format (PL2) as current ones",
                   "vistrel convert old/*.PL2 --to new");
    const auto options = std::make_shared<ConvertOptions>();
    command.add_option("FILES", options->files, "The playfiles; bad ones are told and passed over")
        ->required();
    command
        .add_option("--to", options->to,
                    "Folder for the new ones, which end in .playfile; made when it is missing. Files that "
                    "are there already are left alone")
        ->required();
    command.callback([options, &session] {
        session.command = [options, &session] { return convert(*options, session); };
    });
}

} // namespace qrtVistrelClasses4
